#pragma once

#include "demo/cast.h"
#include "demo/random.h"
#include "demo/scenes.h"
#include "demo/sites.h"

namespace veldrune::demo {

/// Fills the maps from the first town on with people, chests, triggers and the ways between them.
void populate(std::span<MapObjects> maps, const Sites& sites, Scenes& scenes, Random& random);

} // namespace veldrune::demo
