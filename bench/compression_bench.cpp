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

/// Both encoders beside the search that tries every candidate, on the same inputs.
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

void pair(const std::string& name, Encoder* encode, LiteralEncoder* reference, const Bytes& input) {
    using benchmark::RegisterBenchmark;
    RegisterBenchmark((name + "/ours").c_str(), [=](benchmark::State& state) {
        ours(state, encode, input);
    })->Unit(benchmark::kMicrosecond);
    RegisterBenchmark((name + "/literal").c_str(), [=](benchmark::State& state) {
        literal(state, reference, input);
    })->Unit(benchmark::kMicrosecond);
}

void families(const std::string& name, Encoder* encode, LiteralEncoder* reference,
              std::size_t size) {
    pair(name + "/equal", encode, reference, periodic(size, {7}));
    pair(name + "/zeros", encode, reference, periodic(size, {0}));
    pair(name + "/period_2", encode, reference, periodic(size, {1, 2}));
    pair(name + "/period_3", encode, reference, periodic(size, {1, 2, 3}));
    pair(name + "/random_bits", encode, reference, random_bytes(size, 1, 1));
    // As much as fits into a stream.
    pair(name + "/random_bytes", encode, reference, random_bytes(size * 7 / 8, 255, 1));
}

/// The demo image's world maps, unpacked.
std::vector<std::pair<std::string, Bytes>> demo_worlds() {
    test::MemoryDisk disk;
    disk["demo.smc"] = demo::make_demo_image();
    RomImage rom(disk);
    rom.open("demo.smc");
    const auto buffer = std::make_unique<DecompressBuffer>();
    std::vector<std::pair<std::string, Bytes>> worlds;
    for (const auto& [name, world] : {std::pair{"dawn", World::dawn}, {"dusk", World::dusk}}) {
        WorldMap map;
        const std::int32_t pointer = rom.read_pointer24(world_row(world).map_pointer);
        read_world_map(rom, offset_of_address(pointer), *buffer, map);
        worlds.emplace_back(name, Bytes(map.cells.begin(), map.cells.end()));
    }
    return worlds;
}

[[maybe_unused]] const bool registered = [] {
    for (const unsigned seed : {1U, 2U, 3U}) {
        const std::string number = std::to_string(seed);
        pair("compress_layer/map_128x64/" + number, compress_layer, test::literal_compress_layer,
             sample_layer(128, 64, seed));
        pair("compress_layer/map_16x16/" + number, compress_layer, test::literal_compress_layer,
             sample_layer(16, 16, seed));
        pair("compress_world_map/world/" + number, compress_world_map,
             test::literal_compress_world_map, sample_world(seed));
        pair("compress_world_map/landlocked/" + number, compress_world_map,
             test::literal_compress_world_map, sample_world(seed, 1));
    }
    for (const auto& [name, tiles] : demo_worlds())
        pair("compress_world_map/demo_" + name, compress_world_map,
             test::literal_compress_world_map, tiles);
    families("compress_layer", compress_layer, test::literal_compress_layer, 8192);
    families("compress_world_map", compress_world_map, test::literal_compress_world_map, 65536);
    return true;
}();

} // namespace

} // namespace veldrune::bench
