#include "editor/commands.h"
#include "editor/view.h"
#include "render/build_tiles.h"
#include "support/editor_fixture.h"
#include "support/write_failures.h"

#include <gtest/gtest.h>

namespace veldrune::test {

using demo::demo_map::town;

TEST(Open, KeepsWhatIsOpenOnCancelAndFailureAndTheFieldsAlways) {
    Town editor;
    EditorState& state = editor.s;
    const std::string location = editor.form.Text14;
    open_image(state); // cancelled
    editor.dialogs.file_names = {"missing.smc", "b.smc"};
    open_image(state);
    EXPECT_EQ(state.rom_path + editor.form.Label20, "a.smca.smc");
    EXPECT_EQ(state.rom.read_byte(0x2D9100), demo_bytes()[0x2D9100]);
    editor.disk["b.smc"] = {1, 2, 3}; // no game at all: opened without a word
    open_image(state);
    EXPECT_EQ(state.rom_path + editor.form.Label20, "b.smcb.smc");
    EXPECT_EQ(editor.form.Text14, location);
    EXPECT_TRUE(state.rom_open && state.map_selected && editor.dialogs.silent());
    editor.disk.marked_elsewhere = true;
    open_image_file(state, "a.smc");
    ASSERT_EQ(editor.dialogs.messages.size(), 1u);
    EXPECT_TRUE(editor.dialogs.messages[0].title == "Warning" && state.rom_path == "a.smc");
}

TEST(SelectMap, TheFirstMapLeavesBuildAndZoomDeadUntilAHigherOneIsChosen) {
    Editor editor;
    Colour& corner = *editor.s.display.picture.row(0);
    corner = 7;
    for (const auto& [map, zoom] : {std::pair{0, "0.5"}, {town, "0.25"}}) {
        run_command(editor.s, Command::build_tileset);
        run_command(editor.s, Command::zoom_in);
        EXPECT_EQ(editor.form.Text4, zoom);
        editor.form.Picture3.fill(7);
        editor.choose(map);
        EXPECT_EQ(editor.form.Picture3[0] + corner, 7u); // nothing is drawn
        EXPECT_EQ(editor.s.map.map_properties, read_record(editor.s.rom, map));
    }
    editor.choose(0); // they work from then on
    run_command(editor.s, Command::zoom_in);
    EXPECT_NE(corner, 7u);
    EXPECT_EQ(editor.form.Text4, "0.25"); // the closest
}

TEST(ReadRefusals, OfMapsAndBuildsAreReportedAndTheMapCantBeSaved) {
    const auto choose_town = [](Editor& editor) { editor.choose(town); };
    expect_refused_reads([] { return Editor(); }, choose_town,
                         [&](Editor& editor) {
                             EXPECT_FALSE(editor.s.map.source);
                             choose_town(editor); // works once the disk does
                             EXPECT_TRUE(editor.s.map.source);
                         });
    const auto build = [](Editor& editor) { run_command(editor.s, Command::build_tileset); };
    expect_refused_reads([] { return Town(); }, build, [](Editor&) {});
}

TEST(Build, WarnsOfEveryBadNumberOnceAndGoesOn) {
    Town editor;
    editor.form.Text18 = "x";
    editor.form.Text9 = "85";
    editor.form.Text13 = "z";
    editor.form.Text21 = "16 tiles";
    run_command(editor.s, Command::build_tileset);
    EXPECT_EQ(editor.dialogs.messages,
              (Messages{no_number("x", "decimal"),
                        {"There is no tileset 85: the highest is 84.", "Error"},
                        no_number("z", "decimal"),
                        no_number("16 tiles", "decimal")}));
    editor.dialogs.messages.clear();
    on_h_scroll(editor.s);
    EXPECT_TRUE(editor.dialogs.silent()); // compositions read silently
}

TEST(Build, ShowsWhatTheMapsRecordAloneMakes) {
    const auto display = std::make_unique<MapDisplay>();
    Town editor;
    EditorState& state = editor.s;
    zoom_out(state);
    run_command(state, Command::build_tileset);
    build_tiles(state.rom, tile_numbers(state.map.record_at_load), state.map.anim_tiles,
                state.work.decompress_buffer, display->bitmaps);
    compose_cells(display->bitmaps, record_view(state.map, 32), 0, 0, 32, 32, display->picture);
    EXPECT_TRUE(display->picture == state.display.picture);
}

TEST(View, ScrollBarsFollowTheLargestLayerAndBuildsTreatThemDifferently) {
    Town editor;
    Form1& form = editor.form;
    const auto columns = [&] { return std::pair(form.HScroll1.maximum, form.HScroll1.value); };
    form.Text1 = "128";
    form.Text2 = form.Text5 = form.Text3 = "16";
    form.Text21 = "32";
    form.Text22 = "64";
    form.Text25 = EMPTY_LAYER_TEXT; // its size counts even so
    form.HScroll1.value = form.VScroll1.value = 112;
    run_command(editor.s, Command::build_tileset); // a tileset build stays where it is
    EXPECT_EQ(columns(), std::pair(112, 112));
    EXPECT_TRUE(form.VScroll1.maximum == 48 && form.VScroll1.value == 48);
    zoom_out(editor.s);
    EXPECT_EQ(columns(), std::pair(112, 112)); // until the next scroll
    on_h_scroll(editor.s);
    EXPECT_EQ(columns(), std::pair(96, 96));
    run_command(editor.s, Command::refresh_map); // goes to the top left
    EXPECT_EQ(columns(), std::pair(96, 0));
    form.Text1 = "16";
    form.Text21 = "0";
    run_command(editor.s, Command::refresh_map);
    EXPECT_EQ(columns(), std::pair(0, 0));
}

TEST(View, Layer3IsMissingOpaqueOrHalfThere) {
    using enum Layer3Blend;
    Town editor;
    for (const auto& [graphics, blend] : {std::pair{"5", half}, {"6", opaque}, {"7", half}}) {
        editor.form.Text23 = graphics;
        EXPECT_EQ(map_view(editor.s.map, editor.form, editor.s.zoom).stack.blend, blend)
            << graphics;
    }
    editor.form.Text25 = EMPTY_LAYER_TEXT;
    EXPECT_EQ(map_view(editor.s.map, editor.form, editor.s.zoom).stack.blend, none);
}

TEST(View, BoxesCountAtTheNextCompositionAndTheGridDrawsOver) {
    Town editor(true);
    Form1& form = editor.form;
    const PixelBuffer& picture = editor.s.display.picture;
    const auto full = picture.pixels();
    const auto tick_all = [&](bool ticked) {
        form.Check5 = form.Check6 = form.Check7 = ticked;
        on_view_box_change(editor.s);
    };
    const auto scrolled_to = [&](int column) {
        form.HScroll1.value = column;
        on_h_scroll(editor.s);
        EXPECT_FALSE(editor.s.view_stale);
        return picture.pixels();
    };
    tick_all(false);
    run_command(editor.s, Command::refresh_map); // with no box ticked the old picture stays
    EXPECT_TRUE(picture.pixels() == full && !editor.s.view_stale);
    form.grid_on = true;
    on_grid_change(editor.s); // over the picture as it is
    EXPECT_TRUE(picture.row(32)[5] == 0xFFFFFF && picture.row(33)[5] != 0);
    form.grid_on = false;
    on_grid_change(editor.s); // composes black
    EXPECT_EQ(std::ranges::count(picture.pixels(), 0u), 512 * 512);
    tick_all(true);
    const auto moved = scrolled_to(1); // stale at first: everything is composed
    EXPECT_TRUE(scrolled_to(0) == full);
    EXPECT_TRUE(scrolled_to(1) == moved);
}

// Without an image and, with one, without a map: what the guards are there for.
TEST(Guards, WithoutAMapThePatchesAloneWriteAndTheTextsAloneShow) {
    for (const bool with_image : {false, true}) {
        Editor editor(with_image ? demo_bytes() : Bytes());
        std::vector<Command> writing;
        for (int i = 0; i < static_cast<int>(Command::count); ++i) {
            const auto command = static_cast<Command>(i);
            if (with_image &&
                (command == Command::open_world_of_dawn || command == Command::open_world_of_dusk))
                continue; // they have tests of their own
            run_command(editor.s, command);
            if (std::exchange(editor.disk.writes, 0) != 0)
                writing.push_back(command);
        }
        editor.form.grid_on = true;
        on_grid_change(editor.s);
        for (const MouseButton button : {MouseButton::left, MouseButton::right}) {
            on_press(editor.s, button, 5, 5);
            on_move(editor.s, 50, 5);
            editor.click(button, 50, 5);
        }
        EXPECT_EQ(writing, with_image
                               ? (std::vector{Command::expand_rom, Command::apply_dialogue_patch})
                               : std::vector<Command>());
        ASSERT_EQ(editor.dialogs.messages.size(), 2u);
        EXPECT_EQ(editor.dialogs.messages[0],
                  (Message{"Sorry, nothing here yet.", "Nothing here"}));
        EXPECT_TRUE(editor.dialogs.messages[1].text.starts_with("Veldrune Map Editor: v1.1\n\n"));
        EXPECT_EQ(editor.s.changes_saved, !with_image); // an image alone can be painted on
        EXPECT_FALSE(editor.s.tile_picked || editor.s.painting);
        EXPECT_FALSE(editor.s.form8.visible || editor.s.form2.visible || editor.s.form10.visible);
        EXPECT_EQ(std::ranges::count(editor.s.display.picture.pixels(), 0u), 512 * 512);
    }
}

} // namespace veldrune::test
