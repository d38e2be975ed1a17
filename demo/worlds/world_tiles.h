#pragma once

#include "demo/drawing/palettes.h"
#include "demo/worlds/world_land.h"
#include "world_map/worlds.h"

namespace veldrune::demo {

/// The 16 rows of 16 colours of a world; the first eight are its own.
using WorldColours = std::array<Rgb, 256>;
WorldColours world_colours(World world);

/// The number of the tile at (x, y).
std::uint8_t tile_number(const Land& land, int x, int y);

/// The graphics block of a world: tile table, characters and their palette rows.
std::vector<std::uint8_t> world_graphics(World world);

} // namespace veldrune::demo
