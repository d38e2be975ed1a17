#pragma once

#include "rom/rom_image.h"

#include <array>
#include <cstdint>

namespace veldrune {

/// The ring that streams refer to: 2048 bytes, zero at the start, written from slot 0x7DE on.
inline constexpr int ring_size = 2048;
inline constexpr int ring_start = 0x7DE;
inline constexpr int shortest_run = 3;
inline constexpr int longest_run = 34;

/// The highest output index that each of the three decoders may write.
inline constexpr int layer_output_limit = 8192; // layers, formation sets, layer 3 graphics
inline constexpr int world_graphics_output_limit = 16384;
inline constexpr int world_map_output_limit = 65536;

/// The longest stream that the decoders of the world maps accept: their length is a signed word.
inline constexpr int max_world_stream_bytes = 0x7FFF;

/// The decoder's linear output, with a guard below index 0 that always reads as zero.
class DecompressBuffer {
  public:
    /// Output bytes from index 0 on; indices -ring_size to world_map_output_limit may be read.
    std::uint8_t* output() { return bytes_.data() + ring_size; }
    const std::uint8_t* output() const { return bytes_.data() + ring_size; }

  private:
    std::array<std::uint8_t, ring_size + world_map_output_limit + 1> bytes_{};
};

/// Decodes the stream whose length field is at file offset stream_offset into buffer, from index 0
/// to output_limit at most, which is one of the three limits above. Indices that the stream does
/// not reach are zero up to output_limit; a stream longer than its decoder accepts leaves all of
/// them zero. A damaged stream gives wrong bytes and does no other harm. Returns how many bytes the
/// stream made.
int decompress_stream(const RomImage& rom, std::int64_t stream_offset, DecompressBuffer& buffer,
                      int output_limit);

} // namespace veldrune
