#include "editor/object_lists.h"
#include "editor/object_status.h"
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
    put_objects(bytes, npc, 2,
                {{1, 0, 0x24, 0x10, 5, 0xC6, 3, 0, 0xF8},
                 {2, 0, 4, 0, 5, 6, 0x73, 0, 4},
                 {3, 0, 0, 0, 9, 9, 0, 0, 0}});
    put_objects(bytes, chest, 2, {{1, 1, 0, 0x80, 7}, {5, 6, 0x1D, 0x00, 0xAB}});
    put_objects(bytes, event_trigger, 2, {{5, 6, 0x10, 0x20, 1}});
    put_objects(bytes, entrance, 2, {{5, 6, 3, 0, 1, 2}, {40, 3, 0, 0, 0, 0}});
    put_objects(bytes, long_entrance, 2, {{3, 6, 2, 9, 0, 1, 2}, {8, 1, 0x82, 0, 0, 0, 0}});
    put_objects(bytes, npc, 4, {{9, 0, 0, 0, 1, 1, 0, 0, 0}});
    put_objects(bytes, long_entrance, 4, {{1, 2, 3, 4, 5, 6, 7}});
    bytes.resize(record_place(long_entrance, 4, 0) + 3);
    return bytes;
}

struct ObjectEditor : Editor {
    Form10& window = state->form10;

    // Check1 to Check4 are bits 0 to 3 of the boxes.
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
    void expect_blank(int last_number) {
        EXPECT_FALSE(window.fields_enabled);
        EXPECT_EQ(window.Text1 + window.Text4 + window.Label10, "");
        EXPECT_EQ(window.HScroll1.maximum, last_number);
        save_object(s);
        EXPECT_EQ(disk.writes, 0);
    }
    int index() const { return state->objects.selected_object.index.value_or(-1); }
};

struct NpcEditor : ObjectEditor {
    NpcEditor() {
        open_object(s, npc, 2);
        window.Text1 = "A1234";
    }
};

TEST(Objects, MarkersAndClicksFollowTheBoxesInTheirOrders) {
    const std::tuple<int, Colour, int, int> cases[] = {{15, 0x0000FF, 4, 0}, {7, 0x0000FF, 2, 0},
                                                       {11, 0xFFFF00, 4, 0}, {9, 0x00FF00, 4, 0},
                                                       {3, 0xFFFF00, 1, 1},  {0, 0xFFFFFF, 0, -1}};
    for (const auto& [boxes, corner, tab, index] : cases) {
        ObjectEditor editor(boxes);
        editor.form.grid_on = true;
        refresh_map(editor.s);
        EXPECT_EQ(editor.s.display.picture.row(6 * 32)[5 * 32], corner) << boxes;
        editor.click(5, 6);
        EXPECT_EQ(std::pair(editor.window.TabStrip1, editor.index()), std::pair(tab, index));
        EXPECT_EQ(editor.window.visible, index >= 0);
    }
}

TEST(ObjectWindow, WalksTheRecordsThatTheLastBuildRead) {
    ObjectEditor editor;
    const Form1& form = editor.form;
    const Form10& window = editor.window;
    EXPECT_EQ(form.Label27 + form.Label28 + form.Label29 + form.Label30, "3214");
    editor.click(9, 9);
    EXPECT_EQ(window.Label10 + " " + window.Text1, "3 A0203");
    editor.window.Text5 = "77"; // dropped without a question
    editor.scroll(1);
    EXPECT_EQ(window.Label10 + " " + window.Text5, "1 5");
    editor.choose_tab(1);
    EXPECT_EQ(std::pair(window.Combo2_lines.size(), window.option), std::pair(std::size_t{256}, 4));
    editor.scroll(2);
    EXPECT_EQ(form.Text20 + " " + window.Text4, "AB 3:5");
    EXPECT_EQ(window.option, 4); // no kind of contents: the pressed button stays
    editor.choose(4);            // the rows are still those of map 2
    EXPECT_TRUE(window.fields_enabled);
    refresh_map(editor.s);
    editor.expect_blank(1);
    editor.choose_tab(4);
    EXPECT_EQ(window.Text6 + " " + window.Text4, "3 FFFF");
    editor.choose(2); // its counts, and the rows of map 4
    editor.scroll(2);
    editor.expect_blank(2);
    editor.s.changes_saved = false;
    editor.dialogs.answers = {false};
    editor.choose(4); // after a Cancel a build reads the objects of the list's row
    refresh_map(editor.s);
    EXPECT_EQ(editor.s.objects.lists[npc].row_count, 1);
}

TEST(ObjectWindow, PreviewFollowsPaletteAndSprite) {
    const std::tuple<const char*, const char*, int, bool> cases[] = {{"57", "1e", 0x57, true},
                                                                     {"56", "", 0x57, false},
                                                                     {"", "6", 0x57, false},
                                                                     {"72", "6", 0x72, true},
                                                                     {"73", "6", 0x72, false}};
    ObjectEditor editor;
    open_object(editor.s, npc, 0);
    for (const auto& [sprite, palette, byte, drawn] : cases) {
        editor.window.Text7 = sprite;
        editor.window.Text2 = palette;
        on_palette_text(editor.s);
        editor.window.Picture1.fill(1);
        on_sprite_text(editor.s);
        EXPECT_EQ(editor.window.Picture1[0], drawn ? 0u : 1u) << sprite;
        EXPECT_EQ(editor.s.objects.selected_object.bytes[6], byte);
        EXPECT_EQ(editor.s.objects.selected_object.bytes[2], 0x38);
    }
}

TEST(ObjectWindow, SavesItsRecordAndNothingElse) {
    for (const ObjectKind kind : all_kinds) {
        ObjectEditor editor;
        std::string& column = kind == npc ? editor.window.Text5 : editor.window.Text1;
        Bytes expected = objects_image();
        open_object(editor.s, kind, 0);
        save_object(editor.s);
        EXPECT_TRUE(editor.image() == expected);
        column = "B";
        save_object(editor.s);
        expected[record_place(kind, 2, 0) + (kind == npc ? 4 : 0)] = 0x0B;
        EXPECT_TRUE(editor.image() == expected) << static_cast<int>(kind);
    }
    const auto save = [](NpcEditor& editor) { save_object(editor.s); };
    expect_prefixes_of_writes([] { return NpcEditor(); }, save);
}

TEST(Objects, WhatTheDiskRefusesToGiveCantBeSaved) {
    const auto draw = [](NpcEditor& editor) { draw_objects(editor.s); };
    expect_refused_reads([] { return NpcEditor(); }, draw,
                         [&](NpcEditor& editor) {
                             editor.click(9, 9);
                             EXPECT_EQ(editor.index(), -1);
                             draw(editor);
                             editor.click(9, 9);
                             EXPECT_EQ(editor.index(), 2);
                         });
}

TEST(ObjectStatus, FollowsTheListTheImageAndTheSprite) {
    ObjectEditor editor;
    const auto status = [&] { return object_status(editor.s); };
    const auto expect = [&](std::size_t differing, bool outdated) {
        EXPECT_EQ(status().differing.size(), differing);
        EXPECT_EQ(status().list_outdated, outdated);
    };
    expect(0, false);
    for (const ObjectKind kind : all_kinds) {
        open_object(editor.s, kind, 0);
        expect(0, false);
        editor.window.Text2 = "7";
        expect(1, false);
        save_object(editor.s);
        expect(1, true);
    }
    editor.scroll(2);
    open_object(editor.s, npc, 1);
    expect(0, false);
    EXPECT_TRUE(status().preview_outdated); // 73
    open_object(editor.s, npc, 0);
    expect(0, true);
    for (const auto& [sprite, outdated] : {std::pair("72", false), {"73", true}, {"", false}}) {
        editor.window.Text7 = sprite;
        EXPECT_EQ(status().preview_outdated, outdated) << sprite;
    }
    editor.disk["other.smc"] = objects_image();
    open_image_file(editor.s, "other.smc");
    EXPECT_FALSE(status().list_outdated); // not of this image
    refresh_map(editor.s);
    expect(0, false);
}

TEST(ObjectWindow, SavesIntoTheImageOfItsListsAlone) {
    NpcEditor editor;
    editor.disk["other.smc"] = objects_image();
    open_image_file(editor.s, "other.smc");
    save_object(editor.s);
    ASSERT_EQ(editor.dialogs.messages.size(), 1u);
    EXPECT_TRUE(editor.dialogs.messages[0].text.starts_with("This object was read from another"));
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
