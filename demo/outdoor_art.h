#pragma once

#include "demo/map_canvas.h"

#include <array>

namespace veldrune::demo::outdoor {

inline constexpr int grass_variants = 12; // the last four carry flowers
inline constexpr int plain_grass = 4;     // and its mirror images up to 7

Picture draw_grass(int variant);
/// Trodden earth in grass.
Picture draw_path(Shape shape, int variant);
/// Round paving stones with a rim towards the grass.
Picture draw_paving(Shape shape, int variant);
/// Water with a bank; a tile without edges is the animated one.
Picture draw_water(Shape shape, int variant);
std::array<Picture, 4> water_frames();
/// A tile of a bridge with rails, from west to east.
Picture draw_bridge();
Picture draw_tall_grass(Shape shape, int variant);

/// 48 by 64 pixels: the crown is the upper 48, trunk and shadow the lower 24.
Picture draw_tree(int row, int variant);
Picture draw_conifer(int row);
inline constexpr int crown_height = 48;

Picture draw_bush();
Picture draw_stump();
Picture draw_rock(bool large);
Picture draw_log();

Picture draw_fountain(); // 48 by 48
Picture draw_well();     // 32 by 48
Picture draw_stall();    // 48 by 48
Picture draw_lamp();     // 16 by 32
Picture draw_sign();
Picture draw_flower_bed();
Picture draw_field(Shape shape, int variant);
Picture draw_hedge(Shape shape, int variant);
/// A drop into the dark, its far side lit.
Picture draw_pit(Shape shape, int variant);

/// A fence post with rails towards its neighbours.
Picture draw_fence(Shape shape, int variant);

/// A house front, width a multiple of 16 and 112 high: the roof is the upper 64.
struct HouseStyle {
    int row; // palette row with tiles, timber, wall and glass
    int width;
    bool timbered;
    bool gable;
    bool sign;
};
inline constexpr int house_height = 112;
Picture draw_house(const HouseStyle& style);

} // namespace veldrune::demo::outdoor
