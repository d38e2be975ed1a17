#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace veldrune::bench {

/// Maps that look hand-drawn, row by row, one byte per tile. The same seed gives the same map.

/// Grass in a few variants, ponds with shores, paths, woods of 2 by 3 tile trees and houses.
std::vector<std::uint8_t> sample_layer(int width, int height, unsigned seed);

/// 256 by 256 tiles, sea all around: coasts, plains with woods, hills and mountains with their
/// edges. A rise of 0 leaves half of it sea, 1 next to no sea inland.
std::vector<std::uint8_t> sample_world(unsigned seed, float rise = 0);

/// pattern, repeated to size bytes.
std::vector<std::uint8_t> periodic(std::size_t size, const std::vector<std::uint8_t>& pattern);

/// Independent bytes from 0 to largest.
std::vector<std::uint8_t> random_bytes(std::size_t size, int largest, unsigned seed);

} // namespace veldrune::bench
