#include "compression/decompress.h"
#include "support/memory_disk.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

struct Decoder : testing::Test {
    std::unique_ptr<DecompressBuffer> buffer = std::make_unique<DecompressBuffer>();
    MemoryDisk disk;

    /// The output up to limit, of a file that ends with the stream.
    Bytes decode(const Bytes& stream, int limit) {
        disk["image"] = stream;
        disk["image"].insert(disk["image"].begin(), 0x200, 0x33);
        RomImage rom(disk);
        EXPECT_TRUE(rom.open("image"));
        disk.fail(0, 0);
        decompress_stream(rom, 0x200, *buffer, limit);
        return Bytes(buffer->output(), buffer->output() + limit + 1);
    }
};

TEST_F(Decoder, ReadsKnownStreams) {
    const std::pair<const char*, const char*> rows[] = {
        {"09 00 0F 41 42 43 44 DE 07", "41 42 43 44 41 42 43"},
        {"06 00 01 41 DE 17", "41 41 41 41 41 41"}, // a run over itself
        {"06 00 02 00 00 41", "00 00 00 41"},       // from the zeros before the start
        {"06 00 02 FF 07 41", "00 00 00 41"},       // from what is not yet written
        {"00 00 FF 41", ""},                        // too short for anything
        {"02 00 FF 41", ""},
        {"03 00 FF 41", ""},                        // the last byte is no control byte
        {"04 00 FF 41 42", "41"},                   // bits behind the last item
        {"05 00 01 41 DE 17", "41 41 41 41 41 41"}, // a reference over the end
        {"0C 00 FF 1 2 3 4 5 6 7 8 FF 9", "1 2 3 4 5 6 7 8"},
        {"0D 00 FF 1 2 3 4 5 6 7 8 FF 9", "1 2 3 4 5 6 7 8 9"},
        {"07 00 0F 41 42", "41 42 FF FF"}, // the file ends before the stream
    };
    for (const auto& [stream, output] : rows) {
        Bytes expected = hex_bytes(output);
        expected.resize(layer_output_limit + 1);
        EXPECT_EQ(decode(hex_bytes(stream), layer_output_limit), expected) << stream;
        EXPECT_LE(disk.reads, 2);
    }
}

TEST_F(Decoder, StopsAtItsLimitAndTakesTheLengthsThatItCan) {
    // clang-format off
    const struct { const char* length; int limit; std::size_t filled; } rows[] = { // then the file ends: literals of 0xFF
        {"FF FF", layer_output_limit,          8193},
        {"FF 7F", world_graphics_output_limit, 16385},
        {"00 80", world_graphics_output_limit, 0},
        {"FF 7F", world_map_output_limit,      29124},
        {"00 80", world_map_output_limit,      0},
    };
    // clang-format on
    for (const auto& row : rows) {
        const int behind = std::min(row.limit + 1, world_map_output_limit);
        buffer->output()[behind] = 0x55;
        Bytes expected(row.filled, 0xFF);
        expected.resize(static_cast<std::size_t>(row.limit) + 1);
        EXPECT_EQ(decode(hex_bytes(row.length), row.limit), expected) << row.length;
        EXPECT_EQ(buffer->output()[behind], behind > row.limit ? 0x55 : 0);
    }
}

} // namespace
} // namespace veldrune::test
