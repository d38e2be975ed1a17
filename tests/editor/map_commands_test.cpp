#include "editor/map_commands.h"
#include "editor/tile_chooser.h"
#include "support/editor_fixture.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

using demo::demo_map::town;

TEST(Clipboard, CarriesTheWholeRecordAndNothingTyped) {
    Editor editor;
    EditorState& state = *editor.state;
    paste_properties(state); // no map was chosen
    EXPECT_EQ(editor.form.Text25, "");
    editor.choose(0);
    paste_properties(state); // nothing was copied: zeros
    EXPECT_EQ(editor.form.Text2 + editor.form.Text5 + editor.form.Text6, "16160");
    editor.choose(3);
    const MapProperties record = state.map.map_properties;
    const Form1 shown = editor.form;
    editor.form.Text13 = "99";
    copy_properties(state);
    editor.choose(town);
    const auto cells = state.map.layers[0].map.cells;
    paste_properties(state);
    EXPECT_EQ(state.map.map_properties, record);
    EXPECT_EQ(editor.form.Text13 + " " + editor.form.Text14, shown.Text13 + " " + shown.Text14);
    EXPECT_EQ(state.map.layers[0].map.cells, cells);
    EXPECT_EQ(editor.disk.writes, 0);
}

TEST(ClearMap, EmptiesTheThreeLayersInMemory) {
    Town editor(true);
    for (const bool world : {true, false}) { // not over a world map
        for (Layer& layer : editor.s.map.layers)
            layer.map.cells.fill(7);
        editor.s.world_map_mode = world;
        editor.form.grid_on = true;
        clear_map(editor.s);
        for (const Layer& layer : editor.s.map.layers)
            for (int row = 0; row < 65; ++row)
                for (int column = 0; column < 129; ++column)
                    ASSERT_EQ(layer.map.at(column, row), row < 64 && !world ? 0 : 7);
    }
    EXPECT_TRUE(editor.s.changes_saved);
    const PixelBuffer& picture = editor.s.display.picture;
    for (int i = 0; i < 512; ++i) // formation 0 in every cell, and no grid
        ASSERT_EQ(picture.row(i)[i], picture.row(i % 32)[i % 32]);
    EXPECT_NE(picture.row(0)[0], 0xFFFFFFu);
}

TEST(TileChooser, ShowsTheTilesOfALayerAndTakesOne) {
    Town editor(true);
    EditorState& state = editor.s;
    editor.form.edit_layer = 1;
    open_tile_chooser(state);
    EXPECT_TRUE(state.form8.visible && state.form2.visible);
    for (const int layer : {1, 0, 2}) {
        if (layer != 1) {
            state.form2.layer = layer;
            on_palette_layer(state);
        }
        EXPECT_EQ(std::pair(editor.form.edit_layer, state.form2.layer), std::pair(layer, layer));
        for (int i = 0; i < 512 * 512; ++i) {
            const int x = i % 512, y = i / 512, pixel = y % 32 / 2 * 16 + x % 32 / 2;
            const Formation tile =
                whole_formation(state.display.bitmaps, layer, y / 32 * 16 + x / 32);
            ASSERT_EQ(state.display.tile_sheet.row(y)[x],
                      x % 32 == 0 || y % 32 == 0 ? 0xFFFFFF
                                                 : tile[static_cast<std::size_t>(pixel)]);
        }
    }
    choose_tile(state, -1, 0);
    choose_tile(state, 0, 512);
    EXPECT_TRUE(state.form8.visible);
    choose_tile(state, 32 * 3 + 31, 32 * 2);
    EXPECT_EQ(editor.form.current_tile, 35);
    EXPECT_FALSE(state.form8.visible || state.form2.visible);
    for (int i = 0; i < 64 * 64; ++i) // the lines come along
        ASSERT_EQ(editor.form.Picture3[static_cast<std::size_t>(i)],
                  state.display.tile_sheet.row(64 + i / 64 / 2)[96 + i % 64 / 2]);
}

} // namespace
} // namespace veldrune::test
