#pragma once

namespace veldrune {

/// The lines of the object window's lists and the captions of its options, by value.
inline constexpr const char* facing_names[] = {"Up", "Right", "Down", "Left"};
inline constexpr const char* vehicle_names[] = {"None", "Runbird", "Gearcore Armor", "Raft"};
inline constexpr const char* speed_names[] = {"Slowest", "Slow", "Fast", "Fastest"};
/// Of a chest's contents, each for a bit of the value.
inline constexpr const char* contents_kind_names[] = {"Empty", "Unknown", "Monster in a Box",
                                                      "Item", "GP"};

} // namespace veldrune
