#pragma once

#include "objects/object_tables.h"
#include "render/build_tiles.h"
#include "render/compose.h"
#include "world_map/worlds.h"

#include <array>
#include <optional>

namespace veldrune {

/// A map of an image.
struct MapOrigin {
    std::optional<ImageSource> source; // nothing where the disk has refused a read
    int map_index = -1;
};

/// By kind of object, whether its markers are drawn.
using MarkerKinds = std::array<bool, object_kind_count>;

/// Cells of the view: columns from left to right - 1, rows from top to bottom - 1.
struct CellArea {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    bool is_empty() const { return left >= right || top >= bottom; }
};

/// The strips that scrolls have drawn, one after the other, from the same map.
struct DrawnStrips {
    MapOrigin cells;
    MapView view;
    MarkerKinds markers{};
    CellArea rest; // of the former picture; empty where there are no strips
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
    MarkerKinds markers{};

    // What scrolls have drawn since then.
    DrawnStrips strips;
    bool strips_differ = false; // some were not drawn as the whole picture was
};

/// Whether both are the same image, or none.
bool same_image(const std::optional<ImageSource>& a, const std::optional<ImageSource>& b);
/// Whether both are the same map of the same image.
bool same_map(const MapOrigin& a, const MapOrigin& b);
/// Whether two views show the layers alike, wherever they stand.
bool same_layers(const MapView& a, const MapView& b);

/// After a drawing of the whole picture, before that of its markers.
void remember_whole(PictureOrigin& origin, const MapOrigin& cells, const MapView& view);
/// After a scroll by so many columns and rows that has drawn the strip it uncovered, before the
/// drawing of these markers. Strips that have replaced the whole picture count as its drawing.
void remember_strip(PictureOrigin& origin, const MapOrigin& cells, const MapView& view,
                    const MarkerKinds& markers, int columns, int rows);
/// After a drawing of a world in place of a map.
void remember_world(PictureOrigin& origin, World world);

} // namespace veldrune
