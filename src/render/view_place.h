#pragma once

namespace veldrune {

/// How tiles lie on the picture: the tile at its top left corner, and the side of a tile in pixels.
struct ViewPlace {
    int h = 0; // column
    int v = 0; // row
    int tile_size = 32;
};

} // namespace veldrune
