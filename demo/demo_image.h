#pragma once

#include <cstdint>
#include <vector>

namespace veldrune::demo {

/// Maps of the demo image that show one place each.
namespace demo_map {
inline constexpr int town = 2;
inline constexpr int forest = 3;
inline constexpr int cave = 4;
inline constexpr int castle_hall = 5;
inline constexpr int interior = 6;
} // namespace demo_map

/// A whole image of 0x300200 bytes, copier header included, with every structure that the editor
/// reads present and valid, drawn and laid out by this project. The same seed gives the same bytes.
std::vector<std::uint8_t> make_demo_image(std::uint32_t seed = 1);

} // namespace veldrune::demo
