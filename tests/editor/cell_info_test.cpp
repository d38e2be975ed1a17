#include "editor/cell_info.h"
#include "editor/cursor.h"
#include "editor/view.h"
#include "editor/view_place.h"
#include "editor/world_map.h"
#include "support/editor_fixture.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

TEST(CellInfo, NamesThePlaceAndTheTilesThatAreThere) {
    Editor none;
    EXPECT_EQ(map_cell_text(none.s, 0, 0), "");
    EXPECT_FALSE(tile_to_paint(none.s, 0, 0));
    Town town(true);
    EditorState& s = town.s;
    town.form.HScroll1.value = 16;
    town.form.VScroll1.value = 8;
    town.map(0).at(31, 10) = 0x3C;
    town.map(1).at(31, 10) = town.map(2).at(31, 10) = 5;
    EXPECT_EQ(map_cell_text(s, 511, 64),
              "column 1F, row 0A - layer 1: 3C, layer 2: 05, layer 3: 05");
    town.form.Text1 = "31"; // too narrow
    town.form.Text25 = EMPTY_LAYER_TEXT;
    EXPECT_EQ(map_cell_text(s, 511, 64),
              "column 1F, row 0A - layer 1: 3C, layer 2: --, layer 3: --");
    EXPECT_EQ(map_cell_text(s, 512, 64) + map_cell_text(s, 0, -1), "");
    EXPECT_FALSE(tile_to_paint(s, 512, 64));
    town.form.current_tile = 0x21;
    town.form.edit_layer = 1;
    s.display.bitmaps.layer2_low[0x21][5] = 0x123456;
    s.display.bitmaps.layer2_high[0x21][5] = s.display.bitmaps.layer2_low[0x21][6] = 0;
    s.display.bitmaps.layer2_high[0x21][6] = 0;
    const Formation tile = tile_to_paint(s, 511, 64).value();
    EXPECT_EQ(std::pair(tile[5], tile[6]), std::pair(0xFF123456u, 0u));
    town.form.tool = Tool::get_tile;
    EXPECT_FALSE(tile_to_paint(s, 511, 64));
    town.form.tool = Tool::draw;
    town.form.VScroll1.value = 64;
    EXPECT_EQ(map_cell_text(s, 0, 32), "column 10, row 41 - outside the map");

    open_world_of_dawn(s);
    town.form.HScroll2.value = 224;
    s.world.world_map.at(255, 2) = 0xAB;
    EXPECT_EQ(map_cell_text(s, 511, 32), "column FF, row 02 - tile AB");
    s.world.world_sheet.tile(0x21)[3 * 256 + 5] = 0; // black
    EXPECT_EQ(tile_to_paint(s, 0, 0).value()[3 * 16 + 5], 0xFF000000u);
    EXPECT_EQ(sheet_cell_text(3 * 32 + 31, 12 * 32), "column 03, row 0C - tile C3");
}

// The bars of a map of 64 by 32 tiles can go up to what isn't in view.
TEST(ZoomAbout, KeepsTheTileUnderThePointerAsFarAsTheBarsGo) {
    Random random(11);
    Town town(true);
    EditorState& s = town.s;
    Form1& form = town.form;
    const auto kept = [](std::int64_t before, std::int64_t after, int bar, int maximum) {
        return before == after || (after > before && bar == 0) ||
               (after < before && bar == maximum);
    };
    for (int round = 0; round < 60; ++round) {
        s.zoom = 0.25f * static_cast<float>(1 << random.below(4));
        form.HScroll1.value = random.below(65 - cells_across(s.zoom));
        form.VScroll1.value = random.below(33 - cells_across(s.zoom));
        const int x = random.below(512), y = random.below(512);
        const Cursor before = locate_cursor(s, x, y);
        zoom_about(s, random.below(2) ? 1 : -1, x, y);
        const Cursor after = locate_cursor(s, x, y);
        const int across = cells_across(s.zoom);
        ASSERT_TRUE(kept(before.column, after.column, form.HScroll1.value, 64 - across)) << round;
        ASSERT_TRUE(kept(before.row, after.row, form.VScroll1.value, 32 - across)) << round;
        const auto shown = s.display.picture.pixels();
        compose_view(s.map, form, s.zoom, s.display);
        ASSERT_TRUE(shown == s.display.picture.pixels()) << round;
    }
    open_world_of_dawn(s);
    zoom_about(s, 2, 100, 100);
    EXPECT_EQ(s.zoom, farthest_zoom);
}

} // namespace
} // namespace veldrune::test
