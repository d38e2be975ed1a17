#include "compression/compress.h"
#include "editor/build.h"
#include "editor/commands.h"
#include "editor/view.h"
#include "rom/rom_layout.h"
#include "support/editor_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace veldrune::test {
namespace {

using demo::demo_map::town;

void press(Editor& editor, const std::string& control) {
    for (const ButtonCommand& button : button_commands())
        if (control == button.control)
            run_command(*editor.state, button.guard, button.run);
}

std::uint64_t picture_hash(const EditorState& state) {
    std::uint64_t hash = 1469598103934665603u;
    for (const Colour colour : state.picture.pixels)
        hash = (hash ^ colour) * 1099511628211u;
    return hash;
}

TEST(Open, CancelAndFailureKeepTheOpenImage) {
    Editor editor;
    open_image(*editor.state); // cancelled
    editor.dialogs.file_names = {"missing.smc"};
    open_image(*editor.state);
    EXPECT_TRUE(editor.state->rom.is_open());
    EXPECT_TRUE(editor.state->rom_open);
    EXPECT_EQ(editor.form.Label20, "a.smc");
    EXPECT_TRUE(editor.dialogs.silent());
    editor.disk.remove("a.smc"); // what is open stays open, whatever becomes of its name
    open_image_file(*editor.state, "missing.smc");
    EXPECT_EQ(editor.state->rom.read_byte(0x2D9100), demo_bytes()[0x2D9100]);
}

TEST(Open, ASecondImageTakesThePlaceAndLeavesTheFields) {
    Editor editor;
    editor.choose(town);
    const std::string location = editor.form.Text14;
    editor.disk["b.smc"] = {1, 2, 3}; // no game at all: opened without a word
    editor.dialogs.file_names = {"b.smc"};
    open_image(*editor.state);
    EXPECT_EQ(editor.state->rom_path, "b.smc");
    EXPECT_EQ(editor.form.Text14, location);
    EXPECT_TRUE(editor.state->map_selected);
    editor.choose(5); // garbage, but no harm
    press(editor, "Command3");
    press(editor, "Command2");
}

TEST(SelectMap, FillsFieldsAndLayersAndDrawsNothing) {
    Editor editor;
    editor.state->picture.pixels.fill(7);
    editor.form.Picture3.fill(7);
    editor.choose(0);
    EXPECT_FALSE(editor.state->map_selected);
    press(editor, "Command3"); // dead before a higher map was chosen once
    EXPECT_EQ(editor.state->picture.pixels[0], 7u);
    editor.choose(town);
    EXPECT_TRUE(editor.state->map_selected);
    EXPECT_EQ(editor.state->picture.pixels[0], 7u);
    EXPECT_EQ(editor.form.Picture3[0], 0u);
    EXPECT_EQ(editor.state->map_properties, read_record(editor.state->rom, town));
    for (std::size_t i = 0; i < layer_count; ++i) {
        Layer& layer = editor.state->layers[i];
        EXPECT_EQ(layer.layer_packed_size,
                  editor.state->rom.read_word(rom_layout::layer_data + layer.layer_offset));
        EXPECT_EQ(editor.form.*layer_controls[i].location,
                  i == 2 && layer.layer_offset == 0 ? std::string(EMPTY_LAYER_TEXT)
                                                    : editor.form.*layer_controls[i].location);
    }
    editor.choose(0); // and works from then on
    press(editor, "Command3");
    EXPECT_NE(editor.state->picture.pixels[0], 7u);
}

TEST(SelectMap, AsksAboutUnsavedChangesAndLeavesTheWorldMapFirst) {
    Editor editor;
    editor.choose(town);
    EditorState& state = *editor.state;
    const auto layers = state.layers[0].map.cells;
    state.changes_saved = false;
    state.world_map_mode = state.world_map_open = true;
    editor.form.map_fields_enabled = false;
    editor.form.Text24_visible = true;
    editor.form.HScroll1.visible = false;
    editor.dialogs.answers = {false};
    editor.choose(4);
    EXPECT_EQ(editor.dialogs.questions,
              (std::vector<std::string>{
                  "Selecting another map without saving will erase your changes, continue?"}));
    EXPECT_EQ(state.map_index, town);
    EXPECT_EQ(editor.form.Combo1, 4); // the list keeps the row that was clicked
    EXPECT_EQ(state.layers[0].map.cells, layers);
    EXPECT_FALSE(state.changes_saved || state.world_map_mode || state.world_map_open);
    EXPECT_TRUE(editor.form.HScroll1.visible);
    EXPECT_FALSE(editor.form.map_fields_enabled);
    editor.choose(4); // OK
    EXPECT_TRUE(state.changes_saved);
    EXPECT_EQ(state.map_index, 4);
    EXPECT_TRUE(editor.form.map_fields_enabled);
    EXPECT_FALSE(editor.form.Text24_visible);
}

TEST(SelectMap, WhatTheDiskRefusesToGiveIsToldAndCantBeSaved) {
    for (int at = 1;; ++at) {
        Editor editor;
        editor.disk.fail({at}, {});
        editor.choose(town);
        const bool refused = editor.disk.reads >= at;
        ASSERT_EQ(editor.dialogs.messages.size(), refused ? 1u : 0u) << at;
        ASSERT_EQ(editor.state->map_source.has_value(), !refused);
        editor.disk.fail({}, {});
        editor.choose(town); // and works once the disk does
        ASSERT_TRUE(editor.state->map_source);
        if (!refused)
            break;
    }
}

TEST(Build, WritesNothingAndTakesTheFieldsAsTheyStand) {
    Editor editor;
    editor.choose(town);
    press(editor, "Command3");
    EXPECT_TRUE(editor.dialogs.silent());
    const std::uint64_t town_hash = picture_hash(*editor.state);
    editor.choose(4);
    press(editor, "Command2"); // the cave's cells with the town's tiles
    const std::uint64_t mixed = picture_hash(*editor.state);
    press(editor, "Command3");
    const std::uint64_t cave = picture_hash(*editor.state);
    EXPECT_NE(mixed, cave);
    editor.form.Text13 = "1";
    press(editor, "Command2"); // a palette counts at the next tileset build only
    EXPECT_EQ(picture_hash(*editor.state), cave);
    press(editor, "Command3");
    EXPECT_NE(picture_hash(*editor.state), cave);
    editor.choose(town);
    press(editor, "Command3");
    EXPECT_EQ(picture_hash(*editor.state), town_hash);
    EXPECT_EQ(editor.disk.writes, 0);
    EXPECT_EQ(editor.image(), demo_bytes());
}

TEST(Build, BadNumbersWarnOnceEachAndTheBuildGoesOn) {
    Editor editor;
    editor.choose(town);
    editor.form.Text18 = "x", editor.form.Text7 = "", editor.form.Text21 = "16 tiles";
    editor.form.Text9 = "85";
    press(editor, "Command3");
    std::vector<std::string> titles;
    for (const auto& message : editor.dialogs.messages)
        titles.push_back(message.title);
    EXPECT_EQ(titles, (std::vector<std::string>{"Warning", "Error", "Warning", "Warning"}));
    editor.dialogs.messages.clear();
    on_h_scroll(*editor.state);
    zoom_out(*editor.state);
    EXPECT_TRUE(editor.dialogs.silent()); // compositions read silently
}

TEST(View, ScrollBarsFollowTheLargestLayerAndBuildsTreatThemDifferently) {
    Editor editor;
    editor.choose(town);
    Form1& form = editor.form;
    form.Text2 = "16", form.Text1 = "128", form.Text21 = "32";
    form.Text5 = "16", form.Text3 = "16", form.Text22 = "64";
    form.Text25 = EMPTY_LAYER_TEXT; // counts even so
    press(editor, "Command2");
    EXPECT_EQ(form.HScroll1.maximum, 112);
    EXPECT_EQ(form.VScroll1.maximum, 48);
    form.HScroll1.value = 112;
    on_h_scroll(*editor.state);
    press(editor, "Command3");
    EXPECT_EQ(form.HScroll1.value, 112); // a tileset build stays where it is
    zoom_out(*editor.state);
    EXPECT_EQ(form.Text4, "2");
    EXPECT_EQ(form.HScroll1.maximum, 112); // until the next scroll
    on_h_scroll(*editor.state);
    EXPECT_EQ(form.HScroll1.maximum, 96);
    EXPECT_EQ(form.HScroll1.value, 96);
    form.Text1 = "16", form.Text21 = "0";
    press(editor, "Command2");
    EXPECT_EQ(form.HScroll1.value, 0);
    EXPECT_EQ(form.HScroll1.maximum, 0); // never below 0
}

TEST(View, ZoomKeepsItsBoundsAndDrawsOnlyWithAMap) {
    Editor editor;
    editor.state->picture.pixels.fill(7);
    const char* texts[] = {"0.5", "0.25", "0.25"};
    for (const char* text : texts) {
        press(editor, "Command4");
        EXPECT_EQ(editor.form.Text4, text);
    }
    EXPECT_EQ(editor.state->picture.pixels[0], 7u);
    editor.choose(town);
    press(editor, "Command4"); // at the bound it still draws
    EXPECT_NE(editor.state->picture.pixels[0], 7u);
}

TEST(View, BoxesCountAtTheNextCompositionAndTheGridDrawsOver) {
    Editor editor;
    editor.choose(town);
    press(editor, "Command3");
    EditorState& state = *editor.state;
    const std::uint64_t full = picture_hash(state);
    editor.form.Check5 = editor.form.Check6 = editor.form.Check7 = false;
    on_view_box_change(state);
    press(editor, "Command2"); // with no box ticked the old picture stays
    EXPECT_EQ(picture_hash(state), full);
    EXPECT_FALSE(state.view_stale);
    editor.form.grid_on = true;
    on_grid_change(state);
    EXPECT_EQ(state.picture.row(32)[5], 0xFFFFFFu);
    EXPECT_NE(state.picture.row(33)[5], 0u); // over the picture as it stands
    editor.form.grid_on = false;
    on_grid_change(state);
    EXPECT_EQ(std::ranges::count(state.picture.pixels, 0u), 512 * 512); // composes black
    editor.form.Check5 = editor.form.Check6 = editor.form.Check7 = true;
    on_view_box_change(state);
    editor.form.HScroll1.value = 1;
    on_h_scroll(state); // stale: everything is composed
    EXPECT_FALSE(state.view_stale);
    const std::uint64_t moved = picture_hash(state);
    editor.form.HScroll1.value = 0;
    on_h_scroll(state);
    EXPECT_EQ(picture_hash(state), full);
    editor.form.HScroll1.value = 1;
    on_h_scroll(state);
    EXPECT_EQ(picture_hash(state), moved);
}

TEST(Commands, GuardsKeepSilentWithoutAnImageOrAMap) {
    MemoryDisk disk;
    ScriptedDialogs dialogs;
    const auto state = std::make_unique<EditorState>(disk, dialogs);
    for (const bool with_image : {false, true}) {
        if (with_image) {
            disk["a.smc"] = demo_bytes();
            open_image_file(*state, "a.smc");
        }
        std::vector<std::string> acting;
        for (const Command& command : menu_commands()) {
            if (command.menu == std::string("Mode")) // the worlds have tests of their own
                continue;
            run_command(*state, command.guard, command.run);
            if (!dialogs.silent() || disk.writes != 0)
                acting.push_back(command.control);
            dialogs.messages.clear();
            disk.writes = 0;
        }
        EXPECT_EQ(acting, with_image ? (std::vector<std::string>{"Memory_Mng", "Expand",
                                                                 "Dialogue_Patch", "About1"})
                                     : (std::vector<std::string>{"Memory_Mng", "About1"}));
        for (const Command& command : object_window_commands())
            run_command(*state, command.guard, command.run);
        for (const ButtonCommand& button : button_commands())
            run_command(*state, button.guard, button.run);
        on_grid_change(*state);
        EXPECT_TRUE(dialogs.silent());
        EXPECT_EQ(disk.writes, 0);
        EXPECT_FALSE(state->form8.visible || state->form2.visible || state->form10.visible);
        EXPECT_EQ(std::ranges::count(state->picture.pixels, 0u), 512 * 512);
    }
}

} // namespace
} // namespace veldrune::test
