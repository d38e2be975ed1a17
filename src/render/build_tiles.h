#pragma once

#include "map/chosen_map.h"
#include "render/compose.h"

namespace veldrune {

/// The numbers of the parts that a map's tiles are made of, each at least 0.
struct TileNumbers {
    int animated_tileset = 0;
    int layer3_graphics = 0;
    TilesetNumbers tilesets{};
    int palette = 0;
    std::array<int, 2> formations{}; // sets of layers 1 and 2
    bool operator==(const TileNumbers&) const = default;
};

/// The numbers in a map's record.
TileNumbers tile_numbers(const MapProperties& record);

/// Reads palette, graphics and formations, and decodes them to bitmaps. anim_tiles is used as it
/// is, whatever the number of the animated tileset. A number beyond its table gives wrong tiles;
/// the characters of a tileset number beyond its table are empty.
void build_tiles(const RomImage& rom, const TileNumbers& numbers, const AnimTileTable& anim_tiles,
                 DecompressBuffer& buffer, FormationBitmaps& bitmaps);

/// The view of a map in the sizes of its record, from its top left corner, with all layers shown.
/// cells_across is 4, 8, 16 or 32. The view points to the layers of map, which must outlive it.
MapView record_view(const ChosenMap& map, int cells_across);

} // namespace veldrune
