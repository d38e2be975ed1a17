// The program as a process, through a shell.

#include "support/disk_folder.h"
#include "support/editor_fixture.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sys/wait.h>

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
    struct Result {
        int code;
        std::string out;
    };
    Result run(const std::string& line) const {
        const std::string command = "cd '" + folder.string() + "' && inspect() { '" +
                                    VELDRUNE_INSPECT "' \"$@\" 2>>err; } && " + line;
        FILE* pipe = popen(command.c_str(), "r");
        std::string out;
        char block[4096];
        while (const std::size_t count = fread(block, 1, sizeof block, pipe))
            out.append(block, count);
        return {WEXITSTATUS(pclose(pipe)), out};
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
        {"inspect check a.smc", 0, "Nothing found."},
        {"inspect check a.smc --strict", 1, "map-size"},
        {"inspect check a.smc --strict --against a.smc", 0, "Nothing found."},
        {"inspect room a.smc", 0, "nothing known uses it"},
        {"inspect room a.smc --for 1024", 0, "2ECAA6"},
        {"inspect room a.smc --for 32767 --world", 0, "2F798A"},
        {"inspect room \xFF.smc --for 9", 1, ""},
        {"inspect room a.smc --for 9002", 2, ""},
        {"inspect room a.smc --world", 2, ""},
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
        const Result result = run(row.line);
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
}

TEST_F(Program, ShowsADifferenceAndDrawsItBeforeAndAfter) {
    std::string changed(demo_bytes().begin(), demo_bytes().end());
    changed[0x2D9100 + 33 * 7 + 28] ^= 1; // a song, which no picture shows
    for (std::size_t i = 0; i < 256; ++i)
        changed[0x12EE00 + i] ^= 1; // the colours that the World of Dawn alone has
    write("b.smc", changed);
    const Result text = run("inspect diff a.smc b.smc --pictures out");
    EXPECT_EQ(text.code, 1);
    EXPECT_NE(text.out.find("\nmap 7: song: "), std::string::npos) << text.out;
    EXPECT_EQ(run("cd out && ls").out, "world-dawn-after.png\nworld-dawn-before.png\n");
    const auto json = nlohmann::json::parse(run("inspect diff --json a.smc b.smc").out);
    EXPECT_EQ(json["findings"].back()["what"], "song");
}

} // namespace
} // namespace veldrune::test
