#include "compression/compress.h"
#include "compression/decompress.h"
#include "compression/literal_encoder.h"
#include "support/memory_disk.h"

#include <gtest/gtest.h>

#include <random>

namespace veldrune::test {

namespace {

/// No three bytes of it stand twice within a window, so that it takes a byte for each and one for
/// every eight.
Bytes incompressible(std::size_t size) {
    Bytes bytes(size);
    for (std::size_t i = 0; i < size; ++i)
        bytes[i] = static_cast<std::uint8_t>(i % 2 == 0 ? i / 2 : 128 + i / 512);
    return bytes;
}

/// New bytes from an alphabet of any size mixed with copies from near, far and the window's edge,
/// some of them from the zeros before the start.
Bytes random_input(std::mt19937& random, std::size_t size) {
    const unsigned alphabet = 1U << random() % 9;
    const unsigned new_share = 1 + random() % 16;
    Bytes bytes;
    while (bytes.size() < size) {
        const std::size_t distances[] = {1, 2, 3, 1 + random() % 2100, 2046 + random() % 4};
        const std::size_t distance = distances[random() % 5];
        const std::size_t length = random() % 16 < new_share ? 0 : 2 + random() % 36;
        for (std::size_t i = 0; i < length; ++i)
            bytes.push_back(distance <= bytes.size() ? bytes[bytes.size() - distance] : 0);
        bytes.push_back(static_cast<std::uint8_t>(random() % alphabet));
    }
    bytes.resize(size);
    return bytes;
}

struct Compression : testing::Test {
    std::unique_ptr<CompressOutput> output = std::make_unique<CompressOutput>();
    std::unique_ptr<DecompressBuffer> buffer = std::make_unique<DecompressBuffer>();
    MemoryDisk disk;

    /// The stream; nothing where the encoder refuses.
    Bytes stream(std::optional<std::size_t> length) const {
        return Bytes(output->begin(), output->begin() + static_cast<int>(length.value_or(0)));
    }
    Bytes layer(const Bytes& input) { return stream(compress_layer(input, *output)); }
    Bytes world_map(const Bytes& input) { return stream(compress_world_map(input, *output)); }

    void expect_literal_streams(const Bytes& input) {
        const Bytes layer_stream = literal_compress_layer(input);
        const Bytes world_stream = literal_compress_world_map(input);
        EXPECT_EQ(layer(input), layer_stream.size() <= 9001 ? layer_stream : Bytes{});
        EXPECT_EQ(world_map(input), world_stream.size() <= 65535 ? world_stream : Bytes{});
        expect_decodes_to(input, layer_stream);
        expect_decodes_to(input, world_stream);
    }
    /// The input and nothing but zeros behind it, however far the last run reaches.
    void expect_decodes_to(Bytes input, const Bytes& packed) {
        const int limit = input.size() > 8192 ? world_map_output_limit : layer_output_limit;
        if (packed.size() >= 0x8000)
            return;
        disk["image"] = packed;
        RomImage rom(disk);
        ASSERT_TRUE(rom.open("image"));
        decompress_stream(rom, 0, *buffer, limit);
        input.resize(static_cast<std::size_t>(limit) + 1);
        EXPECT_TRUE(std::ranges::equal(input, std::span(buffer->output(), input.size())));
    }
};

TEST_F(Compression, WritesKnownStreams) {
    const struct {
        Bytes input;
        const char* as_layer;
        const char* as_world_map;
    } rows[] = {
        {{}, "03 00 00", "03 00 00"},
        {Bytes(256, 0), "13 00 00 DD FF FF FF 21 F8 43 F8 65 F8 87 F8 A9 F8 CB F8",
         "13 00 00 DF FF 01 F8 23 F8 45 F8 67 F8 89 F8 AB F8 CD F8"},
        {Bytes(34, 0), "05 00 00 DD FF", "05 00 00 DF FF"},
        {Bytes(34, 7), "06 00 01 07 DE F7", "06 00 01 07 DE F7"},
        {hex_bytes("1 2 3 4 1 2 3 4 1 2 3 4 5"), "0A 00 2F 01 02 03 04 DE 2F 05",
         "0A 00 2F 01 02 03 04 DE 2F 05"},
        // Two runs of equal length: the nearer and the farther one.
        {hex_bytes("A B C 1 A B C 2 A B C"), "0C 00 2F 0A 0B 0C 01 DE 07 02 E2 07",
         "0C 00 2F 0A 0B 0C 01 DE 07 02 DE 07"},
        // A full group has no control byte behind it before a ninth item comes.
        {hex_bytes("1 2 3 4 5 6 7 8"), "0B 00 FF 01 02 03 04 05 06 07 08",
         "0B 00 FF 01 02 03 04 05 06 07 08"},
        {hex_bytes("1 2 3 4 5 6 7 8 9"), "0D 00 FF 01 02 03 04 05 06 07 08 01 09",
         "0D 00 FF 01 02 03 04 05 06 07 08 01 09"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(layer(row.input), hex_bytes(row.as_layer));
        EXPECT_EQ(world_map(row.input), hex_bytes(row.as_world_map));
    }
}

TEST_F(Compression, OnlyLayersReach2048BytesBack) {
    Bytes input(2051, 9);
    for (std::size_t at = 0; at < 3; ++at)
        input[at] = input[2048 + at] = static_cast<std::uint8_t>(1 + at);
    const Bytes as_layer = layer(input);
    EXPECT_EQ(Bytes(as_layer.end() - 2, as_layer.end()), hex_bytes("DE 07"));
    const Bytes as_world = world_map(input);
    EXPECT_EQ(Bytes(as_world.end() - 3, as_world.end()), hex_bytes("01 02 03"));
}

TEST_F(Compression, RefusesWhatItsBufferOrLengthFieldCannotHold) {
    EXPECT_EQ(compress_layer(incompressible(7999), *output), layer_stream_limit);
    EXPECT_EQ(compress_layer(incompressible(8000), *output), std::nullopt);
    EXPECT_EQ(compress_layer(incompressible(8192), *output), std::nullopt);
    EXPECT_EQ(compress_world_map(incompressible(58251), *output), world_map_stream_limit);
    EXPECT_EQ(compress_world_map(incompressible(58252), *output), std::nullopt);
    EXPECT_EQ(compress_world_map(incompressible(65536), *output), std::nullopt);
    // A full last group and one byte left: too little for another control byte and an item.
    Bytes zeros_first = incompressible(58245);
    zeros_first.insert(zeros_first.begin(), 3 * longest_run, 0);
    EXPECT_EQ(compress_world_map(zeros_first, *output), 65534);
    zeros_first.push_back(1);
    EXPECT_EQ(compress_world_map(zeros_first, *output), std::nullopt);
}

TEST_F(Compression, GivesWhatTryingEveryCandidateGives) {
    std::mt19937 random(1);
    for (int n = 0; n < 20000 && !HasFailure(); ++n)
        expect_literal_streams(random_input(random, random() % (1U << random() % 10)));
    for (int n = 0; n < 30 && !HasFailure(); ++n)
        expect_literal_streams(random_input(random, 2000 + random() % 6193));
    // Where the search moves on to its next stretch: runs around it, and one as far back as it
    // goes.
    for (std::size_t size = 16352; size < 16422 && !HasFailure(); size += 2)
        expect_literal_streams(random_input(random, size));
    for (int n = 0; n < 10 && !HasFailure(); ++n)
        expect_literal_streams(random_input(random, 65536 - random() % 40000));
    Bytes far_run = incompressible(17000);
    std::copy_n(far_run.begin() + 16384 - 2047, longest_run, far_run.begin() + 16384);
    expect_literal_streams(far_run);
    expect_literal_streams(Bytes(65536, 0));
    expect_literal_streams(incompressible(65536));
}

} // namespace

} // namespace veldrune::test
