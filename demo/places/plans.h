#pragma once

#include "demo/drawing/plan.h"
#include "demo/drawing/random.h"

namespace veldrune::demo {

/// Generated plans. The layout number determines details, such as the kinds of trees.
Plan village_plan(int layout, int width, int height, Random& random);
Plan woodland_plan(int layout, int width, int height, Random& random);
Plan cavern_plan(int layout, int width, int height, Random& random);

/// A piece of furniture that a room may have.
struct Furnishing {
    char letter;
    int width;    // tiles
    bool by_wall; // along the upper wall, else in the room
};
/// Rooms in a grid, connected by doorways.
Plan rooms_plan(int width, int height, int wall_height, std::span<const Furnishing> furniture,
                Random& random);

} // namespace veldrune::demo
