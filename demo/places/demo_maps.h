#pragma once

namespace veldrune::demo {

/// Maps of the demo image with a drawn place or a special feature. From town on, the maps are
/// towns, forests, caves, halls and interiors in rotation.
namespace demo_map {
inline constexpr int town = 2;        // cloud shadows on top
inline constexpr int forest = 3;      // light shafts on top
inline constexpr int cave = 4;        // fog on top
inline constexpr int castle_hall = 5; // no layer 3
inline constexpr int interior = 6;    // no layer 3
inline constexpr int night_hall = 10; // the opaque layer 3 graphics number 6 at the bottom
inline constexpr int misty_town = 17; // layer 3 between the other layers
} // namespace demo_map

} // namespace veldrune::demo
