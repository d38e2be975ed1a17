#pragma once

#include "demo/drawing/random.h"
#include "demo/people/cast.h"
#include "demo/people/scenes.h"
#include "demo/places/sites.h"

namespace veldrune::demo {

/// Fills the maps, from the first town on, with people, chests, triggers and entrances.
void populate(std::span<MapObjects> maps, const Sites& sites, Scenes& scenes, Random& random);

} // namespace veldrune::demo
