#pragma once

#include "objects/object_tables.h"
#include "render/build_tiles.h"
#include "world_map/worlds.h"

#include <array>
#include <optional>

namespace veldrune {

/// A map of an image.
struct MapOrigin {
    std::optional<ImageSource> source; // nothing where the disk has refused a read
    int map_index = -1;
};

/// What the picture on show was made from.
struct PictureOrigin {
    // The formations, from "Build Tileset".
    MapOrigin tiles;
    TileNumbers numbers;
    int later_frames = 0;     // the set of animated tiles that the map was loaded with
    bool tiles_drawn = false; // all cells have been composed since then

    // The cells and markers, from the latest drawing of the whole picture.
    std::optional<World> world; // the world that it shows in place of a map
    MapOrigin cells;
    MapView view;
    std::array<bool, object_kind_count> markers{};
};

} // namespace veldrune
