#pragma once

namespace veldrune::demo {

/// Maps of the demo image that show one place each or something special. All the maps from town on
/// are towns, forests, caves, halls and interiors in turn.
namespace demo_map {
inline constexpr int town = 2;        // clouds cast shadows on it from on top
inline constexpr int forest = 3;      // with light shafts on top
inline constexpr int cave = 4;        // with fog on top
inline constexpr int castle_hall = 5; // has no layer 3
inline constexpr int interior = 6;    // has no layer 3
inline constexpr int night_hall = 10; // the opaque layer 3 graphics number 6 at the bottom
inline constexpr int misty_town = 17; // layer 3 between the other layers
} // namespace demo_map

} // namespace veldrune::demo
