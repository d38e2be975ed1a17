#pragma once

#include "demo/image/image_writer.h"
#include "demo/people/population.h"
#include "demo/people/scenes.h"

#include <cstdint>

namespace veldrune::demo {

/// Writes the two world maps: their streams, the pointers to them, and their palettes. Adds the
/// entrances to other maps, and the triggers on roads, to the lists of maps 0 and 1.
void write_worlds(ImageWriter& writer, std::uint32_t seed, std::span<MapObjects> maps,
                  const Sites& sites, Scenes& scenes);

} // namespace veldrune::demo
