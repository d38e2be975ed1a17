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
    int layer3_order = 0; // as compose.h has it
    AnimTileTable anim_tiles{};
};

} // namespace veldrune
