#include "editor/build.h"
#include "editor/commands.h"
#include "editor/mouse.h"
#include "editor/save.h"
#include "editor/tile_chooser.h"
#include "editor/view.h"
#include "editor/world_map.h"
#include "rom/number_text.h"
#include "support/object_image.h"
#include "support/world_image.h"
#include "support/write_failures.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

using Message = ScriptedDialogs::Message;
constexpr void (*open_world[])(EditorState&) = {open_world_of_dawn, open_world_of_dusk};

const WorldImage& world_image() {
    static const WorldImage image;
    return image;
}

struct WorldEditor : Editor {
    explicit WorldEditor(int world = 0, const Bytes& bytes = world_image().bytes) : Editor(bytes) {
        open_world[world](*state);
    }
    void click(MouseButton button, int x, int y) {
        on_press(*state, button, x, y);
        on_release(*state);
        on_click(*state, x, y);
    }
    /// Tiles that lengthen the stream by some bytes.
    void grow(int tiles) {
        for (int i = 0; i < tiles; ++i)
            state->world_map.at(7 * i % 256, i) ^= 1;
        state->changes_saved = false;
    }
    Bytes stream() { return literal_compress_world_map(state->world_map.tiles); }
    std::string grown_by(int bytes) const {
        return "The map youre trying to save is " + std::to_string(bytes) +
               " larger than the original map saving this map to the oringal memory location "
               "will undoubtably mess something up. Continue?";
    }
};

TEST(WorldMap, TheViewIsWhatAPixelByPixelReferenceGives) {
    Random random(3);
    for (unsigned round = 0; round < 12; ++round) {
        WorldImage image(round);
        // One record of each kind, so that the outlines are easily told.
        const std::size_t which = round % 2;
        const int x = random.below(256), y = random.below(256), ex = random.below(256);
        const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
        put_objects(image.bytes, ObjectKind::entrance, which, {{byte(x), byte(y), 9, 0, 1, 1}});
        put_objects(image.bytes, ObjectKind::event_trigger, which, {{byte(ex), byte(y), 1, 0, 0}});
        WorldEditor editor(static_cast<int>(which), image.bytes);
        Form1& form = editor.form;
        form.HScroll2.value = round < 2 ? 224 : std::clamp(x - random.below(32), 0, 224);
        form.VScroll2.value = round < 2 ? 224 : std::clamp(y - random.below(32), 0, 224);
        form.Check4 = random.below(3) != 0;
        form.Check3 = random.below(3) != 0;
        form.grid_on = random.below(2) != 0;
        refresh_world_view(*editor.state);
        const auto on_outline = [&](int column, int px, int py) {
            const int left = (column - form.HScroll2.value) * 16;
            const int top = (y - form.VScroll2.value) * 16;
            const bool within = px >= left && px <= left + 16 && py >= top && py <= top + 16;
            return within && (px == left || px == left + 16 || py == top || py == top + 16);
        };
        for (int py = 0; py < 512; ++py)
            for (int px = 0; px < 512; ++px) {
                std::uint32_t expected =
                    image.worlds[which].pixel(form.HScroll2.value, form.VScroll2.value, px, py);
                if (form.grid_on && (px % 16 == 0 || py % 16 == 0))
                    expected = 0xFFFFFF;
                if (form.Check4 && on_outline(x, px, py))
                    expected = 0x00FF00;
                if (form.Check3 && on_outline(ex, px, py))
                    expected = 0x0000FF;
                ASSERT_EQ(editor.state->picture.row(py)[px], expected) << round << px << " " << py;
            }
    }
}

TEST(WorldMap, OpeningGoesThroughItsMapAndComesBack) {
    for (const int world : {0, 1}) {
        WorldEditor editor(world);
        const EditorState& state = *editor.state;
        const Form1& form = editor.form;
        EXPECT_TRUE(state.world_map_mode && state.world_map_open);
        EXPECT_EQ(form.Text24, world == 0 ? "2F0100" : "308235");
        EXPECT_TRUE(form.Text24_visible && !form.map_fields_enabled);
        EXPECT_TRUE(form.HScroll2.visible && form.VScroll2.visible);
        EXPECT_FALSE(form.HScroll1.visible || form.VScroll1.visible);
        EXPECT_EQ(state.zoom, 2.0f);
        EXPECT_EQ(form.Text4, "1");
        EXPECT_EQ(form.Combo1, world);
        EXPECT_EQ(state.map_index, world);
        EXPECT_EQ(state.map_selected, world == 1);
        // Both lists are read, ticked or not, and no other one.
        EXPECT_GT(state.objects[ObjectKind::entrance].row_count, 0);
        EXPECT_GT(state.objects[ObjectKind::event_trigger].row_count, 0);
        EXPECT_EQ(state.objects[ObjectKind::npc].row_count, 0);
        EXPECT_TRUE(editor.dialogs.silent());
        editor.choose(world); // the row that is current already
        EXPECT_FALSE(state.world_map_mode || state.world_map_open || form.Text24_visible);
        EXPECT_TRUE(form.map_fields_enabled && form.HScroll1.visible);
    }
}

TEST(WorldMap, CancelShowsTheWorldWithTheFormerMapsLists) {
    Editor editor(world_image().bytes);
    EditorState& state = *editor.state;
    editor.choose(demo::demo_map::town);
    build_tileset(state);
    const ObjectList npcs = state.objects[ObjectKind::npc];
    state.changes_saved = false;
    editor.dialogs.answers = {false};
    open_world_of_dawn(state);
    EXPECT_EQ(editor.dialogs.questions.size(), 1u);
    EXPECT_TRUE(state.world_map_mode && state.world_map_open && editor.form.HScroll2.visible);
    EXPECT_FALSE(editor.form.map_fields_enabled || state.changes_saved);
    EXPECT_EQ(state.map_index, demo::demo_map::town);
    EXPECT_EQ(editor.form.Combo1, 0);
    EXPECT_EQ(state.objects.map, demo::demo_map::town);
    EXPECT_EQ(state.objects[ObjectKind::npc].row_count, npcs.row_count);
    EXPECT_EQ(state.picture.row(40)[3], world_image().worlds[0].pixel(0, 0, 3, 40));
    // What was painted on a world is gone before the next question comes.
    state.world_map.at(0, 0) ^= 1;
    editor.dialogs.answers = {false};
    open_world_of_dawn(state);
    EXPECT_EQ(state.world_map.at(0, 0), world_image().worlds[0].tiles[0]);
    // Cancel on the way back: Save takes the map's path from then on.
    editor.dialogs.answers = {false};
    editor.choose(5);
    EXPECT_FALSE(state.world_map_mode || state.world_map_open);
    EXPECT_TRUE(editor.form.Text24_visible);
    editor.disk.log.clear();
    save(state);
    EXPECT_EQ(editor.disk.log.back().offset, 0x2D9100 + 33 * demo::demo_map::town);
}

TEST(WorldMap, WithoutAnImageTheFlagsAreSetAndNothingFollows) {
    MemoryDisk disk;
    ScriptedDialogs dialogs;
    const auto state = std::make_unique<EditorState>(disk, dialogs);
    open_world_of_dusk(*state);
    EXPECT_TRUE(state->world_map_mode && state->world_map_open);
    EXPECT_TRUE(state->form1.map_fields_enabled);
    EXPECT_EQ(state->zoom, 1.0f);
    disk["a.smc"] = demo_bytes();
    open_image_file(*state, "a.smc");
    save(*state);
    EXPECT_TRUE(dialogs.silent());
    EXPECT_EQ(disk.writes, 0);
    dialogs.file_names = {"b.smc"};
    save_as(*state);
    EXPECT_TRUE(disk["b.smc"] == demo_bytes());
    EXPECT_EQ(state->form1.Label20, "b.smc");
}

TEST(WorldMap, PaintsAndPicks) {
    WorldEditor editor;
    EditorState& state = *editor.state;
    WorldData expected = world_image().worlds[0];
    editor.form.HScroll2.value = 224;
    editor.form.VScroll2.value = 100;
    editor.form.current_tile = 77;
    on_press(state, MouseButton::left, 0, 0);
    for (const auto& [x, y] : {std::pair{0, 0}, {40, 20}, {511, 511}, {-1, 0}, {512, 5}})
        on_move(state, x, y);
    EXPECT_EQ(editor.form.Label26, format_hex(224 + 32) + " " + format_hex(100));
    on_release(state);
    expected.tiles[100 * 256 + 224] = expected.tiles[101 * 256 + 226] = 77;
    expected.tiles[131 * 256 + 255] = 77;
    EXPECT_TRUE(std::ranges::equal(state.world_map.tiles, expected.tiles));
    EXPECT_FALSE(state.changes_saved);
    for (const auto& [x, y] : {std::pair{3, 5}, {40, 20}, {505, 505}})
        EXPECT_EQ(state.picture.row(y)[x], expected.pixel(224, 100, x, y));

    // A pick leaves the tool and the coming click alone.
    state.changes_saved = true;
    editor.form.edit_layer = 2;
    editor.form.tool = Tool::get_tile;
    editor.click(MouseButton::left, 100, 300);
    const int picked = expected.tiles[118 * 256 + 230];
    EXPECT_EQ(editor.form.current_tile, picked);
    EXPECT_EQ(editor.form.tool, Tool::get_tile);
    EXPECT_EQ(editor.form.edit_layer, 0);
    EXPECT_TRUE(state.changes_saved && !state.tile_picked);
    expected.tiles[0] = static_cast<std::uint8_t>(picked);
    for (int i = 0; i < 64 * 64; ++i)
        ASSERT_EQ(editor.form.Picture3[static_cast<std::size_t>(i)],
                  expected.pixel(0, 0, i % 64 / 4, i / 64 / 4));
    editor.form.tool = Tool::draw;
    editor.click(MouseButton::right, 100, 300); // writes what it has just picked
    EXPECT_FALSE(state.changes_saved);
    EXPECT_EQ(state.world_map.at(230, 118), picked);
}

TEST(WorldMap, AClickOpensItsObjectsTheEventLast) {
    Bytes bytes = world_image().bytes;
    put_objects(bytes, ObjectKind::entrance, 0, {{200, 50, 1, 0, 0, 0}, {200, 50, 2, 0, 0, 0}});
    put_objects(bytes, ObjectKind::event_trigger, 0, {{9, 9, 1, 0, 0}, {200, 50, 1, 0, 0}});
    WorldEditor editor(0, bytes);
    editor.form.tool = Tool::objects;
    editor.form.HScroll2.value = 190;
    editor.form.VScroll2.value = 40;
    editor.click(MouseButton::left, 165, 165);
    EXPECT_EQ(editor.form.Text20, "200");
    EXPECT_FALSE(editor.state->form10.visible); // no box is ticked
    editor.form.Check4 = true;
    editor.click(MouseButton::left, 165, 165);
    EXPECT_EQ(editor.state->form10.TabStrip1, static_cast<int>(ObjectKind::entrance));
    EXPECT_EQ(editor.state->selected_object.index, 1);
    EXPECT_EQ(editor.state->picture.row(160)[165], 0x00FF00u);
    editor.form.Check3 = true;
    editor.click(MouseButton::left, 165, 165);
    EXPECT_EQ(editor.state->form10.TabStrip1, static_cast<int>(ObjectKind::event_trigger));
    EXPECT_EQ(editor.state->selected_object.index, 1);
}

TEST(WorldMap, TheGridFollowsTheOptionOnceAMapMayBeDrawn) {
    WorldEditor editor(1); // map 1 counts as chosen
    const auto plain = editor.state->picture.pixels;
    editor.form.grid_on = true;
    on_grid_change(*editor.state);
    EXPECT_EQ(editor.state->picture.row(3)[496], 0xFFFFFFu);
    editor.form.grid_on = false;
    on_grid_change(*editor.state);
    EXPECT_EQ(editor.state->picture.pixels, plain);
    WorldEditor dawn(0);
    const auto before = dawn.state->picture.pixels;
    dawn.form.grid_on = true;
    on_grid_change(*dawn.state);
    EXPECT_EQ(dawn.state->picture.pixels, before);
}

TEST(WorldMap, TheChooserShowsTheSheetWithoutALayerPalette) {
    WorldEditor editor;
    open_tile_chooser(*editor.state);
    EXPECT_TRUE(editor.state->form8.visible);
    EXPECT_FALSE(editor.state->form2.visible);
    WorldData sheet = world_image().worlds[0];
    sheet.tiles[0] = 19;
    EXPECT_EQ(editor.state->tile_sheet.row(32 + 21)[3 * 32 + 9], sheet.pixel(0, 0, 4, 10));
    EXPECT_EQ(editor.state->tile_sheet.row(32)[3 * 32 + 9], 0xFFFFFFu);
    choose_tile(*editor.state, 3 * 32 + 5, 32 + 5);
    EXPECT_EQ(editor.form.current_tile, 19);
    EXPECT_FALSE(editor.state->form8.visible);
}

TEST(WorldMap, ASaveTouchesItsStreamAndItsPointerAlone) {
    for (const int world : {0, 1}) {
        WorldEditor editor(world);
        Bytes expected = editor.image();
        save(*editor.state); // nothing changed
        EXPECT_TRUE(editor.image() == expected);
        editor.grow(5);
        editor.form.Text24 = "3D0200";
        save(*editor.state);
        EXPECT_TRUE(editor.state->changes_saved);
        std::ranges::copy(editor.stream(), expected.begin() + 0x3D0200);
        const std::array<std::uint8_t, 3> pointer{0x00, 0x00, 0xFD};
        std::ranges::copy(pointer, expected.begin() + (world == 0 ? 0x2EB40F : 0x2EB421));
        EXPECT_TRUE(editor.image() == expected);
        const WorldMap saved = editor.state->world_map;
        open_world[1 - world](*editor.state);
        open_world[world](*editor.state);
        EXPECT_EQ(editor.form.Text24, "3D0200");
        EXPECT_EQ(editor.state->world_map.tiles, saved.tiles);
        editor.form.Text24 = "2f0100";
        save(*editor.state);
        EXPECT_TRUE(std::ranges::equal(
            world_places[0].map_bytes,
            std::span(editor.image()).subspan(world == 0 ? 0x2EB40F : 0x2EB421, 3)));
    }
}

TEST(WorldMap, TheQuestionCountsFromTheStreamWrittenLast) {
    WorldEditor editor;
    const int old_size = editor.state->world_packed_size;
    editor.grow(3);
    const int size = static_cast<int>(editor.stream().size());
    ASSERT_GT(size, old_size);
    editor.dialogs.answers = {false};
    save(*editor.state);
    EXPECT_EQ(editor.dialogs.questions, (std::vector{editor.grown_by(size - old_size)}));
    EXPECT_EQ(editor.disk.writes, 0);
    EXPECT_FALSE(editor.state->changes_saved);
    save(*editor.state); // OK
    save(*editor.state); // asks nothing any more
    EXPECT_EQ(editor.dialogs.questions.size(), 2u);
    editor.state->world_map.tiles.fill(0);
    save(*editor.state);
    EXPECT_EQ(editor.dialogs.questions.size(), 2u);
    EXPECT_EQ(editor.state->world_packed_size, static_cast<int>(editor.stream().size()));
}

TEST(WorldMap, ALocationThatNoPointerCanNameKeepsThePointer) {
    const Message six{"Map Data Location must be 6 digits long", "Error"};
    const struct {
        const char* text;
        std::size_t messages;
        bool six_digits;
    } cases[] = {{"1001FF", 1, false}, {"1G0", 2, false}, {"0", 1, false}, {"400200", 1, true}};
    for (const auto& c : cases) {
        WorldEditor editor;
        editor.state->changes_saved = false;
        editor.form.Text24 = c.text;
        const auto location = static_cast<std::ptrdiff_t>(std::stoul(c.text, nullptr, 16));
        save(*editor.state);
        ASSERT_EQ(editor.dialogs.messages.size(), c.messages) << c.text;
        EXPECT_EQ(editor.dialogs.messages.back() == six, !c.six_digits);
        EXPECT_TRUE(editor.state->changes_saved);
        ASSERT_EQ(editor.disk.log.size(), 1u); // the stream is written all the same
        if (c.messages == 1) {
            EXPECT_EQ(editor.disk.log[0].offset, location);
        }
    }
}

TEST(WorldMap, WhatCantBeReadBackIsNotWritten) {
    WorldEditor noise;
    Random random(1);
    for (std::uint8_t& tile : noise.state->world_map.tiles)
        tile = random.byte();
    save(*noise.state);
    Bytes image = world_image().bytes;
    image[0x2F0101] = 0x80; // a length of 0x8000 or more
    WorldEditor unread(0, image);
    EXPECT_EQ(std::ranges::count(unread.state->world_map.tiles, 0), 65536);
    save(*unread.state);
    for (WorldEditor* editor : {&noise, &unread}) {
        ASSERT_EQ(editor->dialogs.messages.size(), 1u);
        EXPECT_EQ(editor->dialogs.messages[0].title, "Error");
        EXPECT_EQ(editor->disk.writes, 0);
    }
    // What the disk refuses to give is told and can't be saved, either.
    Editor refused(world_image().bytes);
    refused.disk.fail({3, false, false}, {});
    open_world_of_dawn(*refused.state);
    EXPECT_EQ(refused.dialogs.messages.size(), 1u);
    refused.disk.fail({}, {});
    save(*refused.state);
    EXPECT_EQ(refused.disk.writes, 0);
}

TEST(WorldMap, AFailedWriteLeavesABeginningOfTheWrites) {
    const auto make = [] {
        WorldEditor editor;
        editor.grow(20);
        editor.form.Text24 = "3F8000"; // into the free area
        return editor;
    };
    expect_prefixes_of_writes(make, [](WorldEditor& editor) {
        editor.state->changes_saved = false;
        save(*editor.state);
        EXPECT_EQ(editor.state->changes_saved,
                  editor.dialogs.messages.empty() || editor.disk.write_fault.at == 0);
    });
}

TEST(WorldMap, SaveAsTakesOverTheNameWhateverIsAnswered) {
    for (const bool answer : {false, true}) {
        WorldEditor editor;
        editor.grow(3);
        save_as(*editor.state); // cancelled in the file dialog
        EXPECT_EQ(editor.disk.writes, 0);
        editor.dialogs.file_names = {"b.smc"};
        editor.dialogs.answers = {answer};
        save_as(*editor.state);
        EXPECT_EQ(editor.form.Label20, "b.smc");
        EXPECT_EQ(editor.state->changes_saved, answer);
        EXPECT_TRUE(editor.image() == world_image().bytes);
        EXPECT_EQ(editor.disk["b.smc"] == world_image().bytes, !answer);
        editor.dialogs.questions.clear();
        save(*editor.state); // the world belongs to the copy now
        EXPECT_EQ(editor.dialogs.questions.size(), answer ? 0u : 1u);
        EXPECT_TRUE(editor.image() == world_image().bytes);
    }
}

TEST(WorldMap, AFailedSaveAsLeavesTheSource) {
    for (int at = 1;; ++at) {
        WorldEditor editor;
        editor.grow(3);
        editor.dialogs.file_names = {"b.smc"};
        editor.disk.fail({}, {at, true, at % 2 == 0});
        save_as(*editor.state);
        EXPECT_TRUE(editor.image() == world_image().bytes);
        if (editor.disk.writes < at) {
            EXPECT_TRUE(editor.state->changes_saved);
            break;
        }
        EXPECT_EQ(editor.dialogs.messages.size(), 1u) << at;
        EXPECT_FALSE(editor.state->changes_saved);
        EXPECT_EQ(editor.form.Label20, editor.state->rom.path());
    }
}

TEST(WorldMap, AWorldOfAnotherImageAsksFirst) {
    WorldEditor editor;
    editor.disk["other.smc"] = world_image().bytes;
    open_image_file(*editor.state, "other.smc");
    editor.dialogs.answers = {false};
    save(*editor.state);
    ASSERT_EQ(editor.dialogs.questions.size(), 1u);
    EXPECT_NE(editor.dialogs.questions[0].find("a.smc"), std::string::npos);
    EXPECT_NE(editor.dialogs.questions[0].find("other.smc"), std::string::npos);
    EXPECT_EQ(editor.disk.writes, 0);
    save(*editor.state);
    save(*editor.state);
    EXPECT_EQ(editor.dialogs.questions.size(), 2u);
}

} // namespace
} // namespace veldrune::test
