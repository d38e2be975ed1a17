#include "demo/worlds/world_image.h"

#include "compression/compress.h"
#include "demo/assets/worlds/dawn.h"
#include "demo/assets/worlds/dusk.h"
#include "demo/worlds/enlarge_sketch.h"
#include "demo/worlds/world_tiles.h"
#include "world_map/world_map.h"
#include "world_map/worlds.h"

#include <algorithm>
#include <memory>
#include <stdexcept>

namespace veldrune::demo {
namespace {

constexpr std::int32_t streams_start = 0x2EB600;
constexpr std::int32_t streams_end = 0x300000;
constexpr std::int32_t spare = 0x400; // free bytes after every stream, so that it can grow

// Writes streams, with spare bytes after each, and the pointers to them.
class StreamArea {
  public:
    explicit StreamArea(ImageWriter& writer) : writer_(writer) {}
    void add(std::int32_t pointer, std::span<const std::uint8_t> bytes) {
        const auto stream = std::make_unique<CompressOutput>();
        const auto size = compress_world_map(bytes, *stream);
        if (!size || *size > max_world_stream_bytes ||
            next_ + static_cast<std::int32_t>(*size) > streams_end)
            throw std::length_error("a world of the demo image does not pack");
        writer_.put(next_, std::span(*stream).first(*size));
        writer_.put_pointer(pointer, static_cast<std::int32_t>(address_of_offset(next_)));
        next_ += static_cast<std::int32_t>(*size) + spare;
    }

  private:
    ImageWriter& writer_;
    std::int32_t next_ = streams_start;
};

Bytes tile_numbers(const Land& land) {
    Bytes numbers;
    for (int y = 0; y < world_tiles; ++y)
        for (int x = 0; x < world_tiles; ++x)
            numbers.push_back(tile_number(land, x, y));
    return numbers;
}

void write_palette(ImageWriter& writer, std::int32_t offset, World world) {
    const WorldColours colours = world_colours(world);
    for (int i = 0; i < 256; ++i)
        writer.put_word(offset + 2 * i, colour_word(colours[static_cast<std::size_t>(i)]));
}

void write_world(ImageWriter& writer, StreamArea& streams, World world, const Land& land) {
    const WorldRow& row = world_row(world);
    streams.add(row.graphics_pointer, world_graphics(world));
    streams.add(row.map_pointer, tile_numbers(land));
    write_palette(writer, row.palette, world); // Dusk's palette begins in the middle of Dawn's
}

Kind kind_inside(Feature feature) {
    return feature == Feature::castle  ? Kind::castle
           : feature < Feature::castle ? Kind::town
                                       : Kind::cave;
}

// Every place gets an entrance to a map of its kind, each in another region from first_region on.
void add_entrances(const Land& land, int first_region, const Sites& sites, MapObjects& objects) {
    constexpr int regions = (rom_layout::map_count - demo_map::town) / kind_count;
    int region = first_region;
    for (const Place& place : land.places) {
        const Feature feature = land.feature(place.x, place.y);
        const int map = demo_map::town + kind_count * (region++ % regions) +
                        static_cast<int>(kind_inside(feature));
        const Place landing = site_of(sites, map).edge(Facing::down).landing;
        const int gates = feature == Feature::castle ? 2 : 1; // a castle's are in its lower row
        for (int gate = 0; gate < gates; ++gate)
            objects.entrances.push_back(
                {place.x + gate, place.y + gates - 1, map, landing.x, landing.y});
    }
}

// Puts triggers on roads, at some distance from each other.
void add_road_events(const Land& land, int world, Scenes& scenes, MapObjects& objects) {
    constexpr int distance = 10; // tiles
    int number = 0;
    for (const Place& at : land.roads)
        if (std::ranges::none_of(objects.triggers, [&](const Trigger& other) {
                return std::max(std::abs(at.x - other.x), std::abs(at.y - other.y)) < distance;
            }))
            objects.triggers.push_back({at.x, at.y, scenes.script_of(Role::sign, world, number++)});
}

} // namespace

void write_worlds(ImageWriter& writer, std::uint32_t seed, std::span<MapObjects> maps,
                  const Sites& sites, Scenes& scenes) {
    constexpr int first_regions[] = {0, 40};
    StreamArea streams(writer);
    const Land lands[] = {enlarge(assets::dawn, seed), enlarge(assets::dusk, seed)};
    for (const World world : {World::dawn, World::dusk}) {
        const auto number = static_cast<std::size_t>(world);
        const int map = world_row(world).map;
        MapObjects& objects = maps[static_cast<std::size_t>(map)];
        write_world(writer, streams, world, lands[number]);
        add_entrances(lands[number], first_regions[number], sites, objects);
        add_road_events(lands[number], map, scenes, objects);
    }
}

} // namespace veldrune::demo
