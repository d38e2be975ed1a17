#pragma once

#include <cstdint>
#include <vector>

namespace veldrune::demo {

/// The numbers of the layer 3 graphics that have pictures of their own; the others repeat them.
namespace layer3 {
inline constexpr int cloud_shadows = 0;
inline constexpr int fog = 1;
inline constexpr int light_shafts = 2;
inline constexpr int snow = 3;
inline constexpr int rain = 4;
inline constexpr int night_sky = 6; // the opaque one; number 5 has cloud shadows
inline constexpr int drawn_count = 7;
} // namespace layer3

/// Layer 3 graphics and the picture that they form, a pattern of 16 by 8 cells.
struct Layer3Set {
    std::vector<std::uint8_t> graphics; // 4096 bytes: 64 attributes, then characters of 16 bytes
    std::vector<std::uint8_t> pattern;  // 128 cell values: formation, + 64 and + 128 for the flips
    /// The cells of a layer of this size: the pattern repeated, with each row of patterns four
    /// cells further left than the row above.
    std::vector<std::uint8_t> cells(int width, int height) const;
};
Layer3Set draw_layer3(int number);

} // namespace veldrune::demo
