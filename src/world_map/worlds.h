#pragma once

#include "rom/snes_address.h"

#include <cstdint>

namespace veldrune {

enum class World { dawn, dusk };

/// Where a world lies, as file offsets, and the map whose object lists it uses.
struct WorldRow {
    const char* name;
    std::int32_t map_pointer;      // of the stream of its tiles
    std::int32_t graphics_pointer; // of the stream of its tile table and characters
    std::int32_t palette;          // 256 colours
    int map;
};

// clang-format off
inline constexpr WorldRow world_rows[] = {
    // name            map pointer                   graphics pointer                   palette                   map
    {"World of Dawn", rom_layout::dawn_map_pointer, rom_layout::dawn_graphics_pointer, rom_layout::dawn_palette, 0},
    {"World of Dusk", rom_layout::dusk_map_pointer, rom_layout::dusk_graphics_pointer, rom_layout::dusk_palette, 1},
};
// clang-format on
constexpr const WorldRow& world_row(World world) {
    return world_rows[static_cast<int>(world)];
}

} // namespace veldrune
