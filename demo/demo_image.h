#pragma once

#include "demo/places/demo_maps.h"

#include <cstdint>
#include <vector>

namespace veldrune::demo {

/// A whole image of 0x300200 bytes, copier header included, with every structure that the editor
/// reads present and valid, drawn and laid out by this project. The same seed gives the same bytes.
std::vector<std::uint8_t> make_demo_image(std::uint32_t seed = 1);

} // namespace veldrune::demo
