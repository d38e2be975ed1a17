#pragma once

#include "demo/cast.h"
#include "demo/random.h"
#include "demo/sites.h"

#include <functional>

namespace veldrune::demo {

/// Where the script of the nth object of a part on a map begins, from the first script on.
using ScriptOf = std::function<int(Part part, int map, int nth)>;

/// Fills the maps from the first town on with people, chests, triggers and the ways between them.
void populate(std::span<MapObjects> maps, const Sites& sites, const ScriptOf& script_of,
              Random& random);

} // namespace veldrune::demo
