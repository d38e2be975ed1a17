#include "editor/commands.h"
#include "editor/view.h"
#include "render/build_tiles.h"
#include "support/editor_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace veldrune::test {
namespace {

using demo::demo_map::town;

/// The commands from first to last, in their order.
std::vector<Command> commands(Command first, Command last) {
    std::vector<Command> all;
    for (int command = static_cast<int>(first); command <= static_cast<int>(last); ++command)
        all.push_back(static_cast<Command>(command));
    return all;
}

std::vector<Colour> pixels_of(const Editor& editor) {
    const auto& pixels = editor.state->display.picture.pixels();
    return {pixels.begin(), pixels.end()};
}

TEST(Open, CancelAndFailureKeepTheOpenImageAndASecondOneLeavesTheFields) {
    Editor editor;
    EditorState& state = *editor.state;
    open_image(state); // cancelled
    editor.dialogs.file_names = {"missing.smc"};
    open_image(state);
    EXPECT_TRUE(state.rom_open);
    EXPECT_EQ(editor.form.Label20, "a.smc");
    editor.choose(town);
    const std::string location = editor.form.Text14;
    editor.disk.remove("a.smc"); // what is open stays open, whatever becomes of its name
    open_image_file(state, "missing.smc");
    EXPECT_EQ(state.rom.read_byte(0x2D9100), demo_bytes()[0x2D9100]);
    EXPECT_TRUE(editor.dialogs.silent());
    editor.disk["b.smc"] = {1, 2, 3}; // no game at all: opened without a word
    editor.dialogs.file_names = {"b.smc"};
    open_image(state);
    EXPECT_EQ(state.rom_path, "b.smc");
    EXPECT_EQ(editor.form.Text14, location);
    EXPECT_TRUE(state.map_selected);
    EXPECT_TRUE(editor.dialogs.silent());
}

TEST(SelectMap, DrawsNothingAndTheFirstMapLeavesTheBuildDeadUntilAHigherOneIsChosen) {
    Editor editor;
    Colour& corner = *editor.state->display.picture.row(0);
    corner = 7;
    for (const int map : {0, town}) {
        editor.form.Picture3.fill(7);
        run_command(*editor.state, Command::build_tileset);
        editor.choose(map);
        EXPECT_EQ(editor.form.Picture3[0], 0u);
        EXPECT_EQ(editor.state->map.map_properties, read_record(editor.state->rom, map));
        EXPECT_EQ(corner, 7u);
    }
    editor.choose(0); // works from then on
    run_command(*editor.state, Command::build_tileset);
    EXPECT_NE(corner, 7u);
}

TEST(SelectMap, AsksAboutUnsavedChangesAndLeavesTheWorldMapFirst) {
    Town editor;
    EditorState& state = editor.s;
    const auto layers = state.map.layers[0].map.cells;
    state.changes_saved = false;
    state.world_map_mode = state.world_map_open = editor.form.Text24_visible = true;
    editor.form.map_fields_enabled = editor.form.HScroll1.visible = false;
    editor.dialogs.answers = {false};
    editor.choose(4);
    EXPECT_EQ(editor.dialogs.questions,
              (std::vector<std::string>{
                  "Selecting another map without saving will erase your changes, continue?"}));
    EXPECT_EQ(std::pair(state.map.map_index, editor.form.Combo1), std::pair(town, 4)); // as clicked
    EXPECT_EQ(state.map.layers[0].map.cells, layers);
    EXPECT_FALSE(state.changes_saved || state.world_map_mode || state.world_map_open);
    EXPECT_TRUE(editor.form.HScroll1.visible);
    EXPECT_FALSE(editor.form.map_fields_enabled);
    editor.choose(4); // OK
    EXPECT_EQ(state.map.map_index, 4);
    EXPECT_TRUE(state.changes_saved && editor.form.map_fields_enabled);
    EXPECT_FALSE(editor.form.Text24_visible);
}

TEST(SelectMap, WhatTheDiskRefusesToGiveIsToldAndCantBeSaved) {
    for (int at = 1;; ++at) {
        Editor editor;
        editor.disk.fail({.at = at}, {});
        editor.choose(town);
        const bool refused = editor.disk.reads >= at;
        ASSERT_EQ(editor.dialogs.messages.size(), refused ? 1u : 0u) << at;
        ASSERT_EQ(editor.state->map.source.has_value(), !refused);
        editor.disk.fail({}, {});
        editor.choose(town); // and works once the disk does
        ASSERT_TRUE(editor.state->map.source);
        if (!refused)
            break;
    }
}

TEST(Build, SaysWhichTilesetsThereAreNone) {
    Town editor;
    editor.form.Text9 = "85";
    editor.form.Text10 = "2147483647";
    editor.form.Text11 = "x";
    run_command(editor.s, Command::build_tileset);
    EXPECT_EQ(editor.dialogs.messages,
              (Messages{{"There is no tileset 85: the highest is 84.", "Error"},
                        {"There is no tileset 2147483647: the highest is 84.", "Error"},
                        no_number("x", "decimal")}));
}

TEST(Build, ShowsWhatAMapsRecordAloneMakes) {
    const auto map = std::make_unique<ChosenMap>();
    const auto display = std::make_unique<MapDisplay>();
    const auto buffer = std::make_unique<DecompressBuffer>();
    for (const int number : {0, 1, town, 4, 5, 300, 413}) {
        Town editor;
        editor.choose(number);
        zoom_out(editor.s);
        run_command(editor.s, Command::build_tileset);
        load_map(editor.s.rom, number, *buffer, *map);
        build_tiles(editor.s.rom, tile_numbers(map->record_at_load), map->anim_tiles, *buffer,
                    display->bitmaps);
        const MapView view = record_view(*map, 32);
        compose_cells(display->bitmaps, view, 0, 0, 32, 32, display->picture);
        EXPECT_TRUE(display->picture == editor.s.display.picture) << number;
    }
}

TEST(Build, WritesNothingAndTakesTheFieldsAsTheyStand) {
    Town editor;
    const auto built = [&](Command command) {
        run_command(*editor.state, command);
        return pixels_of(editor);
    };
    const auto town_picture = built(Command::build_tileset);
    editor.choose(4);
    const auto mixed = built(Command::refresh_map); // the cave's cells with the town's tiles
    const auto cave = built(Command::build_tileset);
    EXPECT_NE(mixed, cave);
    editor.form.Text13 = "1";
    EXPECT_EQ(built(Command::refresh_map), cave); // a palette counts at the next tileset build only
    EXPECT_NE(built(Command::build_tileset), cave);
    editor.choose(town);
    EXPECT_EQ(built(Command::build_tileset), town_picture);
    EXPECT_TRUE(editor.dialogs.silent());
    EXPECT_EQ(editor.disk.writes, 0);
    EXPECT_TRUE(editor.image() == demo_bytes());
}

TEST(Build, BadNumbersWarnOnceEachAndTheBuildGoesOn) {
    Town editor;
    editor.form.Text18 = "x";
    editor.form.Text7 = "";
    editor.form.Text21 = "16 tiles";
    editor.form.Text9 = "85";
    run_command(*editor.state, Command::build_tileset);
    std::string titles;
    for (const auto& message : editor.dialogs.messages)
        titles += message.title + " ";
    EXPECT_EQ(titles, "Warning Error Warning Warning ");
    editor.dialogs.messages.clear();
    on_h_scroll(*editor.state);
    zoom_out(*editor.state);
    EXPECT_TRUE(editor.dialogs.silent()); // compositions read silently
}

TEST(Build, AReadThatTheDiskRefusesIsTold) {
    for (int at = 1; at <= 9; ++at) {
        Town editor;
        editor.disk.fail({.at = at}, {});
        run_command(*editor.state, Command::build_tileset);
        EXPECT_EQ(
            editor.dialogs.messages,
            (Messages{{"Reading a.smc failed. The tiles are not drawn as the image holds them.",
                       "Error"}}))
            << at;
    }
}

TEST(View, ScrollBarsFollowTheLargestLayerAndBuildsTreatThemDifferently) {
    Town editor;
    Form1& form = editor.form;
    form.Text1 = "128";
    form.Text2 = form.Text5 = form.Text3 = "16";
    form.Text21 = "32";
    form.Text22 = "64";
    form.Text25 = EMPTY_LAYER_TEXT; // its size counts even so
    run_command(*editor.state, Command::refresh_map);
    EXPECT_EQ(std::pair(form.HScroll1.maximum, form.VScroll1.maximum), std::pair(112, 48));
    form.HScroll1.value = 112;
    on_h_scroll(*editor.state);
    run_command(*editor.state, Command::build_tileset);
    EXPECT_EQ(form.HScroll1.value, 112); // a tileset build stays where it is
    zoom_out(*editor.state);
    EXPECT_EQ(form.Text4, "2");
    EXPECT_EQ(form.HScroll1.maximum, 112); // until the next scroll
    on_h_scroll(*editor.state);
    EXPECT_EQ(std::pair(form.HScroll1.maximum, form.HScroll1.value), std::pair(96, 96));
    form.Text1 = "16";
    form.Text21 = "0";
    run_command(*editor.state, Command::refresh_map);
    EXPECT_EQ(std::pair(form.HScroll1.maximum, form.HScroll1.value), std::pair(0, 0));
}

TEST(View, ZoomKeepsItsBoundsAndDrawsOnlyWithAMap) {
    Editor editor;
    editor.state->display.picture.fill(7);
    for (const char* text : {"0.5", "0.25", "0.25"}) {
        run_command(*editor.state, Command::zoom_in);
        EXPECT_EQ(editor.form.Text4, text);
    }
    EXPECT_EQ(editor.state->display.picture.pixels()[0], 7u);
    editor.choose(town);
    run_command(*editor.state, Command::zoom_in); // at the bound it still draws
    EXPECT_NE(editor.state->display.picture.pixels()[0], 7u);
}

TEST(View, Layer3IsMissingOpaqueOrHalfThere) {
    Town editor;
    for (const auto& [graphics, blend] : {std::pair{"5", Layer3Blend::half},
                                          {"6", Layer3Blend::opaque},
                                          {"7", Layer3Blend::half}}) {
        editor.form.Text23 = graphics;
        EXPECT_EQ(map_view(editor.s).stack.blend, blend) << graphics;
    }
    editor.form.Text25 = EMPTY_LAYER_TEXT;
    EXPECT_EQ(map_view(editor.s).stack.blend, Layer3Blend::none);
}

TEST(View, BoxesCountAtTheNextCompositionAndTheGridDrawsOver) {
    Town editor;
    run_command(*editor.state, Command::build_tileset);
    EditorState& state = editor.s;
    const auto full = pixels_of(editor);
    editor.form.Check5 = editor.form.Check6 = editor.form.Check7 = false;
    on_view_box_change(state);
    run_command(*editor.state, Command::refresh_map); // with no box ticked the old picture stays
    EXPECT_EQ(pixels_of(editor), full);
    EXPECT_FALSE(state.view_stale);
    editor.form.grid_on = true;
    on_grid_change(state);
    EXPECT_EQ(state.display.picture.row(32)[5], 0xFFFFFFu);
    EXPECT_NE(state.display.picture.row(33)[5], 0u); // over the picture as it stands
    editor.form.grid_on = false;
    on_grid_change(state);
    EXPECT_EQ(std::ranges::count(state.display.picture.pixels(), 0u), 512 * 512); // composes black
    editor.form.Check5 = editor.form.Check6 = editor.form.Check7 = true;
    on_view_box_change(state);
    const auto at = [&](int column) {
        editor.form.HScroll1.value = column;
        on_h_scroll(state);
        EXPECT_FALSE(state.view_stale);
        return pixels_of(editor);
    };
    const auto moved = at(1); // stale at first: everything is composed
    EXPECT_EQ(at(0), full);
    EXPECT_EQ(at(1), moved);
}

// The program without an image and, with one, without a map: what its guards are there for.
struct Guards : testing::TestWithParam<bool> {
    MemoryDisk disk;
    ScriptedDialogs dialogs;
    std::unique_ptr<EditorState> state = std::make_unique<EditorState>(disk, dialogs);

    void SetUp() override {
        if (!GetParam())
            return;
        disk["a.smc"] = demo_bytes();
        open_image_file(*state, "a.smc");
    }
};

TEST_P(Guards, TheMenusWriteWithAnImageAloneAndSayTheirTexts) {
    std::vector<Command> writing;
    for (const Command command : commands(Command::open, Command::show_about)) {
        if (command == Command::open_world_of_dawn || command == Command::open_world_of_dusk)
            continue; // have tests of their own
        run_command(*state, command);
        if (disk.writes != 0)
            writing.push_back(command);
        disk.writes = 0;
    }
    EXPECT_EQ(writing, GetParam()
                           ? (std::vector{Command::expand_rom, Command::apply_dialogue_patch})
                           : std::vector<Command>{});
    EXPECT_EQ(dialogs.messages,
              (Messages{{"Sorry, nothing here yet.", "Nothing here"},
                        {"Veldrune Map Editor: v1.1\n\nWith thanks to the people who keep old "
                         "games alive,\nand to all who still build new worlds in them.",
                         "Veldrune Map Editor"}}));
}

TEST_P(Guards, ButtonsAndMouseDoNothing) {
    for (const Command command : commands(Command::open_tile_chooser, Command::open_event_editor))
        run_command(*state, command);
    on_grid_change(*state);
    for (const MouseButton button : {MouseButton::left, MouseButton::right}) {
        on_press(*state, button, 5, 5);
        on_move(*state, 50, 5);
        on_release(*state);
        on_click(*state, 50, 5);
    }
    EXPECT_EQ(state->changes_saved, !GetParam()); // an image alone can be painted on
    EXPECT_FALSE(state->tile_picked);
    EXPECT_TRUE(dialogs.silent());
    EXPECT_EQ(disk.writes, 0);
    EXPECT_FALSE(state->form8.visible || state->form2.visible || state->form10.visible);
    EXPECT_EQ(std::ranges::count(state->display.picture.pixels(), 0u), 512 * 512);
}

INSTANTIATE_TEST_SUITE_P(WithAnImage, Guards, testing::Bool());

} // namespace
} // namespace veldrune::test
