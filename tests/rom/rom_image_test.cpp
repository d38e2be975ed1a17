#include "rom/rom_image.h"
#include "support/memory_disk.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

TEST(RomImage, ReadsLittleEndianValuesAndErasedMemoryOutsideTheFile) {
    MemoryDisk disk;
    RomImage rom(disk);
    EXPECT_EQ(rom.read_byte(0), 0xFF);
    EXPECT_FALSE(rom.write_byte(0, 1));
    disk["a"] = {0x34, 0x12, 0x05, 0x80};
    ASSERT_TRUE(rom.open("a"));
    EXPECT_EQ(rom.read_word(0), 0x1234);
    EXPECT_EQ(rom.read_pointer24(0), 0x051234);
    EXPECT_EQ(rom.read_word(3), 0xFF80);
    EXPECT_TRUE(rom.write(5, pointer24_bytes(-2))); // extends the file
    EXPECT_EQ(disk["a"], (Bytes{0x34, 0x12, 0x05, 0x80, 0, 0xFE, 0xFF, 0xFF}));
}

TEST(RomImage, ACopyIsWholeOrNotThere) {
    MemoryDisk disk;
    RomImage rom(disk);
    disk["a"] = Bytes(0x20001, 7);
    disk["b.part"] = {2}; // somebody else's
    ASSERT_TRUE(rom.open("a"));
    constexpr int folder_flush = 6; // after creation, write, flush, close and renaming
    for (const bool half : {false, true}) {
        disk["b"] = {1};
        for (int at = 1;; ++at) {
            disk.fail(MemoryDisk::Fault{}, MemoryDisk::Fault{.at = at, .half = half});
            if (!rom.copy_to("b"))
                break;
            ASSERT_LT(at, 20);
            const bool renamed = disk.writes == folder_flush; // the folder alone has failed
            ASSERT_EQ(disk["b"], renamed ? disk["a"] : Bytes{1});
            ASSERT_EQ(disk.file_count(), 3u);
            ASSERT_EQ(disk["b.part"], Bytes{2});
        }
    }
    EXPECT_EQ(disk["b"], disk["a"]);
    disk["b"] = {1};
    disk.fail(MemoryDisk::Fault{.at = 1, .from_then_on = true},
              MemoryDisk::Fault{}); // the disk stops giving bytes
    EXPECT_TRUE(rom.copy_to("b"));
    EXPECT_EQ(disk["b"], Bytes{1});
    disk.fail(0, 0);
    const std::string name = std::string(32, 'b') + ".part"; // looks like its own temporary name
    EXPECT_TRUE(!rom.copy_to(name) && disk.exists(name));
}

} // namespace
} // namespace veldrune::test
