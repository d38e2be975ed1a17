#pragma once

#include "map/layer_map.h"
#include "map/map_properties.h"
#include "map/tile_sources.h"

#include <array>
#include <optional>

namespace veldrune {

/// The chosen map in memory.
struct ChosenMap {
    int map_index = 0;
    std::optional<ImageSource> source; // nothing before the first choice
    MapProperties map_properties{};    // the record in memory, as chosen, pasted or last saved
    MapProperties record_at_load{};    // the record as the image held it when the map was chosen
    std::array<Layer, layer_count> layers;
    bool unsaved_painting = false; // on the layers
    int layer3_order = 0;          // 0 at the bottom, 1 right above layer 2's low tiles, 2 on top
    AnimTileTable anim_tiles{};
};

/// Loads a map, 0 to 413, from its record: the layers in the sizes given there, and all entries of
/// the animated tiles. Cells outside a layer keep what they held.
void load_map(const RomImage& rom, int map_index, DecompressBuffer& buffer, ChosenMap& map);

/// The animated tileset whose later frames a map is loaded with: four bits of byte 27, of which the
/// field and the build take five.
int later_frame_set(const MapProperties& record);

/// The size of a layer, 0 to 2, by the record.
LayerSize layer_size(const MapProperties& record, int layer);

} // namespace veldrune
