// The program as a process, through a shell.

#include "support/disk_folder.h"
#include "support/editor_fixture.h"
#include "support/shell.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

namespace veldrune::test {
namespace {

namespace fs = std::filesystem;

struct Program : testing::Test {
    const DiskFolder disk_folder;
    const fs::path& folder = disk_folder.path;

    Program() {
        write("a.smc", {demo_bytes().begin(), demo_bytes().end()});
        write("\xFF.smc", "");
    }

    void write(const std::string& name, const std::string& bytes) const {
        std::ofstream(folder / name, std::ios::binary) << bytes;
    }
    /// Runs a line of the shell in the folder; "inspect" is the program. Errors go to file "err".
    ShellResult run(const std::string& line) const {
        return run_shell("cd '" + folder.string() +
                         "' && inspect() { '" VELDRUNE_INSPECT "' \"$@\" 2>>err; } && " + line);
    }
};

TEST_F(Program, EndsWithTheCodeAndTheOutputOfEachCase) {
    write("names.txt", "first\r\nsecond\n");
    const struct {
        const char* line;
        int code;
        const char* out; // a part of it
    } rows[] = {
        {"inspect --help", 0, "dump"},
        {"inspect map --help", 0, "veldrune-inspect map game.smc 17"},
        {"inspect maps a.smc", 0, "\n413  "},
        {"inspect maps a.smc --names names.txt", 0, "second\n"},
        {"inspect map a.smc 0x11", 0, "tileset1"},
        {"inspect dump a.smc", 0, "\nmap 012 song "},
        {"inspect dump \xFF.smc", 0, "image size 0\n"},
        {"(inspect dump a.smc; echo $? > code) | head -n 1; exit $(cat code)", 0,
         "image size 3146240\n"},
        {"inspect diff a.smc a.smc", 0, ""},
        {"inspect picture a.smc 0x11 a.png --layers 1,3 && head -c 4 a.png", 0, "PNG"},
        {"inspect picture a.smc dusk b.png --objects --grid && wc -c < a.png", 0, ""},
        {"inspect picture a.smc 414 c.png", 2, ""},
        {"inspect picture a.smc 4 c.png --layers 1,", 2, ""},
        {"inspect picture a.smc 4 none/c.png", 2, ""},
        {"inspect pictures a.smc a.smc", 2, ""},
        {"inspect dump a.smc > /dev/full", 2, ""},
        {"inspect --help > /dev/full", 2, ""},
        {"inspect check --help", 0,
         "\nstream-overlap    fault    a save of one changes the other\n"},
        {"inspect check a.smc", 0, "Nothing found."},
        {"inspect check a.smc --strict", 1, "map-size"},
        {"inspect check a.smc --strict --against a.smc", 0, "Nothing found."},
        {"inspect objects a.smc", 0, "facing "},
        {"inspect objects a.smc 2", 0, "entrance"},
        {"inspect objects a.smc 414", 2, ""},
        {"inspect scripts a.smc", 0, "sure"},
        {"inspect script a.smc A0210 --bytes", 0, "Explanation"},
        {"inspect script a.smc 300300", 2, ""},
        {"inspect dialogue a.smc 63A", 0, "     63A  "},
        {"inspect dialogue a.smc --find 'a BED for'", 0, "\n                 > Yes, please."},
        {"inspect dialogue a.smc CFF", 2, ""},
        {"inspect uses --help", 0, "command B7"},
        {"inspect uses a.smc flag 1EE0:5", 0, "sure"},
        {"inspect uses a.smc flag 1F:3", 0, "chest"},
        {"inspect uses a.smc flag 1E80:8", 2, ""},
        {"inspect uses a.smc map 3", 0, "entrance"},
        {"inspect uses a.smc map 414", 2, ""},
        {"inspect uses a.smc tile 1 --set 2", 0, "Layer"},
        {"inspect uses a.smc tile 1", 2, ""},
        {"inspect uses a.smc song 1 --set 2", 2, ""},
        {"inspect uses a.smc thing 1", 2, ""},
        {"inspect uses \xFF.smc item FF", 0, "Nothing found."},
        {"inspect tiles a.smc --set 2 --unused", 0, "Tile"},
        {"inspect room a.smc", 0, "nothing known uses it"},
        {"inspect room a.smc --for 1024", 0, "2ECAA6"},
        {"inspect room a.smc --for 32767 --world", 0, "2F798A"},
        {"inspect room \xFF.smc --for 9", 1, ""},
        {"inspect room a.smc --for 9002", 2, ""},
        {"inspect room a.smc --world", 2, ""},
        {"inspect check a.smc --strict --against ''", 2, ""},
        {"inspect dialogue a.smc --find zzzz", 0, "Nothing found."},
        {"inspect none; grep '\"none\" is no command' err && : > err", 0, "none"},
        {"inspect", 2, ""},
        {"inspect maps", 2, ""},
        {"inspect maps none.smc", 2, ""},
        {"inspect maps a.smc --names none.txt", 2, ""},
        {"inspect map a.smc 414", 2, ""},
        {"inspect map a.smc 1F", 2, ""},
        {"inspect maps .", 2, ""},
    };
    for (const auto& row : rows) {
        fs::remove(folder / "err");
        const ShellResult result = run(row.line);
        EXPECT_EQ(result.code, row.code) << row.line;
        EXPECT_NE(result.out.find(row.out), std::string::npos) << row.line << result.out;
        EXPECT_EQ(fs::is_empty(folder / "err"), row.code == 0 || *row.out != '\0') << row.line;
        EXPECT_TRUE(row.code != 2 || result.out.empty()) << row.line;
    }
    fs::permissions(folder / "a.smc", fs::perms::owner_read);
    EXPECT_EQ(run("inspect dump a.smc").code, 0);
}

TEST_F(Program, PrintsJsonWithThePathAndWholeNumbers) {
    const auto maps = nlohmann::json::parse(run("inspect maps --json a.smc").out);
    EXPECT_EQ(maps["format"], 1);
    EXPECT_EQ(maps["image"], "a.smc");
    EXPECT_EQ(maps["command"], "maps");
    ASSERT_EQ(maps["maps"].size(), 414u);
    EXPECT_EQ(maps["maps"][0]["location3"], 0x19D3B0);
    const auto nothing = nlohmann::json::parse(run("inspect map --json \xFF.smc 3").out);
    EXPECT_EQ(nothing["image"], "\uEFFF.smc");
    EXPECT_NE(run("inspect picture --json a.smc dawn \xFF.png")
                  .out.find("\n{\"picture\":\"world-dawn\",\"file\":\"\uEFFF.png\",\"width\":4096,"
                            "\"height\":4096}\n"),
              std::string::npos);
}

TEST_F(Program, ShowsADifferenceAndDrawsItBeforeAndAfter) {
    std::string changed(demo_bytes().begin(), demo_bytes().end());
    changed[0x2D9100 + 33 * 7 + 28] ^= 1; // a song, which no picture shows
    for (std::size_t i = 0; i < 256; ++i)
        changed[0x12EE00 + i] ^= 1; // the colours that the World of Dawn alone has
    write("b.smc", changed);
    const ShellResult text = run("inspect diff a.smc b.smc --pictures out");
    EXPECT_EQ(text.code, 1);
    EXPECT_NE(text.out.find("\nmap 7: song: "), std::string::npos) << text.out;
    EXPECT_EQ(run("cd out && ls").out, "world-dawn-after.png\nworld-dawn-before.png\n");
    const auto json = nlohmann::json::parse(run("inspect diff --json a.smc b.smc").out);
    EXPECT_EQ(json["findings"].back()["what"], "song");
}

TEST_F(Program, ShowsInGitWhatHasChanged) {
    const ShellResult diff = run(
        "export GIT_CONFIG_GLOBAL=/dev/null && git init -q && git add a.smc && "
        "git config diff.veldrune.textconv \"'" VELDRUNE_INSPECT "' dump\" && "
        "echo '*.smc diff=veldrune' > .gitattributes && "
        "printf '\\001' | dd of=a.smc bs=1 seek=$((0x2D9100 + 33 * 7 + 28)) conv=notrunc 2>err && "
        "git diff -U0 | grep '^[-+] *map'");
    EXPECT_EQ(diff.code, 0);
    EXPECT_TRUE(diff.out.starts_with("-map 007 song ")) << diff.out;
    EXPECT_NE(diff.out.find("\n+map 007 song 1\n"), std::string::npos) << diff.out;
}

} // namespace
} // namespace veldrune::test
