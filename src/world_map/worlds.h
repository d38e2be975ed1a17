#pragma once

#include "rom/rom_layout.h"

#include <cstdint>

namespace veldrune {

enum class World { dawn, dusk };

/// Where a world lies, as file offsets, and the map whose object lists are its own.
struct WorldRow {
    std::int32_t map_pointer;      // of the stream of its tiles
    std::int32_t graphics_pointer; // of the stream of its tile table and characters
    std::int32_t palette;          // 256 colours
    int map;
};

// clang-format off
inline constexpr WorldRow world_rows[] = {
    // map pointer                 graphics pointer                   palette                   map
    {rom_layout::dawn_map_pointer, rom_layout::dawn_graphics_pointer, rom_layout::dawn_palette, 0},
    {rom_layout::dusk_map_pointer, rom_layout::dusk_graphics_pointer, rom_layout::dusk_palette, 1},
};
// clang-format on
constexpr const WorldRow& world_row(World world) {
    return world_rows[static_cast<int>(world)];
}

// A world's pointers are SNES addresses of 24 bits: $C00000 is the first byte behind the header.
inline constexpr std::int32_t first_address = 0xC00000;
inline constexpr std::int32_t last_address = 0xFFFFFF;

/// The file offset of an address; below 0 for an address before $C00000.
constexpr std::int32_t offset_of_address(std::int32_t address) {
    return address - first_address + rom_layout::header_size;
}
/// The address of a file offset; above last_address for one that no address reaches.
constexpr std::int64_t address_of_offset(std::int64_t offset) {
    return offset - rom_layout::header_size + first_address;
}

} // namespace veldrune
