#include "editor/view.h"
#include "editor/view_place.h"
#include "support/editor_fixture.h"

#include <gtest/gtest.h>

namespace veldrune::test {

constexpr auto left = MouseButton::left, right = MouseButton::right;

TEST(Mouse, PixelsBecomeTilesAtEveryZoom) {
    const std::tuple<float, int, int, const char*> cases[] = {
        {0.25f, 128, 127, "6 11"},
        {1.0f, 31, 32, "5 12"},
        {2.0f, 128, 511, "D 30"},
        // Outside of the picture, with the button held.
        {1.0f, -31, -1, "5 11"},
        {2.0f, -160, 0, "FFFFFFFB 11"}};
    Editor editor;
    editor.form.HScroll1.value = 5;
    editor.form.VScroll1.value = 10;
    editor.form.VScroll2.value = 7;
    for (const auto& [zoom, x, y, label] : cases) {
        editor.s.zoom = zoom;
        on_move(editor.s, x, y);
        EXPECT_EQ(editor.form.Label26, label) << x;
    }
}

TEST(Mouse, AStrokePaintsTheCellsThatItsEventsReachAsAFullCompositionWould) {
    Random random(7);
    Town town(true);
    Form1& form = town.form;
    for (int round = 0; round < 60; ++round) {
        const int layer = form.edit_layer = random.below(3);
        form.current_tile = random.below(256);
        town.s.zoom = 0.25f * static_cast<float>(1 << random.below(3));
        form.HScroll1.value = random.below(3);
        town.s.changes_saved = true;
        compose_view(town.s.map, town.form, town.s.zoom, town.s.display);
        auto expected = town.s.map.layers;
        const int size = tile_size(town.s.zoom);
        const std::pair<int, int> places[] = {{random.below(512), random.below(512)}, {511, 0}};
        on_press(town.s, left, 200, 200); // paints nothing by itself
        for (const auto& [x, y] : {places[0], places[1], {-40, 10}, {600, 700}}) // some outside
            on_move(town.s, x, y);
        on_release(town.s);
        on_move(town.s, 300, 300);
        for (const auto& [x, y] : places)
            expected[static_cast<std::size_t>(layer)].map.at(form.HScroll1.value + x / size,
                                                             y / size) =
                static_cast<std::uint8_t>(form.current_tile);
        for (std::size_t i = 0; i < layer_count; ++i)
            ASSERT_EQ(town.map(i).cells, expected[i].map.cells);
        ASSERT_FALSE(town.s.changes_saved);
        const auto painted = town.s.display.picture.pixels();
        compose_view(town.s.map, town.form, town.s.zoom, town.s.display);
        ASSERT_TRUE(painted == town.s.display.picture.pixels()) << round;
    }
    town.s.changes_saved = true; // nothing is painted outside the layer's map
    for (const auto& [h, v] : {std::pair(129, 0), std::pair(0, 2147483647)}) {
        form.HScroll1.value = h;
        form.VScroll1.value = v;
        town.click(left, 0, 511);
    }
    EXPECT_TRUE(town.s.changes_saved);
}

TEST(Mouse, APickTakesTheTileAndItsClickPaintsNothing) {
    Town town(true);
    town.form.current_tile = 200;
    town.map(0).at(2, 1) = 5;
    town.map(0).at(0, 0) = 6;
    const auto before = town.map(0).cells;
    town.click(right, 70, 40); // with the "Draw" tool
    EXPECT_EQ(town.form.current_tile, 5);
    const Formation tile = whole_formation(town.s.display.bitmaps, 0, 5);
    EXPECT_EQ(town.form.Picture3[64 * 63 + 63], tile[255]);
    town.form.tool = Tool::get_tile;
    town.click(left, 0, 0);
    EXPECT_TRUE(town.form.current_tile == 6 && town.form.tool == Tool::draw);
    EXPECT_TRUE(town.map(0).cells == before && town.s.changes_saved);
    town.click(left, 70, 40); // one more press paints again
    EXPECT_EQ(town.map(0).at(2, 1), 6);
}

} // namespace veldrune::test
