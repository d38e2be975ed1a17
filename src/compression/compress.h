#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>

namespace veldrune {

/// The longest streams that the encoders make, the length field included.
inline constexpr std::size_t layer_stream_limit = 9001;
inline constexpr std::size_t world_map_stream_limit = 65535;

/// The encoders' output: the stream from its length field on.
using CompressOutput = std::array<std::uint8_t, 65537>;

/// Packs a map layer, taking at each position the longest run in the 2048 bytes before it, the
/// nearest of equally long ones. input is at most 8192 bytes. Returns the stream's length, or
/// nothing if it would exceed layer_stream_limit.
std::optional<std::size_t> compress_layer(std::span<const std::uint8_t> input,
                                          CompressOutput& output);

/// Packs a world map, taking at each position the longest run in the 2047 bytes before it, the
/// farthest of equally long ones. input is at most 65536 bytes. Returns the stream's length, or
/// nothing if it would exceed world_map_stream_limit.
std::optional<std::size_t> compress_world_map(std::span<const std::uint8_t> input,
                                              CompressOutput& output);

} // namespace veldrune
