#pragma once

#include "demo/drawing/pixel_art.h"
#include "world_map/worlds.h"

/// Pictures of the worlds' tiles. Both worlds have the same palette rows, in colours of their own.
namespace veldrune::demo::overland {

inline constexpr int side = 16; // pixels of a tile

// Palette rows. All begin with the five colours of grass.
inline constexpr int coast_row = 0;
inline constexpr int forest_row = 1;
inline constexpr int rock_row = 2;
inline constexpr int desert_row = 3;
inline constexpr int road_row = 4;
inline constexpr int house_row = 5;
inline constexpr int castle_row = 6;
constexpr Ramp grass(int row) {
    return {ink(row, 1), 5};
}
inline constexpr Ramp rock{ink(rock_row, 6), 6};

/// Grass with a few blades here and there; width and height in pixels.
Picture plain(int row, int width = side, int height = side);

// Grounds in a few variants.
Picture meadow_tile(int variant);  // 0 to 3
Picture deep_tile(int variant);    // 0 to 3
Picture shallow_tile(int variant); // 0 and 1
Picture dune_tile(int variant);    // 0 to 3
Picture hills_tile();

// A ground that covers some corners of a tile: 1 the upper left one, 2 the upper right, 4 the lower
// left and 8 the lower right.
Picture depths_tile(int corners); // shallow water over deep
Picture coast_tile(int corners);  // land over shallow water
Picture desert_tile(int corners);
Picture forest_tile(World world, int corners, bool thick);
Picture mountain_tile(int corners);
/// A peak of two tiles by two; snow lies down to snow_line.
Picture peak_block(int snow_line, int purpose);

Picture road_tile(int leads);    // 1 to the north, 2 east, 4 south, 8 west
Picture bridge_tile(int number); // the upper and the lower half of one, the left and the right

Picture village_tile();
Picture town_tile();
Picture harbour_tile();
Picture tower_tile();
Picture ruin_tile();
Picture cave_tile();
Picture castle_block(); // two tiles by two

} // namespace veldrune::demo::overland
