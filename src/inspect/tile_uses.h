#pragma once

#include "inspect/listing.h"
#include "inspect/reading.h"

#include <cstdint>

namespace veldrune::inspect {

/// Where a tile of a formation set stands: a row for each layer 1 or 2 of a map that shows it, with
/// the number of its cells and the first of them. Then the commands that put this tile on layer 1
/// of a map, which they do not name.
Listing list_tile_uses(const ImageReading& reading, std::uint8_t tile, int formation_set);

/// The tiles of a formation set: on how many maps and cells each stands, and how many commands put
/// it on layer 1 of some map. With unused, only those that stand nowhere.
Listing list_tiles(const ImageReading& reading, int formation_set, bool unused);

} // namespace veldrune::inspect
