// Both encoders compared with the search that tries every candidate, on the same inputs.

#include "compression/compress.h"
#include "compression/literal_encoder.h"
#include "demo/demo_image.h"
#include "sample_maps.h"
#include "support/memory_disk.h"
#include "world_map/world_map.h"
#include "world_map/worlds.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

namespace veldrune::bench {

namespace {

using Bytes = std::vector<std::uint8_t>;
using Encoder = std::optional<std::size_t>(std::span<const std::uint8_t>, CompressOutput&);
using LiteralEncoder = Bytes(std::span<const std::uint8_t>);

void ours(benchmark::State& state, Encoder* encode, const Bytes& input) {
    const auto output = std::make_unique<CompressOutput>();
    for (auto _ : state)
        benchmark::DoNotOptimize(encode(input, *output));
}

void literal(benchmark::State& state, LiteralEncoder* encode, const Bytes& input) {
    for (auto _ : state)
        benchmark::DoNotOptimize(encode(input));
}

// The input is made only when a benchmark runs, so that filtered-out benchmarks cost nothing.
void pair(const std::string& name, Encoder* encode, LiteralEncoder* reference, auto make_input) {
    using benchmark::RegisterBenchmark;
    RegisterBenchmark((name + "/ours").c_str(), [=](benchmark::State& state) {
        ours(state, encode, make_input());
    })->Unit(benchmark::kMicrosecond);
    RegisterBenchmark((name + "/literal").c_str(), [=](benchmark::State& state) {
        literal(state, reference, make_input());
    })->Unit(benchmark::kMicrosecond);
}

void families(const std::string& name, Encoder* encode, LiteralEncoder* reference,
              std::size_t size) {
    const auto repeated = [&](const std::string& family, const Bytes& pattern) {
        pair(name + family, encode, reference, [=] { return periodic(size, pattern); });
    };
    repeated("/equal", {7});
    repeated("/zeros", {0});
    repeated("/period_2", {1, 2});
    repeated("/period_3", {1, 2, 3});
    pair(name + "/random_bits", encode, reference, [=] { return random_bytes(size, 1, 1); });
    // As many bytes as fit into a stream.
    pair(name + "/random_bytes", encode, reference,
         [=] { return random_bytes(size * 7 / 8, 255, 1); });
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

[[maybe_unused]] const bool registered = [] {
    const auto layer = [](const std::string& name, auto make_input) {
        pair("compress_layer/" + name, compress_layer, test::literal_compress_layer, make_input);
    };
    const auto world = [](const std::string& name, auto make_input) {
        pair("compress_world_map/" + name, compress_world_map, test::literal_compress_world_map,
             make_input);
    };
    for (const unsigned seed : {1U, 2U, 3U}) {
        const std::string number = std::to_string(seed);
        layer("map_128x64/" + number, [=] { return sample_layer(128, 64, seed); });
        layer("map_16x16/" + number, [=] { return sample_layer(16, 16, seed); });
        world("world/" + number, [=] { return sample_world(seed); });
        world("landlocked/" + number, [=] { return sample_world(seed, 1); });
    }
    world("demo_dawn", [] { return demo_world(World::dawn); });
    world("demo_dusk", [] { return demo_world(World::dusk); });
    families("compress_layer", compress_layer, test::literal_compress_layer, 8192);
    families("compress_world_map", compress_world_map, test::literal_compress_world_map, 65536);
    return true;
}();

} // namespace

} // namespace veldrune::bench
