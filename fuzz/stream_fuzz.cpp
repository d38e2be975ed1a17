// Any bytes as a compressed stream, compared with a decoder that keeps a real ring.

#include "compression/decompress.h"
#include "fuzz_target.h"
#include "support/memory_disk.h"

#include <bit>

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
Bytes random_file(Choices& choices, std::size_t stream) {
    const auto below = [&](int limit) { return static_cast<std::size_t>(choices.below(limit)); };
    const std::size_t size = below(1 << below(16));
    const std::size_t literals = below(5); // in 4 items, on average
    const int values = 1 + choices.below(256);
    Bytes file(stream);
    const std::size_t length = choices.one_in(8) ? below(0x10000) : size;
    file.push_back(static_cast<std::uint8_t>(length));
    file.push_back(static_cast<std::uint8_t>(length >> 8));
    while (file.size() < stream + size) {
        int control = 0;
        for (int bit = 0; bit < 8; ++bit)
            control |= (below(4) < literals) << bit;
        file.push_back(static_cast<std::uint8_t>(control));
        for (int i = std::popcount(static_cast<unsigned>(control)) - 16; i < 0; ++i)
            file.push_back(static_cast<std::uint8_t>(below(values)));
    }
    return file;
}

void expect_as_through_a_ring(const RomImage& rom, const Bytes& file, std::size_t stream, int limit,
                              DecompressBuffer& buffer) {
    std::fill_n(buffer.output(), world_map_output_limit + 1, std::uint8_t{0x55});
    Bytes expected = ring_decode(file, stream, limit);
    expected.resize(world_map_output_limit + 1, 0x55);
    expected.insert(expected.begin(), ring_size, 0);
    decompress_stream(rom, static_cast<std::int64_t>(stream), buffer, limit);
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), buffer.output() - ring_size))
        << "limit " << limit;
}

void stream_fuzz(Choices& choices) {
    static const auto buffer = std::make_unique<DecompressBuffer>();
    const auto stream = static_cast<std::size_t>(choices.below(1000));
    MemoryDisk disk;
    const Bytes file = disk["image"] = random_file(choices, stream);
    RomImage rom(disk);
    ASSERT_TRUE(rom.open("image"));
    for (const int limit :
         {layer_output_limit, world_graphics_output_limit, world_map_output_limit})
        expect_as_through_a_ring(rom, file, stream, limit, *buffer);
}

} // namespace

} // namespace veldrune::test

FUZZ_TARGET(stream_fuzz, 3000)
