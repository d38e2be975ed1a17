// Files of the real disk: links, limits, files that can't be written or have vanished, and a second
// editor.

#include "editor/save.h"
#include "real_files.h"

#include <gtest/gtest.h>

#include <csignal>
#include <grp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace veldrune::test {
namespace {

namespace fs = std::filesystem;
using demo::demo_map::town;

// For root no file is read-only, so that root runs these tests with the rights of nobody.
class OrdinaryUser : public testing::Environment {
  public:
    void SetUp() override {
        if (::geteuid() == 0) {
            ASSERT_EQ(::setgroups(0, nullptr), 0);
            ASSERT_EQ(::setegid(nobody), 0);
            ASSERT_EQ(::seteuid(nobody), 0);
        }
        ::prctl(PR_SET_DUMPABLE, 1); // or the change would forbid tracing
    }
    void TearDown() override {
        if (::getuid() == 0) {
            ASSERT_EQ(::seteuid(0), 0);
            ASSERT_EQ(::setegid(0), 0);
        }
        ::prctl(PR_SET_DUMPABLE, 1);
    }

  private:
    static constexpr unsigned nobody = 65534;
};
const testing::Environment* const ordinary_user =
    testing::AddGlobalTestEnvironment(new OrdinaryUser);

TEST(RealFiles, AreToldApartByWhatIsUnderTheirNames) {
    RealEditor editor;
    RomImage& rom = editor.s.rom;
    const std::string link = editor.folder.file("link"), symbolic = editor.folder.file("symbolic");
    fs::create_hard_link(editor.image, link);
    EXPECT_TRUE(rom.is_file(link));
    const std::string b = editor.folder.file("b"), c = editor.folder.file("c");
    put_contents(b, {4});
    fs::rename(b, editor.image);
    EXPECT_FALSE(rom.is_file(editor.image));
    ASSERT_TRUE(rom.write_byte(3, 9)); // into what is open, whatever its name is by now
    ASSERT_FALSE(rom.copy_to(editor.image));
    EXPECT_TRUE(contents(editor.image) == editor.open_file() && contents(link)[3] == 9);
    put_contents(c, {5});
    fs::create_symlink(c, symbolic);
    ASSERT_FALSE(rom.copy_to(symbolic)); // what it leads to is replaced
    EXPECT_TRUE(fs::is_symlink(symbolic) && contents(c) == editor.open_file());
}

TEST(RealFiles, AnotherEditorIsNoticedButNotThisOne) {
    RealEditor first, second;
    open_image_file(first.s, first.image);
    EXPECT_TRUE(first.dialogs.silent());
    open_image_file(second.s, first.image);
    ASSERT_EQ(second.dialogs.messages.size(), 1u);
    EXPECT_EQ(second.dialogs.messages[0].title, "Warning");
    open_image_file(second.s, second.image); // gives the first one free
    open_image_file(first.s, first.image);
    EXPECT_TRUE(first.dialogs.silent());
}

// No file of this process grows beyond a size.
class SizeLimit {
  public:
    explicit SizeLimit(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &former_);
        const rlimit limit{bytes, former_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~SizeLimit() { ::setrlimit(RLIMIT_FSIZE, &former_); }
    SizeLimit(const SizeLimit&) = delete;
    SizeLimit& operator=(const SizeLimit&) = delete;

  private:
    rlimit former_{};
};

TEST(RealFiles, AWriteBeyondTheSizeLimitFailsAndIsReported) {
    constexpr std::size_t place = 0x300300;
    for (const std::size_t limit : {place, place + 5}) {
        std::signal(SIGXFSZ, SIG_DFL); // which ends the program
        RealEditor editor;
        editor.choose(town);
        editor.form.Text14 = "300300";
        editor.s.changes_saved = false;
        {
            const SizeLimit limited(limit);
            save(editor.s);
        }
        ASSERT_EQ(editor.dialogs.messages.size(), 1u);
        EXPECT_EQ(editor.dialogs.messages[0].text,
                  "Writing to " + editor.image +
                      " at 300300 failed. What was written before stays; nothing more is written.");
        EXPECT_FALSE(editor.s.changes_saved);
        const Bytes limited = contents(editor.image);
        save(editor.s);
        EXPECT_TRUE(editor.s.changes_saved && editor.dialogs.messages.size() == 1);
        Bytes beginning = demo_bytes(); // and the stream up to the limit
        if (limit > place) {
            const Bytes whole = contents(editor.image);
            put_bytes(beginning, place, std::span(whole).subspan(place, limit - place));
        }
        EXPECT_TRUE(limited == beginning);
    }
}

TEST(RealFiles, ACopyBeyondTheSizeLimitLeavesNothing) {
    RealEditor editor;
    editor.choose(town);
    editor.dialogs.file_names = {editor.folder.file("b.smc")};
    {
        const SizeLimit limited(0x180000);
        save_as(editor.s);
    }
    EXPECT_EQ(editor.dialogs.messages.size(), 1u);
    EXPECT_TRUE(editor.folder.file_count() == 1 && editor.s.rom.path() == editor.image);
}

TEST(RealFiles, WhatCannotBeAnImageIsNeitherOpenedNorReplaced) {
    RealEditor editor;
    const auto name = [&](const char* n) { return editor.folder.file(n); };
    put_contents(name("read-only"), {1});
    ASSERT_EQ(::chmod(name("read-only").c_str(), 0444), 0);
    fs::create_directory(name("folder"));
    fs::create_directory(name("closed"));
    put_contents(name("closed/file"), {2});
    ASSERT_EQ(::chmod(name("closed").c_str(), 0555), 0);
    ASSERT_EQ(::mkfifo(name("pipe").c_str(), 0666), 0);
    fs::create_symlink("nowhere", name("lost"));
    const std::size_t count = editor.folder.file_count();
    // clang-format off
    const struct { std::string path, why; } cases[] = {
        {name("read-only"),    ": the file there can't be written"},
        {name("folder"),       ": what is there is no regular file"},
        {name("pipe"),         ": what is there is no regular file"},
        {name("lost"),         ": the link there leads to nothing"},
        {name("closed/new"),   ""},
        {name("missing/file"), ""},
    };
    // clang-format on
    for (const auto& [path, why] : cases) {
        SCOPED_TRACE(path);
        editor.dialogs.messages.clear();
        open_image_file(editor.s, path);
        EXPECT_TRUE(editor.dialogs.silent() && editor.s.rom.path() == editor.image);
        editor.dialogs.file_names = {path};
        save_as(editor.s);
        const std::string reported = std::string("The image could not be copied to ")
                                         .append(path)
                                         .append(why)
                                         .append(". ")
                                         .append(editor.image)
                                         .append(" is still open.");
        EXPECT_EQ(editor.dialogs.messages, (Messages{{reported, "Error"}}));
        EXPECT_EQ(editor.folder.file_count(), count);
    }
    ASSERT_EQ(::chmod(editor.image.c_str(), 0444), 0); // since it was opened
    editor.dialogs.messages.clear();
    editor.dialogs.file_names = {editor.image};
    save_as(editor.s);
    EXPECT_EQ(editor.dialogs.messages,
              (Messages{{"The image can't be opened again as " + editor.image + ". " +
                             editor.image + " is still open.",
                         "Error"}}));
    EXPECT_EQ(contents(name("read-only")), Bytes{1});
    EXPECT_TRUE(fs::is_fifo(name("pipe")) && fs::is_symlink(name("lost")));
    ::chmod(name("closed").c_str(), 0755);
}

TEST(RealFiles, SaveAsKeepsPermissionsAndOtherFiles) {
    const mode_t former_mask = ::umask(022); // which forbids what the file there allows
    RealEditor editor;
    std::string longest;
    while (longest.size() < 254)
        longest += "\u00e4";
    for (const std::string& name : {std::string("b.smc"), longest + "x"}) {
        const std::string path = editor.folder.file(name), taken = path.substr(0, 240) + ".part";
        put_contents(path, {1});
        put_contents(taken, {2});
        ASSERT_EQ(::chmod(path.c_str(), 0666), 0);
        const std::size_t count = editor.folder.file_count();
        editor.dialogs.file_names = {path};
        save_as(editor.s);
        EXPECT_TRUE(editor.dialogs.silent() && contents(path) == demo_bytes());
        EXPECT_EQ(fs::status(path).permissions(), fs::perms{0666});
        EXPECT_TRUE(contents(taken) == Bytes{2} && editor.folder.file_count() == count);
    }
    ::umask(former_mask);
}

TEST(RealFiles, AVanishedImageIsAskedAboutAndWrittenOnlyOnOk) {
    Bytes saved = demo_bytes();
    saved[0x2D9100 + 33 * town + 25] = 3;
    for (const bool replaced : {false, true}) {
        RealEditor editor;
        editor.choose(town);
        editor.form.Text13 = "3"; // palette
        const std::string other = editor.folder.file("other");
        put_contents(other, {1, 2, 3});
        if (replaced)
            fs::rename(other, editor.image);
        else
            fs::remove(editor.image);
        const Bytes there = contents(editor.image);
        editor.dialogs.answers = {false, true};
        for (const std::size_t questions : {1u, 2u, 2u}) {
            save(editor.s);
            ASSERT_EQ(editor.dialogs.questions.size(), questions);
            EXPECT_TRUE(editor.open_file() == (questions == 1 ? demo_bytes() : saved));
        }
        EXPECT_TRUE(contents(editor.image) == there);
        EXPECT_EQ(fs::exists(editor.image), replaced);
        editor.dialogs.file_names = {editor.image}; // the way out
        save_as(editor.s);
        EXPECT_TRUE(contents(editor.image) == saved && editor.s.rom.is_file(editor.image));
        EXPECT_TRUE(editor.dialogs.questions.size() == 2 && editor.dialogs.messages.empty());
    }
}

} // namespace
} // namespace veldrune::test
