// Both encoders compared with the search that tries every candidate, on the same inputs; the
// decoder.

#include "compression/compress.h"
#include "compression/decompress.h"
#include "compression/literal_encoder.h"
#include "demo/demo_image.h"
#include "figures.h"
#include "sample_maps.h"
#include "support/memory_disk.h"
#include "world_map/world_map.h"
#include "world_map/worlds.h"

#include <memory>
#include <string>

namespace veldrune::bench {

namespace {

using Bytes = std::vector<std::uint8_t>;
using Encoder = std::optional<std::size_t>(std::span<const std::uint8_t>, CompressOutput&);
using LiteralEncoder = Bytes(std::span<const std::uint8_t>);

// What packs bytes, what does it by trying every candidate.
struct Pair {
    Encoder* encode;
    LiteralEncoder* literal;
};
constexpr Pair layer_pair{compress_layer, test::literal_compress_layer};
constexpr Pair world_pair{compress_world_map, test::literal_compress_world_map};

void add_pair(Figures& figures, const std::string& name, Pair pair, double times_faster,
              auto make_input) {
    figures.figures.push_back(
        {name,
         {Goal::times_faster, times_faster},
         [=]() -> Work {
             return [encode = pair.encode, input = make_input(),
                     output = std::make_shared<CompressOutput>()] { use(encode(input, *output)); };
         },
         "every candidate",
         [=]() -> Work {
             return [literal = pair.literal, input = make_input()] { use(literal(input)); };
         }});
}

// Bytes of one kind each, among which are the hardest that are known.
void add_families(Figures& figures, const std::string& name, Pair pair, std::size_t size) {
    constexpr double keep = 6.5;
    const auto repeated = [&](const std::string& family, const Bytes& pattern) {
        add_pair(figures, name + family, pair, keep, [=] { return periodic(size, pattern); });
    };
    repeated(", all equal", {7});
    repeated(", all zeros", {0});
    repeated(", period 2", {1, 2});
    repeated(", period 3", {1, 2, 3});
    add_pair(figures, name + ", random bits", pair, keep, [=] { return random_bytes(size, 1, 1); });
    // As many bytes as fit into a stream.
    add_pair(figures, name + ", random bytes", pair, keep,
             [=] { return random_bytes(size * 7 / 8, 255, 1); });
}

void add_growth(Figures& figures, const std::string& name, Encoder* encode,
                const std::vector<int>& sizes, const Bytes& input) {
    figures.growths.push_back(
        {name, sizes, [=](int size) -> Work {
             return [=, output = std::make_shared<CompressOutput>()] {
                 use(encode(std::span(input).first(static_cast<std::size_t>(size)), *output));
             };
         }});
}

// The decoder, on the stream of a world's first bytes.
Work decoding(const Bytes& input) {
    const auto packed = std::make_unique<CompressOutput>();
    const std::size_t length = compress_world_map(input, *packed).value_or(0);
    const auto disk = std::make_shared<test::MemoryDisk>();
    (*disk)["a.smc"].assign(packed->begin(), packed->begin() + static_cast<std::ptrdiff_t>(length));
    const auto rom = std::make_shared<RomImage>(*disk);
    rom->open("a.smc");
    return [=, buffer = std::make_shared<DecompressBuffer>()] {
        decompress_stream(*rom, 0, *buffer, world_map_output_limit);
        use(*disk);
    };
}

// A world map of the demo image, unpacked.
Bytes demo_world(World world) {
    static const Bytes image = demo::make_demo_image();
    test::MemoryDisk disk;
    disk["demo.smc"] = image;
    RomImage rom(disk);
    rom.open("demo.smc");
    const auto buffer = std::make_unique<DecompressBuffer>();
    const auto map = std::make_unique<WorldMap>();
    const std::int32_t pointer = rom.read_pointer24(world_row(world).map_pointer);
    read_world_map(rom, offset_of_address(pointer), *buffer, *map);
    return {map->cells.begin(), map->cells.end()};
}

} // namespace

void add_compression_figures(Figures& figures) {
    for (const unsigned seed : {1U, 2U, 3U}) {
        const std::string number = std::to_string(seed);
        add_pair(figures, "pack a layer, map-like, 128 by 64, " + number, layer_pair, 90,
                 [=] { return sample_layer(128, 64, seed); });
        add_pair(figures, "pack a layer, map-like, 16 by 16, " + number, layer_pair, 140,
                 [=] { return sample_layer(16, 16, seed); });
        add_pair(figures, "pack a world rich in sea, " + number, world_pair, 40,
                 [=] { return sample_world(seed); });
        add_pair(figures, "pack a world without sea, " + number, world_pair, 20,
                 [=] { return sample_world(seed, 1); });
    }
    add_pair(figures, "pack the demo's Dawn", world_pair, 25,
             [] { return demo_world(World::dawn); });
    add_pair(figures, "pack the demo's Dusk", world_pair, 25,
             [] { return demo_world(World::dusk); });
    add_families(figures, "pack a layer", layer_pair, 8192);
    add_families(figures, "pack a world", world_pair, 65536);
    const std::vector<int> layers{2048, 4096, 6144, 8192};
    const std::vector<int> worlds{8192, 16384, 32768, 65536};
    add_growth(figures, "pack a layer, map-like", compress_layer, layers, sample_layer(128, 64, 1));
    add_growth(figures, "pack a layer, random bits", compress_layer, layers,
               random_bytes(8192, 1, 1));
    add_growth(figures, "pack a world", compress_world_map, worlds, sample_world(1, 1));
    add_growth(figures, "pack a world, random bits", compress_world_map, worlds,
               random_bytes(65536, 1, 1));
    figures.growths.push_back({"unpack a world", worlds, [](int size) {
                                   Bytes map = sample_world(1, 1);
                                   map.resize(static_cast<std::size_t>(size));
                                   return decoding(map);
                               }});
}

} // namespace veldrune::bench
