#pragma once

#include "map/chosen_map.h"

#include <string>

namespace veldrune {

/// Which other maps of the image share the data of a layer, 0 to 2, of the chosen map: one sentence
/// that names them, "3, 7, 12 to 40". Empty where there are none, and before a map has been chosen.
/// Reads the records of all maps.
std::string sharing_maps(const RomImage& rom, const ChosenMap& map, int layer);

} // namespace veldrune
