#pragma once

#include "demo/pixel_art.h"

#include <array>

namespace veldrune::demo::indoor {

// Palette rows of castles and houses.
inline constexpr int floor_row = 1;
inline constexpr int carpet_row = 2;
inline constexpr int cloth_row = 3;
inline constexpr int stone_row = 4;
inline constexpr int fire_row = 5;
inline constexpr int plant_row = 6; // in a castle: coloured glass
inline constexpr int item_row = 7;

inline constexpr Ramp floor{ink(floor_row, 1), 5};
inline constexpr Ramp wall{ink(floor_row, 6), 5};
inline constexpr Ramp panel{ink(floor_row, 11), 4};
inline constexpr Pixel dark = ink(floor_row, 15);
inline constexpr Ramp carpet{ink(carpet_row, 1), 5};
inline constexpr Ramp gold{ink(carpet_row, 6), 4};
inline constexpr Ramp cloth{ink(cloth_row, 1), 5};
inline constexpr Ramp timber{ink(cloth_row, 6), 4};
inline constexpr Ramp linen{ink(cloth_row, 10), 4};
inline constexpr Ramp stone{ink(stone_row, 1), 6};
inline constexpr Ramp wood{ink(stone_row, 7), 4};
inline constexpr Ramp flame{ink(fire_row, 1), 6};
inline constexpr Ramp iron{ink(fire_row, 7), 4};
inline constexpr Ramp leaf{ink(plant_row, 1), 6};
inline constexpr Ramp clay{ink(plant_row, 7), 4};

/// A box seen from above its front: its top is top pixels deep, its front front pixels high.
void box(Picture& picture, int x, int y, int w, int top, int front, Ramp ramp);

std::array<Picture, 4> flame_frames();
Picture draw_torch(); // 16 by 32, its flame the upper half
Picture draw_hearth();
Picture draw_column();
Picture draw_banner();
Picture draw_stained_window();
Picture draw_throne();
Picture draw_armour();
Picture draw_candelabrum();
Picture draw_steps();
Picture draw_table();
Picture draw_chair();
Picture draw_bed();
Picture draw_shelf(bool books);
Picture draw_barrel();
Picture draw_crate();
Picture draw_potted_plant();
Picture draw_window();
Picture draw_painting();
Picture draw_clock();
Picture draw_chest();

} // namespace veldrune::demo::indoor
