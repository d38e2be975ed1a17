#pragma once

#include "demo/drawing/random.h"
#include "demo/worlds/world_land.h"

namespace veldrune::demo {

/// Lets rivers, one corner wide, run from the mountains to the sea.
void dig_rivers(Land& land, int count, Random& random);

/// Joins every place to those near it that can be reached over land and bridges, clearing woods on
/// the way.
void build_roads(Land& land);

/// Takes stretches of the roads away.
void wear_roads(Land& land);

} // namespace veldrune::demo
