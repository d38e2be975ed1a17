#include "support/bytes.h"
#include "support/disk_folder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace veldrune::test {
namespace {

TEST(Disk, SaysWhyAFileCantBeReplacedAndLeavesIt) {
    const DiskFolder folder;
    const std::unique_ptr<FileLayer> disk = make_disk();
    const std::string path = folder.file("a.smc");
    const struct {
        const char *reason, *name;
    } rows[] = {
        {": another program has the file there open", "held.smc"},
        {": the file there can't be written", "read-only.smc"},
        {": what is there is no regular file", "NUL"},
    };
    std::ofstream(folder.path / "held.smc") << "1";
    std::ofstream(folder.path / "read-only.smc") << "1";
    std::filesystem::permissions(folder.path / "read-only.smc", std::filesystem::perms::owner_read);
    const std::ifstream holder(folder.path / "held.smc"); // which nobody may rename or remove
    for (const auto& [reason, name] : rows) {
        EXPECT_EQ(write_file(*disk, folder.file(name), Bytes{2}), reason);
        EXPECT_EQ(folder.file_count(), 2u) << name;
    }
    EXPECT_TRUE(disk->open(folder.file("held.smc")));
    EXPECT_FALSE(disk->open(folder.file("read-only.smc")));
    std::filesystem::permissions(folder.path / "read-only.smc", std::filesystem::perms::owner_all);
}

} // namespace
} // namespace veldrune::test
