#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace veldrune::test {

/// The encoders at their plainest: every candidate tried at every position. The stream may have any
/// length; above 65535 bytes its length field wraps.
std::vector<std::uint8_t> literal_compress_layer(std::span<const std::uint8_t> input);
std::vector<std::uint8_t> literal_compress_world_map(std::span<const std::uint8_t> input);

} // namespace veldrune::test
