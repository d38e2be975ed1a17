#pragma once

#include "inspect/listing.h"
#include "inspect/reading.h"

#include <string>
#include <vector>

namespace veldrune::inspect {

/// A line a map: sizes, tilesets, palette, layer offsets and stream sizes, song, objects of each
/// kind; names, one a map, where there are any.
Listing list_maps(const ImageReading& reading, const std::vector<std::string>& names);

/// Everything about one map, 0 to 413: its values, which maps share its streams, its exits, and the
/// entrances and scripts that lead here. A script's exit belongs to the maps of its objects.
Listing list_map(const ImageReading& reading, int map);

} // namespace veldrune::inspect
