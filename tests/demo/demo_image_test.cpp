// What the demo image promises to the tests, the benchmarks and whoever tries the editor on it.

#include "demo/people/dialogue_book.h"
#include "dialogue/dialogue_text.h"
#include "editor/world_map.h"
#include "objects/markers.h"
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

    ObjectList list_of(int map, ObjectKind kind) const {
        ObjectList list;
        load_object_list(rom, kind, map, list);
        return list;
    }
    static int side(const std::string& layer1, const std::string& layer2) {
        return std::max(std::stoi(layer1), std::stoi(layer2));
    }
};

TEST_F(DemoImage, IsTheSameForASeedAndAnotherForAnother) {
    EXPECT_EQ(demo_bytes().size(), 0x300200u);
    EXPECT_EQ(rom.read_word(0x3000E0), 0xFFFF) << "no patch marks";
    EXPECT_TRUE(demo_bytes() == demo::make_demo_image(1));
    for (const std::uint32_t seed : {0u, 2u})
        EXPECT_FALSE(demo_bytes() == demo::make_demo_image(seed)) << seed;
}

TEST_F(DemoImage, StructuresLieInTheirAreas) {
    // clang-format off
    const struct { int table, count, start, end; } streams[] = { // by the tables of their pointers
        {0x19CF90, 352, 0x19D3B0, 0x1E0200}, // layers
        {0x1FBC00, 85,  0x1E0200, 0x1FBC00}, // formations
        {0x26CF60, 21,  0x268980, 0x26CF60}, // graphics of layer 3
    };
    // clang-format on
    for (const auto& area : streams)
        for (int i = 0; i < area.count; ++i) {
            const int at = area.start + rom.read_pointer24(area.table + 3 * i);
            ASSERT_LE(at + rom.read_word(at), area.end) << i;
        }
    for (int i = 0; i < 85; ++i) // 256 characters at most
        EXPECT_LE(0x1FDD00 + rom.read_pointer24(0x1FDC00 + 3 * i) + 32 * 128, 0x260200) << i;
    for (int i = 0; i < 48 * 128; ++i) // no colour that is drawn is black
        EXPECT_NE(rom.read_word(0x2DC680 + 2 * i) & 0x7FFF, 0) << i;
    for (int i = 0; i < 22 * 64; ++i) { // animated tiles: 22 sets of 16 tiles, 4 frames each
        const int set = 0x9401 + rom.read_word(0x93D5 + 2 * (i / 64));
        EXPECT_LE(rom.read_word(set + 10 * (i / 4 % 16) + 2 * (i % 4)), 0x8000 - 128);
    }
    for (int sprite = 0; sprite <= 0x72; ++sprite) { // behind the item names, before the layers
        const std::int64_t at = sprite_graphics_offset(rom, static_cast<std::uint8_t>(sprite));
        EXPECT_TRUE(at >= 0x12C200 && at + 6 * 32 <= 0x19CF90) << sprite;
    }
}

TEST_F(DemoImage, EveryMapShowsSomething) {
    for (int map = demo::demo_map::town; map < map_count; ++map) {
        editor.choose(map);
        const auto& ground = state.map.layers[1].map.cells;
        EXPECT_NE(std::ranges::count(ground, ground[0]), std::ssize(ground)) << map;
        EXPECT_LT(std::stoi(form.Text13), 48) << map;
    }
    EXPECT_TRUE(editor.dialogs.silent());
}

TEST_F(DemoImage, ObjectsOfEveryKindStandOnTheirMaps) {
    constexpr std::size_t ends[] = {0x50200, 0x2D9100, 0x41C10, 0x1FDC00, 0x2E0200}; // of the kinds
    std::set<int> contents;
    for (const ObjectKind kind : all_kinds) {
        int next = list_of(0, kind).first_offset;
        for (int map = 0; map < map_count; ++map) {
            const ObjectList list = list_of(map, kind);
            ASSERT_EQ(list.first_offset, next) << map;
            next += list.count * static_cast<int>(place_of(kind).size);
            if (map < demo::demo_map::town) // the worlds
                continue;
            editor.choose(map);
            const int columns = side(form.Text2, form.Text1);
            const int rows = std::min(64, side(form.Text5, form.Text3));
            for (int i = 0; i < list.count; ++i) {
                const auto row = object_row(kind, list, i);
                EXPECT_LT(row[kind == npc ? 4 : 0], columns) << map;
                EXPECT_LT(kind == npc ? row[5] & 63 : row[1], rows) << map;
                EXPECT_TRUE(kind != npc || row[6] <= 0x72) << map;
                if (kind == chest)
                    contents.insert(row[3] & 0xF8);
            }
        }
        const auto end = place_of(kind).base + static_cast<std::size_t>(next);
        EXPECT_LE(end, ends[static_cast<std::size_t>(kind)]);
    }
    EXPECT_EQ(contents, (std::set{0x08, 0x10, 0x20, 0x40, 0x80}));
}

// An entrance and the tile of the map to which it leads.
struct Way {
    int map;
    ObjectKind kind;
    int index, to, x, y;
};

TEST_F(DemoImage, EveryWayLeadsBack) {
    std::vector<Way> ways;
    for (int map = demo::demo_map::town; map < map_count; ++map)
        for (const ObjectKind kind : {entrance, long_entrance}) {
            const ObjectList list = list_of(map, kind);
            for (int i = 0; i < list.count; ++i) {
                const auto to = object_row(kind, list, i).last(4);
                ways.push_back({map, kind, i, to[0] | to[1] << 8, to[2], to[3]});
            }
        }
    EXPECT_GT(ways.size(), 412u);
    const auto leads_to = [&](const Way& from, const Way& way) { // onto it or beside it
        if (from.to != way.map)
            return false;
        const ObjectList list = list_of(way.map, way.kind);
        for (int x = from.x - 1; x <= from.x + 1; ++x)
            for (int y = from.y - 1; y <= from.y + 1; ++y)
                if (object_covers(way.kind, list, way.index, x, y))
                    return true;
        return false;
    };
    for (const Way& way : ways)
        EXPECT_TRUE(std::ranges::any_of(ways, [&](const Way& back) {
            return leads_to(way, back) && leads_to(back, way);
        })) << way.map;
}

TEST_F(DemoImage, ScriptsFollowEachOtherAndHoldEveryCommandAndAction) {
    std::set<std::int64_t> meant; // by NPCs and triggers
    for (int map = 0; map < map_count; ++map)
        for (const ObjectKind kind : {npc, event_trigger}) {
            const ObjectList list = list_of(map, kind);
            for (int i = 0; i < list.count; ++i) {
                ObjectBytes record{};
                std::ranges::copy(object_row(kind, list, i), record.begin());
                meant.insert(script_offset(kind, record).value());
            }
        }
    std::set<std::int64_t> starts;
    std::set<int> commands, actions;
    std::int64_t at = 0xA0200;
    for (; at <= *meant.rbegin() || actions.size() < 256; at += state.script.loaded.length) {
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
    EXPECT_EQ(actions.size(), 256u);
    EXPECT_TRUE(editor.dialogs.silent());
}

TEST_F(DemoImage, DialoguesAreWhole) {
    std::set<std::string> texts;
    for (int number = 0; number < 3327; ++number)
        texts.insert(read_dialogue_text(rom, false, number).text);
    for (const std::string& text : texts) {
        EXPECT_EQ(text.find('('), std::string::npos) << text; // a code that is no letter
        EXPECT_LT(text.size(), 500u) << "a missing end";
    }
    EXPECT_TRUE(texts.contains("Lie down for a while?\r\n> Yes\r\n> No"));
    EXPECT_TRUE(texts.contains("Good to see you again, VARNA."));
}

TEST(DemoWorlds, LeadIntoTheOtherMaps) {
    for (const auto open : {open_world_of_dawn, open_world_of_dusk}) {
        Editor editor;
        open(*editor.state);
        EXPECT_TRUE(editor.dialogs.silent());
        EXPECT_LE(editor.state->world.world_packed_size, longest_world_stream);
        for (const ObjectKind kind : {event_trigger, entrance}) {
            const ObjectList& list = editor.state->objects.lists[kind];
            EXPECT_GT(list.row_count, 5);
            for (int i = 0; i < list.row_count; ++i) {
                const auto record = object_row(kind, list, i);
                const int first_sight = 96; // roads and whatever stands on the ground
                EXPECT_GE(editor.state->world.world_map.at(record[0], record[1]), first_sight) << i;
                const int target = record[2] | record[3] << 8;
                EXPECT_TRUE(kind != entrance ||
                            (target >= demo::demo_map::town && target < map_count));
            }
        }
    }
}

TEST(DemoWorlds, PackForEverySeed) {
    for (const unsigned seed : {2u, 9u, 4000000000u})
        EXPECT_EQ(demo::make_demo_image(seed).size(),
                  static_cast<std::size_t>(rom_layout::image_size));
}

TEST(DialogueBook, TakesTheCodeThatStandsForMost) {
    EXPECT_EQ(demo::encode_dialogue("The end...\n> VARNA"),
              (Bytes{0x9D, 0x80, 0xA4, 0x3D, 0x67, 0x01, 0x15, 0x02, 0x00}));
    EXPECT_THROW(demo::encode_dialogue("a | b"), std::invalid_argument);
}

} // namespace
} // namespace veldrune::test
