#include "editor/build.h"
#include "editor/mouse.h"
#include "editor/object_lists.h"
#include "editor/object_window.h"
#include "editor/overlays.h"
#include "editor/save.h"
#include "objects/sprite_preview.h"
#include "support/editor_fixture.h"
#include "support/object_image.h"
#include "support/write_failures.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

using enum ObjectKind;

// Maps 2 and 4 with objects; on tile (5, 6) of map 2 lies one of every kind. The file ends within
// the last entrance of map 4.
Bytes objects_image() {
    Bytes bytes(0x300200);
    // clang-format off
    put_objects(bytes, npc, 2, {{1, 0, 0x24, 0x10, 5, 0xC6, 3,    0, 0xF8},
                                {2, 0, 4,    0,    5, 6,    0x73, 0, 4},
                                {3, 0, 0,    0,    9, 9,    0,    0, 0}});
    put_objects(bytes, chest, 2, {{1, 1, 0, 0x80, 7}, {5, 6, 0x1D, 0x00, 0xAB}});
    put_objects(bytes, event_trigger, 2, {{5, 6, 0x10, 0x20, 1}});
    put_objects(bytes, entrance, 2, {{5, 6, 3, 0, 1, 2}, {40, 3, 0, 0, 0, 0}});
    put_objects(bytes, long_entrance, 2, {{3, 6, 2, 9, 0, 1, 2}, {8, 1, 0x82, 0, 0, 0, 0}});
    put_objects(bytes, npc, 4, {{9, 0, 0, 0, 1, 1, 0, 0, 0}});
    put_objects(bytes, long_entrance, 4, {{1, 2, 3, 4, 5, 6, 7}});
    // clang-format on
    bytes.resize(record_place(long_entrance, 4, 0) + 3);
    return bytes;
}

struct ObjectEditor : Editor {
    Form10& window = state->form10;

    /// Check1 to Check4 are bits 0 to 3 of the boxes.
    explicit ObjectEditor(int boxes = 15) : Editor(objects_image()) {
        choose(2);
        form.tool = Tool::objects;
        form.Check1 = boxes & 1;
        form.Check2 = boxes & 2;
        form.Check3 = boxes & 4;
        form.Check4 = boxes & 8;
        refresh_map(s);
    }
    void click(int column, int row) { on_click(s, column * 32 + 16, row * 32 + 16); }
    void scroll(int number) {
        window.HScroll1.value = number;
        on_record_scroll(s);
    }
    void choose_tab(int number) {
        window.TabStrip1 = number;
        on_object_tab(s);
    }
    std::string& column(ObjectKind kind) { return kind == npc ? window.Text5 : window.Text1; }
    void expect_blank(int last_number) {
        EXPECT_FALSE(window.fields_enabled);
        EXPECT_EQ(window.Text1 + window.Text4 + window.Label10, "");
        EXPECT_EQ(window.HScroll1.maximum, last_number);
        save_object(s);
        EXPECT_EQ(disk.writes, 0);
    }
    int index() const { return state->objects.selected_object.index.value_or(-1); }
};

TEST(Objects, MarkersAndClicksFollowTheBoxesInTheirOrders) {
    // clang-format off
    const struct { int boxes, column, row; Colour corner; int tab, index; } cases[] = {
        {15, 5, 6, 0x0000FF, 4, 0},
        {7,  5, 6, 0x0000FF, 2, 0},
        {11, 5, 6, 0xFFFF00, 4, 0},
        {9,  5, 6, 0x00FF00, 4, 0},
        {3,  5, 6, 0xFFFF00, 1, 1},
        {1,  5, 6, 0xFF0000, 0, 1},
        {0,  5, 6, 0xFFFFFF, 0, -1},
        {1,  9, 9, 0xFF0000, 0, 2},
        {8,  8, 3, 0x00FF00, 4, 1},
        {8,  8, 4, 0xFFFFFF, 0, -1},
    };
    // clang-format on
    for (const auto& c : cases) {
        ObjectEditor editor(c.boxes);
        editor.form.grid_on = true;
        refresh_map(editor.s);
        EXPECT_EQ(editor.s.display.picture.row(c.row * 32)[c.column * 32], c.corner) << c.boxes;
        editor.click(c.column, c.row);
        EXPECT_EQ(std::pair(editor.window.TabStrip1, editor.index()), std::pair(c.tab, c.index));
        EXPECT_EQ(editor.window.visible, c.index >= 0);
    }
    ObjectEditor editor(0); // NPCs are found from their first drawing on, others at once
    editor.form.Check1 = editor.form.Check2 = true;
    editor.click(9, 9);
    EXPECT_EQ(editor.index(), -1);
    editor.click(5, 6);
    EXPECT_EQ(editor.window.TabStrip1, 1);
}

TEST(ObjectWindow, WalksRecordsByTheBarAndTheTabs) {
    ObjectEditor editor;
    const Form10& window = editor.window;
    editor.click(9, 9);
    EXPECT_EQ(window.Label10 + " " + window.Text1, "3 A0203");
    EXPECT_EQ(editor.s.objects.selected_object.script_offset, 0xA0203);
    editor.window.Text5 = "77"; // dropped without a question
    editor.scroll(1);
    EXPECT_EQ(window.Label10 + " " + window.Text5, "1 5");
    editor.choose_tab(1);
    EXPECT_EQ(window.Combo2_lines.size(), 256u);
    EXPECT_EQ(window.option, 4);
    editor.scroll(2);
    EXPECT_EQ(editor.form.Text20 + " " + window.Text4, "AB 3:5");
    EXPECT_EQ(window.option, 4); // no kind of contents: the pressed button stays
}

TEST(ObjectWindow, ShowsTheRowsThatTheLastBuildRead) {
    ObjectEditor editor;
    const Form1& form = editor.form;
    EXPECT_EQ(form.Label27 + form.Label28 + form.Label29 + form.Label30, "3214");
    open_object(editor.s, chest, 1);
    editor.choose(4); // the rows are still those of map 2
    EXPECT_TRUE(editor.window.fields_enabled);
    refresh_map(editor.s);
    editor.expect_blank(1);
    editor.choose_tab(4);
    EXPECT_EQ(editor.window.Text6 + " " + editor.window.Text4, "3 FFFF");
    editor.s.changes_saved = false;
    editor.dialogs.answers = {false};
    editor.choose(2); // after a Cancel a build reads the objects of the list's row
    refresh_map(editor.s);
    editor.expect_blank(2);
}

TEST(ObjectWindow, IsBlankOutsideOfTheRows) {
    ObjectEditor editor;
    editor.choose(4);
    refresh_map(editor.s);
    editor.choose(2); // counts of map 2, rows of map 4
    editor.choose_tab(0);
    EXPECT_EQ(editor.window.Text1, "A0209");
    editor.scroll(2);
    editor.expect_blank(3);
    for (const int index : {-1, 1, 99}) {
        open_object(editor.s, npc, 0);
        open_object(editor.s, npc, index);
        editor.expect_blank(3);
    }
}

TEST(Objects, AWorldLeavesNoRowsOfTheKindsThatItDoesNotRead) {
    ObjectEditor editor;
    editor.form.Combo1 = 0;
    read_object_lists(editor.s, world_object_kinds);
    EXPECT_EQ(editor.s.objects.lists[npc].row_count, 0);
}

TEST(ObjectWindow, PreviewFollowsPaletteAndSprite) {
    ObjectEditor editor;
    Bytes& image = editor.image();
    for (std::size_t i = 0; i < 512; ++i)
        image[0x268200 + i] = image[0x23200 + i] = static_cast<std::uint8_t>(i * 5 + 1);
    for (const std::size_t sprite : {0x57u, 0x72u}) {
        put_word(image, 0xD2F2 + 2 * sprite, 0x3000);
        put_word(image, 0xD43C + 2 * sprite, 0xC2);
    }
    open_object(editor.s, npc, 0);
    Form10 expected;
    draw_sprite_preview(editor.s.rom, 0x23200, 0x57, 6, expected);
    // clang-format off
    const struct { const char *sprite, *palette; int byte; bool drawn; } cases[] = {
        {"57", "e", 0x57, true},
        {"",   "1", 0x57, false},
        {" ",  "1", 0x57, false},
        {"72", "6", 0x72, true},
        {"73", "1", 0x72, false},
    };
    // clang-format on
    for (const auto& c : cases) {
        editor.window.Text7 = c.sprite;
        editor.window.Text2 = c.palette;
        if (c.drawn)
            editor.window.Picture1.fill(1);
        on_sprite_text(editor.s);
        if (c.byte == 0x57)
            on_palette_text(editor.s);
        EXPECT_TRUE(editor.window.Picture1 == expected.Picture1) << c.sprite;
        EXPECT_EQ(editor.s.objects.selected_object.bytes[6], c.byte);
        EXPECT_EQ(editor.s.objects.selected_object.bytes[2], 0x38);
    }
    EXPECT_TRUE(editor.dialogs.silent());
}

TEST(ObjectWindow, SavesItsRecordAndNothingElse) {
    for (const ObjectKind kind : all_kinds) {
        ObjectEditor editor;
        const int index = kind == event_trigger ? 0 : 1;
        open_object(editor.s, kind, index);
        editor.window.option = -1; // as the image has it
        save_object(editor.s);
        EXPECT_TRUE(editor.image() == objects_image());
        editor.column(kind) = "B";
        save_object(editor.s);
        Bytes expected = objects_image();
        expected[record_place(kind, 2, static_cast<std::size_t>(index)) + (kind == npc ? 4 : 0)] =
            0x0B;
        EXPECT_TRUE(editor.image() == expected) << static_cast<int>(kind);
        open_object(editor.s, kind, index); // the rows are as they were until a build
        EXPECT_NE(editor.column(kind), "B");
        refresh_map(editor.s);
        open_object(editor.s, kind, index);
        EXPECT_EQ(editor.column(kind), "B");
    }
    struct EditedNpc : ObjectEditor {
        EditedNpc() {
            open_object(s, npc, 2);
            window.Text1 = "A1234";
        }
    };
    expect_prefixes_of_writes([] { return EditedNpc(); },
                              [](EditedNpc& editor) { save_object(editor.s); });
}

TEST(Objects, WhatTheDiskRefusesToGiveCantBeSaved) {
    for (int access = 1; access <= 10; ++access) { // the pointers and the rows of five lists
        ObjectEditor editor;
        editor.click(9, 9);
        editor.disk.fail({.at = access}, {});
        draw_objects(editor.s);
        EXPECT_EQ(editor.dialogs.messages.size(), 1u);
        EXPECT_EQ(editor.index(), -1);
        editor.click(9, 9);
        EXPECT_EQ(editor.index(), -1);
        draw_objects(editor.s);
        editor.click(9, 9);
        EXPECT_EQ(editor.index(), 2);
    }
}

TEST(ObjectWindow, SavesIntoTheImageOfItsListsAlone) {
    ObjectEditor editor;
    editor.click(9, 9);
    editor.disk["other.smc"] = objects_image();
    open_image_file(editor.s, "other.smc");
    save_object(editor.s);
    EXPECT_EQ(editor.dialogs.messages,
              (Messages{{"This object was read from another image than the open one. Build the map "
                         "of the open image first. Nothing is written.",
                         "Error"}}));
    EXPECT_EQ(editor.disk.writes, 0);
    refresh_map(editor.s);
    EXPECT_EQ(editor.index(), -1);
    open_object(editor.s, npc, 2); // a copy by Save As goes on with the lists
    editor.window.Text5 = "C";
    editor.dialogs.file_names = {"copy.smc"};
    save_as(editor.s);
    save_object(editor.s);
    EXPECT_EQ(editor.disk["copy.smc"][record_place(npc, 2, 2) + 4], 0x0C);
}

} // namespace
} // namespace veldrune::test
