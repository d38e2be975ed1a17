#include "rom/rom_image.h"
#include "support/memory_disk.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <unistd.h>

namespace veldrune::test {
namespace {

namespace fs = std::filesystem;

// A folder of the real disk that goes with the test.
struct Folder {
    fs::path path = fs::temp_directory_path() / ("veldrune-test-" + std::to_string(::getpid()));
    Folder() { fs::create_directory(path); }
    ~Folder() { fs::remove_all(path); }
    std::string file(const std::string& name, const std::string& text) const {
        std::ofstream(path / name) << text;
        return path / name;
    }
    static std::string contents(const std::string& name) {
        std::ifstream in(name);
        return {std::istreambuf_iterator<char>(in), {}};
    }
};

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
}

TEST(Disk, FilesAreToldApartByWhatStandsBehindTheirNames) {
    const Folder folder;
    const std::unique_ptr<FileLayer> disk = make_disk();
    const std::string a = folder.file("a", "123");
    fs::create_hard_link(a, folder.path / "link");
    RomImage rom(*disk);
    ASSERT_TRUE(rom.open(a));
    EXPECT_TRUE(rom.is_file(folder.path / "link"));
    fs::rename(folder.file("b", "4"), a);
    EXPECT_FALSE(rom.is_file(a));
    EXPECT_FALSE(disk->open(folder.path)); // a folder is no image

    // What is open counts, whatever its name is by now.
    ASSERT_TRUE(rom.write_byte(3, '9'));
    ASSERT_FALSE(rom.copy_to(a));
    EXPECT_EQ(Folder::contents(a), "1239");
    const std::string c = folder.file("c", "5");
    fs::create_symlink(c, folder.path / "symbolic");
    ASSERT_FALSE(rom.copy_to(folder.path / "symbolic")); // what it leads to is replaced
    EXPECT_TRUE(fs::is_symlink(folder.path / "symbolic"));
    EXPECT_EQ(Folder::contents(c), "1239");
}

} // namespace
} // namespace veldrune::test
