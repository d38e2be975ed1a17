#pragma once

#include "demo/drawing/drawn_picture.h"

/// Matching pictures of the grounds and roads of the worlds. Both worlds use the same palette rows,
/// with different colours.
namespace veldrune::demo::overland {

inline constexpr int side = 16; // pixels of a tile

// Palette rows, as demo/assets/palettes/worlds.txt lists them.
inline constexpr int coast_row = 0;
inline constexpr int forest_row = 1;
inline constexpr int rock_row = 2;
inline constexpr int desert_row = 3;
inline constexpr int road_row = 4;

/// Grass with a few blades; width and height in pixels.
Picture plain(int row, int width = side, int height = side);
Picture deep_tile(int variant);    // 0 to 3
Picture shallow_tile(int variant); // 0 and 1
Picture dunes();

// A ground that covers some corners of a tile: 1 is the upper left one, 2 the upper right, 4 the
// lower left and 8 the lower right.
Picture depths_tile(int corners); // shallow water over deep
Picture coast_tile(int corners);  // land over shallow water
Picture desert_tile(int corners);
Picture forest_tile(DrawnPicture tree, int corners, bool thick);
Picture mountain_tile(DrawnPicture peak, int corners);

Picture road_tile(int leads); // 1 to the north, 2 east, 4 south, 8 west

} // namespace veldrune::demo::overland
