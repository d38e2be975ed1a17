#pragma once

#include "demo/map_canvas.h"

#include <array>
#include <functional>
#include <vector>

namespace veldrune::demo {

/// What the maps of one kind of place are made with.
struct Scenery {
    std::vector<std::array<Picture, 4>> animated; // four frames a tile
    /// The plan of a layout. Layout 0 is the place itself, the others are variations.
    std::function<Plan(int layout, int width, int height, Random& random)> plan;
    std::function<void(MapCanvas& canvas, const Plan& plan)> paint;
};

Scenery town_scenery(BlockTable& table);
Scenery forest_scenery(BlockTable& table);
Scenery cave_scenery(BlockTable& table);
Scenery castle_scenery(BlockTable& table);
Scenery interior_scenery(BlockTable& table);

} // namespace veldrune::demo
