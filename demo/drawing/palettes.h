#pragma once

#include "demo/drawing/colour_list.h"
#include "demo/drawing/pixel_art.h"

#include <array>
#include <cstdint>

namespace veldrune::demo {

/// Eight rows of 16 colours. Value 0 of a row is never drawn; row 0 holds the four rows of four
/// colours of layer 3.
using PaletteColours = std::array<Rgb, 128>;

/// The kinds of place that the demo image draws.
enum class Kind { town, forest, cave, castle, interior };
inline constexpr int kind_count = 5;
/// The moods of a kind's palette: 0 leaves it as it is, the others change it (evening, night, ...).
inline constexpr int mood_count = 9;

PaletteColours palette(Kind kind, int mood);

/// The colour in row that is most similar to that of pixel.
Pixel nearest_in_row(const PaletteColours& colours, Pixel pixel, int row);

/// 15 bits, red lowest. Never 0, which would be no pixel: black becomes the darkest blue.
std::uint16_t colour_word(Rgb colour);

} // namespace veldrune::demo
