#pragma once

#include "demo/assets/pictures/outdoors.h"
#include "demo/drawing/plan.h"

/// The grounds of outdoor places, in the palette rows that these share.
namespace veldrune::demo::outdoor {

// Palette rows, and ramps in them.
inline constexpr int ground_row = 1;
inline constexpr int stone_row = 4;
inline constexpr int water_row = 5;
inline constexpr int blue_house_row = 6; // also of trees in blossom, in forests
inline constexpr Ramp grass{ink(ground_row, 1), 5};
inline constexpr Ramp soil{ink(ground_row, 6), 5};
inline constexpr Ramp cobble{ink(stone_row, 1), 6};

consteval DrawnPicture outdoor_picture(std::string_view name) {
    return picture(assets::outdoors, name);
}
inline constexpr std::array meadow =
    pictures<8>(assets::outdoors, "grass"); // number 4 is the plainest
inline constexpr std::array water = pictures<4>(assets::outdoors, "water"); // animated

// Outside the shape they draw grass.
Picture draw_path(Shape shape, int variant);
Picture draw_paving(Shape shape, int variant);
Picture draw_water(Shape shape, int variant); // a full tile is the first frame of the animated one
Picture draw_tall_grass(Shape shape, int variant);
Picture draw_field(Shape shape, int variant);
Picture draw_pit(Shape shape, int variant);

} // namespace veldrune::demo::outdoor
