// Any bytes as a compressed stream, compared with a decoder that keeps a real ring.

#include "compression/decompress.h"
#include "support/memory_disk.h"

#include <gtest/gtest.h>

#include <bit>
#include <random>

namespace veldrune::test {

namespace {

Bytes ring_decode(const Bytes& file, std::size_t stream, int limit) {
    const auto at = [&](std::size_t i) -> std::size_t { return i < file.size() ? file[i] : 0xFF; };
    const std::size_t capacity = static_cast<std::size_t>(limit) + 1;
    std::size_t length = at(stream) + at(stream + 1) * 256;
    if (limit != layer_output_limit && length >= 0x8000)
        length = 0;
    Bytes out;
    std::array<std::uint8_t, 2048> ring{};
    std::size_t slot = 0x7DE;
    const auto put = [&](std::size_t byte) {
        out.push_back(ring[slot++ % 2048] = static_cast<std::uint8_t>(byte));
    };
    for (std::size_t r = 2; r + 1 < length && out.size() < capacity;) {
        const std::size_t control = at(stream + r++);
        for (int bit = 0; bit < 8 && r < length && out.size() < capacity; ++bit) {
            const std::size_t a = at(stream + r++);
            if (control >> bit & 1) {
                put(a);
                continue;
            }
            const std::size_t b = at(stream + r++);
            for (std::size_t i = 0; i < b / 8 + 3 && out.size() < capacity; ++i)
                put(ring[(a + b % 8 * 256 + i) % 2048]);
        }
    }
    out.resize(capacity);
    return out;
}

// A file with a random stream: more or fewer literals, few or many values.
Bytes random_file(std::mt19937& random, std::size_t stream) {
    const std::size_t size = random() % (1U << random() % 16);
    const std::size_t literals = random() % 5; // in 4 items, on average
    const std::size_t values = 1 + random() % 256;
    Bytes file(stream);
    const std::size_t length = random() % 8 == 0 ? random() : size;
    file.push_back(static_cast<std::uint8_t>(length));
    file.push_back(static_cast<std::uint8_t>(length >> 8));
    while (file.size() < stream + size) {
        int control = 0;
        for (int bit = 0; bit < 8; ++bit)
            control |= (random() % 4 < literals) << bit;
        file.push_back(static_cast<std::uint8_t>(control));
        for (int i = std::popcount(static_cast<unsigned>(control)) - 16; i < 0; ++i)
            file.push_back(static_cast<std::uint8_t>(random() % values));
    }
    return file;
}

TEST(StreamFuzz, AnyBytesDecodeAsThroughARing) {
    const auto buffer = std::make_unique<DecompressBuffer>();
    MemoryDisk disk;
    for (unsigned seed = 0; seed < 3000 && !testing::Test::HasFailure(); ++seed) {
        std::mt19937 random(seed);
        const std::size_t stream = random() % 1000;
        disk["image"] = random_file(random, stream);
        RomImage rom(disk);
        ASSERT_TRUE(rom.open("image"));
        for (const int limit :
             {layer_output_limit, world_graphics_output_limit, world_map_output_limit}) {
            std::fill_n(buffer->output(), world_map_output_limit + 1, std::uint8_t{0x55});
            Bytes expected = ring_decode(disk["image"], stream, limit);
            expected.resize(world_map_output_limit + 1, 0x55);
            expected.insert(expected.begin(), ring_size, 0);
            decompress_stream(rom, static_cast<std::int64_t>(stream), *buffer, limit);
            EXPECT_TRUE(std::equal(expected.begin(), expected.end(), buffer->output() - ring_size))
                << "seed " << seed << ", limit " << limit;
        }
    }
}

} // namespace

} // namespace veldrune::test
