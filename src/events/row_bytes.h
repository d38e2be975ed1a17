#pragma once

#include "events/script_grid.h"
#include "rom/rom_image.h"

#include <vector>

namespace veldrune {

/// Where the bytes of a row of the grid lie, from the script's first one on. Two rows that share a
/// byte both have it.
struct RowBytes {
    int at;
    int size;
};

/// Lays the script at a file offset out in the grid as load_script does, and says where the bytes
/// of its rows lie, from row 1 on.
std::vector<RowBytes> lay_out_script(const RomImage& rom, std::int64_t offset,
                                     bool dialogue_patched, ScriptGrid& grid);

} // namespace veldrune
