#include "demo/world_image.h"

#include "compression/compress.h"
#include "demo/world_art.h"
#include "demo/world_land.h"
#include "world_map/world_map.h"
#include "world_map/worlds.h"

#include <memory>
#include <stdexcept>

namespace veldrune::demo {
namespace {

constexpr std::int32_t streams_start = 0x2EB600;
constexpr std::int32_t streams_end = 0x300000;

/// Streams one after the other, and the pointers to them.
class StreamArea {
  public:
    explicit StreamArea(ImageWriter& writer) : writer_(writer) {}
    void add(std::int32_t pointer, std::span<const std::uint8_t> bytes) {
        const auto stream = std::make_unique<CompressOutput>();
        const auto size = compress_world_map(bytes, *stream);
        if (!size || *size > longest_world_stream ||
            next_ + static_cast<std::int32_t>(*size) > streams_end)
            throw std::length_error("a world of the demo image does not pack");
        writer_.put(next_, std::span(*stream).first(*size));
        writer_.put_pointer(pointer, static_cast<std::int32_t>(address_of_offset(next_)));
        next_ += static_cast<std::int32_t>(*size);
    }

  private:
    ImageWriter& writer_;
    std::int32_t next_ = streams_start;
};

Bytes tile_numbers(const Land& land, const WorldTiles& tiles) {
    Bytes numbers;
    for (int y = 0; y < world_tiles; ++y)
        for (int x = 0; x < world_tiles; ++x)
            numbers.push_back(tiles.number_at(land, x, y));
    return numbers;
}

void write_palette(ImageWriter& writer, std::int32_t offset, Age age) {
    const WorldColours colours = world_colours(age);
    for (int i = 0; i < 256; ++i)
        writer.put_word(offset + 2 * i, colour_word(colours[static_cast<std::size_t>(i)]));
}

void write_world(ImageWriter& writer, StreamArea& streams, const WorldRow& row, Age age,
                 const Land& land) {
    const WorldTiles tiles(age);
    streams.add(row.graphics_pointer, tiles.graphics());
    streams.add(row.map_pointer, tile_numbers(land, tiles));
    write_palette(writer, row.palette, age); // Dusk's begins in the middle of Dawn's
}

} // namespace

void write_worlds(ImageWriter& writer, std::uint32_t seed) {
    StreamArea streams(writer);
    const Land dawn = make_dawn(seed);
    write_world(writer, streams, world_row(World::dawn), Age::dawn, dawn);
    write_world(writer, streams, world_row(World::dusk), Age::dusk, make_dusk(seed, dawn));
}

} // namespace veldrune::demo
