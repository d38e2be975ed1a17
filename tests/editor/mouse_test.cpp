#include "editor/build.h"
#include "editor/view.h"
#include "support/editor_fixture.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

struct BuiltTown : Editor {
    explicit BuiltTown() {
        choose(demo::demo_map::town);
        build_tileset(*state);
    }
    LayerMap& layer(std::size_t index) { return state->layers[index].map; }
};

TEST(Mouse, PixelsBecomeTilesAtEveryZoom) {
    const struct {
        float zoom;
        int x, y;
        const char* label; // with the bars at 5 and 17
    } cases[] = {
        {1.0f, 33, 31, "6 11"},  {1.0f, 31, 32, "5 12"},         {0.25f, 128, 127, "6 11"},
        {0.5f, 511, 0, "C 11"},  {2.0f, 128, 511, "D 30"},       {1.0f, -33, 0, "4 11"},
        {1.0f, -31, -1, "5 11"}, {2.0f, -160, 0, "FFFFFFFB 11"},
    };
    for (const auto& c : cases) {
        Editor editor;
        editor.state->zoom = c.zoom;
        editor.form.HScroll1.value = 5;
        editor.form.VScroll1.value = 10;
        editor.form.VScroll2.value = 7;
        on_move(*editor.state, c.x, c.y);
        EXPECT_EQ(editor.form.Label26, c.label) << c.x;
    }
}

TEST(Mouse, APaintedCellLooksLikeAFullCompositionAndChangesOneTile) {
    Random random(7);
    for (int round = 0; round < 60; ++round) {
        BuiltTown town;
        EditorState& state = *town.state;
        const auto edit_layer = static_cast<std::size_t>(random.below(3));
        state.form1.edit_layer = static_cast<int>(edit_layer);
        state.form1.current_tile = random.below(256);
        state.zoom = 0.25f * static_cast<float>(1 << random.below(3));
        state.form1.HScroll1.value = random.below(3);
        compose_view(state);
        const int x = random.below(512);
        const int y = random.below(512);
        const auto before = state.layers;
        town.click(MouseButton::left, x, y);
        auto expected = before[edit_layer].map;
        expected.at(state.form1.HScroll1.value + x / tile_size(state), y / tile_size(state)) =
            static_cast<std::uint8_t>(state.form1.current_tile);
        for (std::size_t i = 0; i < layer_count; ++i)
            ASSERT_EQ(state.layers[i].map.cells,
                      i == edit_layer ? expected.cells : before[i].map.cells);
        ASSERT_FALSE(state.changes_saved);
        const auto painted = state.picture.pixels;
        compose_view(state);
        ASSERT_TRUE(painted == state.picture.pixels) << round;
    }
}

TEST(Mouse, ADragPaintsEveryCellThatItsEventsReachUntilTheRelease) {
    BuiltTown town;
    EditorState& state = *town.state;
    state.form1.edit_layer = 1;
    state.form1.current_tile = 77;
    const auto before = town.layer(1);
    on_press(state, MouseButton::left, 10, 10);
    EXPECT_EQ(town.layer(1).cells, before.cells); // the press itself paints nothing
    on_move(state, 40, 10);
    on_move(state, 200, 10);
    on_move(state, -40, 10); // outside the picture
    on_move(state, 600, 700);
    on_release(state);
    on_move(state, 300, 300);
    auto expected = before;
    expected.at(1, 0) = expected.at(6, 0) = 77;
    EXPECT_EQ(town.layer(1).cells, expected.cells);
}

TEST(Mouse, NothingIsPaintedOrPickedOutsideTheLayerMap) {
    BuiltTown town;
    EditorState& state = *town.state;
    state.form1.current_tile = 9;
    state.zoom = 2.0f;
    state.form1.HScroll1.value = 100;
    state.form1.VScroll1.value = 2147483647;
    const auto layers = state.layers[0].map.cells;
    town.click(MouseButton::left, 511, 511);
    state.form1.VScroll1.value = 0;
    town.click(MouseButton::left, 28 * 16 + 16, 0); // column 129
    town.click(MouseButton::right, 511, 0);
    EXPECT_EQ(state.layers[0].map.cells, layers);
    EXPECT_TRUE(state.changes_saved);
    EXPECT_EQ(state.form1.current_tile, 9);
    state.form1.Text2 = "16";
    town.click(MouseButton::left, 28 * 16, 0); // column 128, behind the layer, inside the array
    EXPECT_EQ(state.layers[0].map.at(128, 0), 9);
}

TEST(Mouse, APickTakesTheTileAndItsClickPaintsNothing) {
    BuiltTown town;
    EditorState& state = *town.state;
    state.form1.current_tile = 200;
    town.layer(0).at(2, 1) = 5;
    const auto before = town.layer(0);
    town.click(MouseButton::right, 70, 40); // with the "Draw" tool
    EXPECT_EQ(state.form1.current_tile, 5);
    EXPECT_EQ(town.layer(0).cells, before.cells);
    EXPECT_TRUE(state.changes_saved);
    const Formation tile = whole_formation(state.bitmaps, 0, 5);
    EXPECT_EQ(state.form1.Picture3[64 * 63 + 63], tile[255]);
    EXPECT_EQ(state.form1.Picture3[64 * 4 + 3], tile[16]);

    state.form1.tool = Tool::get_tile;
    town.layer(0).at(0, 0) = 6;
    town.click(MouseButton::left, 0, 0);
    EXPECT_EQ(state.form1.current_tile, 6);
    EXPECT_EQ(state.form1.tool, Tool::draw);
    town.click(MouseButton::left, 70, 40); // one more press paints again
    EXPECT_EQ(town.layer(0).at(2, 1), 6);

    state.form1.tool = Tool::objects;
    town.click(MouseButton::left, 0, 0);
    EXPECT_FALSE(state.painting);
    EXPECT_EQ(town.layer(0).at(0, 0), 6);
}

TEST(Mouse, WithoutAnImageNothingHappens) {
    MemoryDisk disk;
    ScriptedDialogs dialogs;
    const auto state = std::make_unique<EditorState>(disk, dialogs);
    on_press(*state, MouseButton::left, 5, 5);
    on_move(*state, 50, 5);
    on_release(*state);
    on_click(*state, 50, 5);
    on_press(*state, MouseButton::right, 5, 5);
    EXPECT_TRUE(state->changes_saved);
    EXPECT_FALSE(state->tile_picked);
}

} // namespace
} // namespace veldrune::test
