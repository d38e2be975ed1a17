#pragma once

#include "events/script_grid.h"
#include "rom/rom_image.h"

namespace veldrune {

/// A script has at most this many bytes, the final 0xFE included.
inline constexpr int max_script_bytes = 10001;

struct LoadedScript {
    int length = 0;     // bytes, the final 0xFE included
    bool whole = false; // its end was found
};

/// Lays the script at a file offset out in the grid, up to its end: the first 0xFE that is a
/// command. A script that is too long, or that the file's end cuts, is laid out as far as whole
/// commands go.
LoadedScript load_script(const RomImage& rom, std::int64_t offset, bool dialogue_patched,
                         ScriptGrid& grid);

} // namespace veldrune
