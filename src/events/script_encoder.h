#pragma once

#include "events/script_rows.h"

#include <vector>

namespace veldrune {

/// The bytes of a script up to its first 0xFE command, or the cell that can't be encoded. A cell
/// that is not hexadecimal gives a warning and counts as the parser says.
struct EncodedScript {
    std::vector<std::uint8_t> bytes;
    std::optional<CellRefusal> refusal;
};
EncodedScript encode_script(const ScriptGrid& grid, Dialogs& dialogs);

} // namespace veldrune
