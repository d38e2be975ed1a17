#pragma once

#include "demo/image_writer.h"

#include <cstdint>

namespace veldrune::demo {

/// Writes the two world maps: their streams, the pointers to them, and their palettes.
void write_worlds(ImageWriter& writer, std::uint32_t seed);

} // namespace veldrune::demo
