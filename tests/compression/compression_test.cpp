#include "compression/compress.h"
#include "compression/decompress.h"
#include "compression/literal_encoder.h"
#include "support/memory_disk.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

// No three bytes of it come twice within a window, so that it takes a byte for each and one for
// every eight.
Bytes incompressible(std::size_t size) {
    Bytes bytes(size);
    for (std::size_t i = 0; i < size; ++i)
        bytes[i] = static_cast<std::uint8_t>(i % 2 == 0 ? i / 2 : 128 + i / 512);
    return bytes;
}

// New bytes from an alphabet of any size mixed with copies from near, far and the window's edge,
// some of them from the zeros before the start.
Bytes random_input(Random& random, int size) {
    const int alphabet = 1 << random.below(9), new_share = 1 + random.below(16);
    Bytes bytes;
    while (bytes.size() < static_cast<std::size_t>(size)) {
        const int distances[] = {1, 2, 3, 1 + random.below(2100), 2046 + random.below(4)};
        const auto distance = static_cast<std::size_t>(distances[random.below(5)]);
        for (int i = random.below(16) < new_share ? 0 : 2 + random.below(36); i > 0; --i)
            bytes.push_back(distance <= bytes.size() ? bytes[bytes.size() - distance] : 0);
        bytes.push_back(static_cast<std::uint8_t>(random.below(alphabet)));
    }
    bytes.resize(static_cast<std::size_t>(size));
    return bytes;
}

struct Compression : testing::Test {
    std::unique_ptr<CompressOutput> output = std::make_unique<CompressOutput>();
    std::unique_ptr<DecompressBuffer> buffer = std::make_unique<DecompressBuffer>();
    MemoryDisk disk;

    // The stream; nothing where the encoder refuses.
    Bytes stream(const auto& compress, const Bytes& input) {
        const std::size_t length = compress(input, *output).value_or(0);
        return {output->begin(), output->begin() + static_cast<int>(length)};
    }
    // The output up to limit, of a file that ends with the stream.
    Bytes decode(const Bytes& bytes, int limit) {
        disk["image"] = bytes;
        disk["image"].insert(disk["image"].begin(), 0x200, 0x33);
        RomImage rom(disk);
        EXPECT_TRUE(rom.open("image"));
        decompress_stream(rom, 0x200, *buffer, limit);
        return Bytes(buffer->output(), buffer->output() + limit + 1);
    }
    // The literal stream must be made, if it is not too long, and lead back to the input and
    // nothing but zeros after it, however far the last run reaches.
    void expect_stream(Bytes input, const auto& compress, const Bytes& literal,
                       std::size_t longest) {
        EXPECT_EQ(stream(compress, input), literal.size() <= longest ? literal : Bytes{});
        if (literal.size() >= 0x8000)
            return;
        const int limit = input.size() > 8192 ? world_map_output_limit : layer_output_limit;
        input.resize(static_cast<std::size_t>(limit) + 1);
        EXPECT_TRUE(decode(literal, limit) == input);
    }
    void expect_literal_streams(const Bytes& input) {
        expect_stream(input, compress_layer, literal_compress_layer(input), 9001);
        expect_stream(input, compress_world_map, literal_compress_world_map(input), 65535);
    }
};

TEST_F(Compression, WritesKnownStreams) {
    const Bytes twice = hex_bytes("A B C 1 A B C 2 A B C"); // the nearer and the farther run
    EXPECT_EQ(stream(compress_layer, twice), hex_bytes("C 0 2F A B C 1 DE 07 2 E2 07"));
    EXPECT_EQ(stream(compress_world_map, twice), hex_bytes("C 0 2F A B C 1 DE 07 2 DE 07"));
}

TEST_F(Compression, RefusesWhatItsBufferOrLengthFieldCannotHold) {
    EXPECT_EQ(compress_layer(incompressible(7999), *output), layer_stream_limit);
    EXPECT_EQ(compress_layer(incompressible(8000), *output), std::nullopt);
    EXPECT_EQ(compress_world_map(incompressible(58251), *output), world_map_stream_limit);
    EXPECT_EQ(compress_world_map(incompressible(58252), *output), std::nullopt);
    // A full last group and one byte left: too little for another control byte and an item.
    Bytes zeros_first = incompressible(58245);
    zeros_first.insert(zeros_first.begin(), 3 * longest_run, 0);
    EXPECT_EQ(compress_world_map(zeros_first, *output), 65534);
    zeros_first.push_back(1);
    EXPECT_EQ(compress_world_map(zeros_first, *output), std::nullopt);
}

TEST_F(Compression, GivesWhatTryingEveryCandidateGives) {
    Random random(1);
    for (int n = 0; n < 20000 && !HasFailure(); ++n)
        expect_literal_streams(random_input(random, random.below(1 << random.below(10))));
    for (int n = 0; n < 40 && !HasFailure(); ++n)
        expect_literal_streams(
            random_input(random, n < 30 ? 2000 + random.below(6193) : 65536 - random.below(40000)));
    // Where the search moves on to its next stretch: runs around it, and the farthest one.
    for (int size = 16352; size < 16422 && !HasFailure(); size += 2)
        expect_literal_streams(random_input(random, size));
    Bytes far_run = incompressible(17000);
    std::copy_n(far_run.begin() + 16384 - 2047, longest_run, far_run.begin() + 16384);
    expect_literal_streams(far_run);
    expect_literal_streams(Bytes(65536, 0));
}

TEST_F(Compression, ReadsKnownStreams) {
    const std::pair<const char*, const char*> rows[] = {
        {"09 00 0F 41 42 43 44 DE 07", "41 42 43 44 41 42 43"},
        {"06 00 02 FF 07 41", "00 00 00 41"},       // from what is not yet written
        {"00 00 FF 41", ""},                        // too short for anything
        {"03 00 FF 41", ""},                        // the last byte is no control byte
        {"05 00 01 41 DE 17", "41 41 41 41 41 41"}, // a reference over the end
        {"07 00 0F 41 42", "41 42 FF FF"},          // the file ends before the stream
    };
    for (const auto& [bytes, read] : rows) {
        Bytes expected = hex_bytes(read);
        expected.resize(layer_output_limit + 1);
        EXPECT_EQ(decode(hex_bytes(bytes), layer_output_limit), expected) << bytes;
    }
}

TEST_F(Compression, ReadingStopsAtItsLimitAndTakesTheLengthsThatItCan) {
    // The file ends after the length: all that follows counts as literals of 0xFF.
    buffer->output()[layer_output_limit + 1] = 0x55;
    EXPECT_EQ(decode({0xFF, 0xFF}, layer_output_limit), Bytes(layer_output_limit + 1, 0xFF));
    EXPECT_EQ(buffer->output()[layer_output_limit + 1], 0x55);
    Bytes longest(29124, 0xFF);
    longest.resize(world_map_output_limit + 1);
    EXPECT_EQ(decode({0xFF, 0x7F}, world_map_output_limit), longest);
    EXPECT_EQ(decode({0x00, 0x80}, world_map_output_limit), Bytes(world_map_output_limit + 1));
}

} // namespace
} // namespace veldrune::test
