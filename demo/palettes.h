#pragma once

#include "demo/pixel_art.h"

#include <array>
#include <cstdint>

namespace veldrune::demo {

/// Red, green and blue, 0 to 31.
struct Rgb {
    int r, g, b;
};

/// Eight rows of 16 colours. Value 0 of a row is never drawn; row 0 holds the four rows of four
/// colours of layer 3.
using PaletteColours = std::array<Rgb, 128>;

/// The kinds of place that the demo image draws.
enum class Kind { town, forest, cave, castle, interior };
inline constexpr int kind_count = 5;
/// Moods of a kind's palette: number 0 is its own, the others shift it (evening, autumn, ...).
inline constexpr int mood_count = 9;

PaletteColours palette(Kind kind, int mood);

/// The colour of row that is nearest to pixel's.
Pixel nearest_in_row(const PaletteColours& colours, Pixel pixel, int row);

/// 15 bits, red lowest. Never 0: black counts as no pixel.
std::uint16_t colour_word(Rgb colour);

// Colours that the drawing procedures name. A row is 16 times its number.
namespace outdoor {
inline constexpr Ramp grass{ink(1, 1), 5};
inline constexpr Ramp soil{ink(1, 6), 5};
inline constexpr int ground_row = 1;
inline constexpr int tree_row = 2;
inline constexpr int red_house_row = 3; // in a forest: conifers
inline constexpr int stone_row = 4;
inline constexpr int water_row = 5;
inline constexpr int blue_house_row = 6; // in a forest: trees in blossom
inline constexpr int item_row = 7;
} // namespace outdoor

} // namespace veldrune::demo
