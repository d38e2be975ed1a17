#pragma once

#include "demo/assets/asset.h"
#include "demo/worlds/world_land.h"

namespace veldrune::demo {

/// Smooth noise from 0 to noise_range - 1, with a random value every size corners.
inline constexpr int noise_range = 1024;
int wave(int x, int y, int size, std::uint32_t seed);

/// Makes a world from a text of demo/assets/worlds. The seed varies coasts and edges slightly.
Land enlarge(AssetText text, std::uint32_t seed);

} // namespace veldrune::demo
