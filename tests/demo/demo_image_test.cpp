// What the demo image promises to the tests, the benchmarks and whoever tries the editor on it.

#include "compression/compress.h"
#include "demo/dialogue_book.h"
#include "dialogue/dialogue_text.h"
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

TEST_F(DemoImage, StructuresLieInTheirAreasAndHaveTheirSizes) {
    // clang-format off
    const struct { int table, count, start, end; std::size_t size; } areas[] = { // 0: any size
        {0x19CF90, 352, 0x19D3B0, 0x1E0200, 0}, {0x1FBC00, 85, 0x1E0200, 0x1FBC00, 2048}, {0x26CF60, 21, 0x268980, 0x26CF60, 4096}};
    // clang-format on
    CompressOutput packed;
    for (const auto& area : areas)
        for (int i = 0; i < area.count; ++i) {
            const int at = area.start + rom.read_pointer24(area.table + 3 * i);
            const int size = rom.read_word(at);
            ASSERT_LE(at + size, area.end) << i;
            decompress_stream(rom, at, state.decompress_buffer, layer_output_limit);
            EXPECT_TRUE(area.size == 0 ||
                        compress_layer({state.decompress_buffer.output(), area.size}, packed) ==
                            static_cast<std::size_t>(size));
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

TEST_F(DemoImage, MapsShowAllThatARecordCanSay) {
    std::set<std::string> widths, heights;
    std::set<int> orders;
    for (int map = demo::demo_map::town; map < map_count; ++map) {
        editor.choose(map);
        const auto& ground = state.layers[1].map.cells;
        EXPECT_NE(std::ranges::count(ground, ground[0]), std::ssize(ground)) << map;
        EXPECT_LT(std::stoi(form.Text13), 48) << map;
        widths.insert({form.Text2, form.Text1, form.Text21});
        heights.insert({form.Text5, form.Text3, form.Text22});
        if (state.layers[2].layer_offset != 0)
            orders.insert(state.layer3_order);
    }
    EXPECT_EQ(widths, (std::set<std::string>{"128", "16", "32", "64"}));
    EXPECT_EQ(heights, widths);
    EXPECT_EQ(orders, (std::set{0, 1, 2}));
    EXPECT_TRUE(editor.dialogs.silent());
    using namespace demo::demo_map;
    // clang-format off
    const struct { int map, order; } named[] = { // -1: no layer 3
        {town, 2}, {forest, 2}, {cave, 2}, {castle_hall, -1}, {interior, -1}, {night_hall, 0}, {misty_town, 1}};
    // clang-format on
    for (const auto& [map, order] : named) {
        editor.choose(map);
        EXPECT_EQ(state.layers[2].layer_offset == 0 ? -1 : state.layer3_order, order) << map;
    }
}

// Whether an object can be clicked on a tile or beside it.
bool stands_near(ObjectKind kind, const ObjectList& list, int index, int x, int y) {
    for (int i = 0; i < 9; ++i)
        if (object_covers(kind, list, index, x - 1 + i % 3, y - 1 + i / 3))
            return true;
    return false;
}

TEST_F(DemoImage, ObjectsStandOnTheirMapsAndEveryWayLeadsBack) {
    constexpr int ends[] = {0x50200, 0x2D9100, 0x41C10, 0x1FDC00, 0x2E0200};
    std::vector<ObjectLists> maps(map_count);
    const auto list_of = [&](int map, ObjectKind kind) -> ObjectList& {
        return maps.at(static_cast<std::size_t>(map))[kind];
    };
    std::set<int> contents;
    for (const ObjectKind kind : all_kinds) {
        const auto n = static_cast<std::size_t>(kind);
        const int record_size = static_cast<int>(place_of(kind).size);
        int next = read_object_extent(rom, kind, 0).first_offset;
        for (int map = 0; map < map_count; ++map) {
            ObjectList& list = list_of(map, kind);
            load_object_list(rom, kind, map, list);
            ASSERT_EQ(list.first_offset, next) << map;
            next += list.count * record_size;
            if (map < demo::demo_map::town) // the worlds
                continue;
            editor.choose(map);
            for (int i = 0; i < list.count; ++i) {
                const auto row = object_row(kind, list, i);
                EXPECT_LT(row[kind == npc ? 4 : 0], side(form.Text2, form.Text1)) << map;
                EXPECT_LT(kind == npc ? row[5] & 63 : row[1],
                          std::min(64, side(form.Text5, form.Text3)))
                    << map;
                EXPECT_TRUE(kind != npc || row[6] <= 0x72) << map;
                if (kind == chest)
                    contents.insert(row[3] & 0xF8);
            }
        }
        EXPECT_LE(static_cast<int>(place_of(kind).base) + next, ends[n]);
    }
    EXPECT_EQ(contents, (std::set{0x08, 0x10, 0x20, 0x40, 0x80}));
    struct Way {
        int map;
        ObjectKind kind;
        int index, to, x, y;
    };
    std::vector<Way> ways;
    for (int map = demo::demo_map::town; map < map_count; ++map)
        for (const ObjectKind kind : {entrance, long_entrance})
            for (int i = 0; i < list_of(map, kind).count; ++i) {
                const auto to = object_row(kind, list_of(map, kind), i).last(4);
                ways.push_back({map, kind, i, to[0] | to[1] << 8, to[2], to[3]});
            }
    EXPECT_GT(ways.size(), 412u);
    const auto leads_to = [&](const Way& from, const Way& way) {
        return from.to == way.map &&
               stands_near(way.kind, list_of(way.map, way.kind), way.index, from.x, from.y);
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
            ObjectList list;
            load_object_list(rom, kind, map, list);
            for (int i = 0; i < list.count; ++i) {
                ObjectBytes record{};
                std::ranges::copy(object_row(kind, list, i), record.begin());
                meant.insert(script_offset(kind, record).value());
            }
        }
    std::set<std::int64_t> starts;
    std::set<int> commands, actions;
    std::int64_t at = 0xA0200;
    for (; at <= *meant.rbegin() || actions.size() < 256; at += state.script.length) {
        starts.insert(at);
        state.selected_object.script_offset = at;
        open_event_editor(state);
        ASSERT_TRUE(state.script.whole && at < 0xCE802) << at;
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

TEST_F(DemoImage, DialoguesStayInTheirBanksAndCoverWhatATextCanHold) {
    std::set<std::string> texts;
    std::size_t longest = 0;
    for (int number = 0; number < 3327; ++number)
        texts.insert(read_dialogue_text(rom, false, number).text);
    for (const std::string& text : texts) { // without a code that is no letter, or a missing end
        EXPECT_EQ(text.find('('), std::string::npos) << text;
        longest = std::max(longest, text.size());
    }
    EXPECT_LT(longest, 500u);
    EXPECT_GT(texts.size(), 300u);
    EXPECT_GT(longest, 150u);
    EXPECT_TRUE(texts.contains("Lie down for a while?\r\n> Yes\r\n> No"));
    EXPECT_TRUE(texts.contains("Good to see you again, VARNA."));
}

TEST(DialogueBook, TakesTheCodeThatStandsForMost) {
    EXPECT_EQ(demo::encode_dialogue("The end...\n> VARNA"),
              (Bytes{0x9D, 0x80, 0xA4, 0x3D, 0x67, 0x01, 0x15, 0x02, 0x00}));
    EXPECT_THROW(demo::encode_dialogue("a | b"), std::invalid_argument);
}

} // namespace
} // namespace veldrune::test
