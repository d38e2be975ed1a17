#pragma once

#include "demo/drawing/plan.h"
#include "demo/drawing/random.h"

namespace veldrune::demo {

/// Plans by rule. The layout decides about details, such as which trees grow.
Plan village_plan(int layout, int width, int height, Random& random);
Plan woodland_plan(int layout, int width, int height, Random& random);
Plan cavern_plan(int layout, int width, int height, Random& random);

/// Furniture that a room may have: where it stands and how much room it needs.
struct Furnishing {
    char letter;
    int width;    // tiles
    bool by_wall; // along the upper wall, else in the room
};
/// Rooms in a grid, joined by doorways.
Plan rooms_plan(int width, int height, int wall_height, std::span<const Furnishing> furniture,
                Random& random);

} // namespace veldrune::demo
