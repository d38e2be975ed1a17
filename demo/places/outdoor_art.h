#pragma once

#include "demo/drawing/map_canvas.h"

#include <array>

/// Pictures of the open country, its caves and its houses. All take their colours from the palette
/// rows that outdoor places share.
namespace veldrune::demo::outdoor {

// Rows, and ramps of some.
inline constexpr int ground_row = 1;
inline constexpr int tree_row = 2;
inline constexpr int red_house_row = 3; // in a forest: conifers
inline constexpr int stone_row = 4;
inline constexpr int water_row = 5;
inline constexpr int blue_house_row = 6; // in a forest: trees in blossom
inline constexpr int item_row = 7;
inline constexpr Ramp grass{ink(ground_row, 1), 5};
inline constexpr Ramp soil{ink(ground_row, 6), 5};
inline constexpr Ramp cobble{ink(stone_row, 1), 6};
inline constexpr Ramp wood{ink(stone_row, 7), 4};

// Grounds. Beyond the edge of the shape they show grass.
inline constexpr int plain_grass = 4;   // its mirror images are the next three
inline constexpr int first_flowers = 8; // and three more
Picture draw_grass(int variant);
Picture draw_path(Shape shape, int variant);
Picture draw_paving(Shape shape, int variant);
Picture draw_water(Shape shape, int variant); // a whole tile is the animated one
Picture draw_tall_grass(Shape shape, int variant);
Picture draw_field(Shape shape, int variant);
Picture draw_pit(Shape shape, int variant);
std::array<Picture, 4> water_frames();

// Hedges and fences show nothing beside them.
Picture draw_hedge(Shape shape, int variant);
Picture draw_fence(Shape shape, int variant);

/// 48 by 64 pixels: the crown is the upper 48, trunk and shadow the lower 24.
Picture draw_tree(int row, int variant);
Picture draw_conifer(int row);
Picture draw_bush();
Picture draw_stump();
Picture draw_rock(bool large);

/// A house front, width a multiple of 16 and 112 high: the roof is the upper 64.
struct HouseStyle {
    int row; // palette row with tiles, timber, wall and glass
    int width;
    bool timbered;
    bool gable;
};
Picture draw_house(const HouseStyle& style);

Picture draw_bridge(); // one tile, from west to east
Picture draw_fountain();
Picture draw_well();
Picture draw_stall();
Picture draw_lamp();
Picture draw_sign();
Picture draw_flower_bed();

} // namespace veldrune::demo::outdoor
