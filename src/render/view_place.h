#pragma once

namespace veldrune {

/// The part of a map in view: the tile at the picture's top left, and the side of a tile in pixels.
struct ViewPlace {
    int h = 0; // column
    int v = 0; // row
    int tile_size = 32;
};

} // namespace veldrune
