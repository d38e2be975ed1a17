#pragma once

#include "events/script_grid.h"
#include "rom/rom_image.h"

#include <span>
#include <vector>

namespace veldrune {

/// A script has at most this many bytes, the final 0xFE included.
inline constexpr int max_script_bytes = 10001;

/// Where the bytes of a row of the grid lie, from the script's first one on. Two rows that share a
/// byte both have it.
struct RowBytes {
    int at;
    int size;
};

struct LoadedScript {
    std::int64_t offset = 0;         // where it was read
    std::vector<std::uint8_t> bytes; // the final 0xFE included
    std::vector<RowBytes> rows;      // from the grid's row 1 on
    bool whole = false;              // its end was found
    int length() const { return static_cast<int>(bytes.size()); }
};

/// Lays the script at a file offset out in the grid, up to its end: the first 0xFE that is a
/// command. A script that is too long, or that the file's end cuts, is laid out as far as whole
/// commands go.
LoadedScript load_script(const RomImage& rom, std::int64_t offset, bool dialogue_patched,
                         ScriptGrid& grid);

/// The row of the first list of a 0xB6 that a load of these bytes, which the grid makes, would
/// give another number of offsets than its cell holds: what the dialogue before it now offers
/// decides there. Nothing where every list comes back, or where the disk refuses a dialogue.
std::optional<int> row_of_misread_list(const RomImage& rom, std::span<const std::uint8_t> bytes,
                                       const ScriptGrid& grid);

} // namespace veldrune
