// The real disk, in a folder of its own.

#include "rom/native_path.h"
#include "support/bytes.h"
#include "support/disk_folder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace veldrune::test {
namespace {

TEST(Disk, TakesNamesOfAnyLengthAndScript) {
    const DiskFolder folder;
    const std::unique_ptr<FileLayer> disk = make_disk();
    const std::string names[] = {"a.smc", "\u00e4 \u20ac \U0001d11e.smc", std::string(200, 'l')};
    for (const std::string& name : names) {
        SCOPED_TRACE(name);
        const std::string path = folder.file(name), copy = folder.file("2" + name);
        EXPECT_EQ(disk->status_of(path).kind, NameStatus::nothing);
        ASSERT_EQ(write_file(*disk, path, Bytes{1, 2, 3}), std::nullopt);
        const NameStatus there = disk->status_of(path);
        EXPECT_TRUE(there.kind == NameStatus::regular_file && there.writable && !there.held);
        const std::unique_ptr<File> file = disk->open(path);
        ASSERT_TRUE(file && file->write_at(0x10000, Bytes{4}) && file->flush());
        ASSERT_EQ(copy_file(*disk, *file, copy), std::nullopt);
        const std::unique_ptr<File> copied = disk->open_to_read(copy);
        ASSERT_TRUE(copied);
        EXPECT_EQ(copied->status()->size, 0x10001);
        Bytes bytes(9);
        EXPECT_EQ(copied->read_at(0xFFFF, bytes), 2u);
        EXPECT_EQ(bytes[1], 4);
        EXPECT_EQ(copied->read_at(0x10001, bytes), 0u);
        EXPECT_FALSE(copied->write_at(0, bytes));
        EXPECT_EQ(disk->leads_to(path, file->status()->identity), Answer::yes);
        EXPECT_EQ(disk->leads_to(copy, file->status()->identity), Answer::no);
        EXPECT_FALSE(disk->create(path, 0666));
        const FileIdentity removed = copied->status()->identity;
        copied->close(); // or its name may stay until then
        disk->remove(copy);
        EXPECT_EQ(disk->leads_to(copy, removed), Answer::no);
    }
}

TEST(Disk, OpensNothingButRegularFiles) {
    const DiskFolder folder;
    const std::unique_ptr<FileLayer> disk = make_disk();
    const std::string names[] = {folder.file(""), folder.file("none"), "/dev/null", "NUL",
                                 "con",           "\\\\.\\pipe\\x",    "\xFF",      ""};
    for (const std::string& name : names)
        EXPECT_FALSE(disk->open(name) || disk->open_to_read(name)) << name;
}

TEST(Disk, MakesAFolderAndThoseAboveIt) {
    const DiskFolder folder;
    const std::unique_ptr<FileLayer> disk = make_disk();
    const std::string inner = folder.file(std::string(100, 'a') + "/\u00e4/b"),
                      file = inner + "/c.txt";
    EXPECT_TRUE(make_folder(inner) && make_folder(inner + '/'));
    EXPECT_EQ(write_file(*disk, file, Bytes{1}), std::nullopt);
    EXPECT_EQ(std::ifstream(stream_path(file)).get(), 1);
    EXPECT_FALSE(make_folder(file) || make_folder(file + "/d") || make_folder(""));
}

TEST(Disk, LocksAFileOnceAtATimeAndHindersNoReader) {
    const DiskFolder folder;
    const std::unique_ptr<FileLayer> disk = make_disk();
    const std::string path = folder.file("a.smc");
    ASSERT_EQ(write_file(*disk, path, Bytes{1}), std::nullopt);
    const std::unique_ptr<File> first = disk->open(path), second = disk->open(path);
    EXPECT_EQ(first->lock(), Answer::yes);
    EXPECT_EQ(second->lock(), Answer::no);
    Bytes byte(1);
    EXPECT_EQ(second->read_at(0, byte), 1u);
    first->close();
    EXPECT_EQ(second->lock(), Answer::yes);
}

} // namespace
} // namespace veldrune::test
