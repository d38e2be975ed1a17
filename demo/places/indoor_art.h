#pragma once

#include "demo/drawing/pixel_art.h"

#include <array>

/// Pictures of halls and houses.
namespace veldrune::demo::indoor {

inline constexpr Ramp floor{ink(1, 1), 5};
inline constexpr Ramp wall{ink(1, 6), 5};
inline constexpr Ramp panel{ink(1, 11), 4};
inline constexpr Ramp carpet{ink(2, 1), 5};
inline constexpr Ramp gold{ink(2, 6), 4};
inline constexpr Ramp cloth{ink(3, 1), 5};
inline constexpr Ramp timber{ink(3, 6), 4};
inline constexpr Ramp linen{ink(3, 10), 4};
inline constexpr Ramp stone{ink(4, 1), 6};
inline constexpr Ramp wood{ink(4, 7), 4};
inline constexpr Ramp flame{ink(5, 1), 6};
inline constexpr Ramp iron{ink(5, 7), 4};
inline constexpr int plant_row = 6; // in a castle: coloured glass
inline constexpr int item_row = 7;

std::array<Picture, 4> flame_frames();
// Halls.
Picture draw_torch(); // its flame is the upper half
Picture draw_column();
Picture draw_banner();
Picture draw_stained_window();
Picture draw_throne();
Picture draw_armour();
Picture draw_candelabrum();
// Houses.
Picture draw_hearth();
Picture draw_table();
Picture draw_chair();
Picture draw_bed();
Picture draw_bookshelf();
Picture draw_jar_shelf();
Picture draw_barrel();
Picture draw_crate();
Picture draw_potted_plant();
Picture draw_window();
Picture draw_painting();
Picture draw_clock();
Picture draw_chest();

} // namespace veldrune::demo::indoor
