#pragma once

#include "demo/places/demo_maps.h"

#include <cstdint>
#include <vector>

namespace veldrune::demo {

/// A complete image of 0x300200 bytes, including the copier header, with original content. It holds
/// every structure that the editor reads, all of them valid. The same seed gives the same bytes.
std::vector<std::uint8_t> make_demo_image(std::uint32_t seed = 1);

} // namespace veldrune::demo
