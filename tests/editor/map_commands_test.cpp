#include "editor/map_commands.h"
#include "editor/tile_chooser.h"
#include "support/editor_fixture.h"

#include <gtest/gtest.h>

namespace veldrune::test {

TEST(Clipboard, CarriesTheWholeRecordAndNothingTyped) {
    Editor editor;
    EditorState& state = editor.s;
    paste_properties(state); // no map was chosen
    EXPECT_EQ(editor.form.Text25, "");
    editor.choose(3);
    state.map.map_properties[25] = 33; // as a save leaves it: the palette
    const MapProperties record = state.map.map_properties;
    const std::string location = editor.form.Text14;
    editor.form.Text13 = "99";
    copy_properties(state);
    editor.choose(demo::demo_map::town);
    paste_properties(state);
    EXPECT_EQ(state.map.map_properties, record);
    EXPECT_EQ(editor.form.Text13 + " " + editor.form.Text14, "33 " + location);
    EXPECT_EQ(editor.disk.writes, 0);
}

TEST(ClearMap, EmptiesTheThreeLayersInMemory) {
    Town town(true);
    town.form.grid_on = true;
    LayerMap expected;
    std::fill(expected.cells.begin() + 64 * 129, expected.cells.end(), std::uint8_t{7});
    for (const bool world : {true, false}) { // not over a world map
        for (Layer& layer : town.s.map.layers)
            layer.map.cells.fill(7);
        town.s.world_map_mode = world;
        clear_map(town.s);
        for (const Layer& layer : town.s.map.layers)
            ASSERT_TRUE(world ? layer.map.at(128, 63) == 7 : layer.map.cells == expected.cells);
    }
    EXPECT_TRUE(town.s.changes_saved);
    const PixelBuffer& picture = town.s.display.picture;
    for (int i = 0; i < 512; ++i) // formation 0 in every cell, and no grid
        ASSERT_EQ(picture.row(i)[i], picture.row(i % 32)[i % 32]);
    EXPECT_NE(picture.row(0)[0], 0xFFFFFFu);
}

TEST(TileChooser, ShowsTheTilesOfALayerAndTakesOne) {
    Town town(true);
    EditorState& state = town.s;
    town.form.edit_layer = 1;
    open_tile_chooser(state);
    EXPECT_TRUE(state.form8.visible && state.form2.visible);
    for (const int layer : {1, 0, 2}) {
        if (std::exchange(state.form2.layer, layer) != layer)
            on_palette_layer(state);
        EXPECT_EQ(std::pair(town.form.edit_layer, state.form2.layer), std::pair(layer, layer));
        const Formation tile17 = whole_formation(state.display.bitmaps, layer, 17);
        EXPECT_EQ(state.display.tile_sheet.row(37)[41], tile17[2 * 16 + 4]);
        EXPECT_EQ(state.display.tile_sheet.row(32)[41], 0xFFFFFF);
    }
    choose_tile(state, -1, 0);
    choose_tile(state, 0, 512);
    EXPECT_TRUE(state.form8.visible);
    choose_tile(state, 32 * 3 + 31, 32 * 2);
    EXPECT_EQ(town.form.current_tile, 35);
    EXPECT_FALSE(state.form8.visible || state.form2.visible);
    for (int i = 0; i < 64 * 64; ++i) // the lines come along
        ASSERT_EQ(town.form.Picture3.row(i / 64)[i % 64],
                  state.display.tile_sheet.row(64 + i / 64 / 2)[96 + i % 64 / 2]);
}

} // namespace veldrune::test
