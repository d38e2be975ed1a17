// What the demo image promises to the tests, the benchmarks and whoever tries the editor on it.

#include "demo/people/dialogue_book.h"
#include "objects/object_record.h"
#include "rom/rom_layout.h"
#include "support/object_image.h"
#include "support/script_fixture.h"

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>

namespace veldrune::test {
namespace {

using enum ObjectKind;
using rom_layout::map_count;

struct DemoImage : testing::Test {
    Editor editor;
    EditorState& state = *editor.state;
    const Form1& form = state.form1;
    const RomImage& rom = state.rom;

    // Calls use(kind, row of bytes) for every object of a map.
    void each_object(int map, auto&& use) const {
        for (const ObjectKind kind : all_kinds) {
            ObjectList list;
            load_object_list(rom, kind, map, list);
            for (int i = 0; i < list.count; ++i)
                use(kind, object_row(kind, list, i));
        }
    }
};

TEST_F(DemoImage, IsTheSameForASeedAndAnotherForAnother) {
    EXPECT_EQ(demo_bytes().size(), static_cast<std::size_t>(rom_layout::image_size));
    EXPECT_TRUE(demo_bytes() == demo::make_demo_image(1));
    EXPECT_FALSE(demo_bytes() == demo::make_demo_image(4000000000u));
}

TEST_F(DemoImage, WorldsLeadIntoMapsOfWhichEachShowsSomethingWithObjectsOnIt) {
    for (const int world : {0, 1}) {
        int entrances = 0;
        each_object(world, [&](ObjectKind kind, auto row) {
            const int target = row[2] | row[3] << 8;
            EXPECT_TRUE(kind != entrance || (target >= demo::demo_map::town && target < map_count));
            entrances += kind == entrance;
        });
        EXPECT_GT(entrances, 5);
    }
    std::set<ObjectKind> kinds;
    for (int map = demo::demo_map::town; map < map_count; ++map) {
        editor.choose(map);
        const auto& ground = state.map.layers[1].map.cells;
        EXPECT_NE(std::ranges::count(ground, ground[0]), std::ssize(ground)) << map;
        const int columns = std::max(std::stoi(form.Text2), std::stoi(form.Text1));
        const int rows = std::min(64, std::max(std::stoi(form.Text5), std::stoi(form.Text3)));
        each_object(map, [&](ObjectKind kind, auto row) {
            EXPECT_LT(row[kind == npc ? 4 : 0], columns) << map;
            EXPECT_LT(kind == npc ? row[5] & 63 : row[1], rows) << map;
            kinds.insert(kind);
        });
    }
    EXPECT_EQ(kinds.size(), std::size(all_kinds));
    EXPECT_TRUE(editor.dialogs.silent());
}

TEST_F(DemoImage, ScriptsFollowEachOtherAndHoldEveryCommandAndAction) {
    std::set<std::int64_t> meant; // by NPCs and triggers
    for (int map = 0; map < map_count; ++map)
        each_object(map, [&](ObjectKind kind, auto row) {
            ObjectBytes record{};
            std::ranges::copy(row, record.begin());
            if (kind == npc || kind == event_trigger)
                meant.insert(script_offset(kind, record).value());
        });
    std::set<std::int64_t> starts;
    std::set<int> commands, actions;
    std::int64_t at = 0xA0200;
    for (; at <= *meant.rbegin() || actions.size() < 256; at += state.script.loaded.length()) {
        starts.insert(at);
        state.objects.selected_object.script_offset = at;
        open_event_editor(state);
        ASSERT_TRUE(state.script.loaded.whole && at < 0xCE802) << at;
        const ScriptGrid& grid = state.form9.grid;
        for (int row = 1, first = 0; row + 1 < std::ssize(grid); ++row) {
            first = starts_command(grid, row) ? row : first;
            const int code = command_code_at(grid, first);
            commands.insert(code);
            const std::string& action = grid[static_cast<std::size_t>(row)].cells[secondary];
            if (code < 0x35 && row > first + 1 && !is_blank(action))
                actions.insert(std::stoi(action, nullptr, 16));
        }
    }
    EXPECT_GT(meant.size(), 300u);
    EXPECT_TRUE(std::ranges::includes(starts, meant));
    EXPECT_EQ(commands.size(), 256u);
    EXPECT_TRUE(editor.dialogs.silent());
}

TEST(DialogueBook, TakesTheLongestPieces) {
    EXPECT_EQ(demo::encode_dialogue("The end...\n> VARNA"),
              (Bytes{0x9D, 0x80, 0xA4, 0x3D, 0x67, 0x01, 0x15, 0x02, 0x00}));
    EXPECT_THROW(demo::encode_dialogue("a | b"), std::invalid_argument);
}

} // namespace
} // namespace veldrune::test
