#include "editor/build.h"
#include "editor/mouse.h"
#include "editor/object_window.h"
#include "editor/objects.h"
#include "editor/save.h"
#include "editor/view.h"
#include "objects/sprite_preview.h"
#include "support/editor_fixture.h"
#include "support/object_image.h"
#include "support/write_failures.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

using enum ObjectKind;

// Maps 2 and 4 with objects; on tile (5, 6) of map 2 lies one of every kind.
const Bytes& objects_image() {
    static const Bytes image = [] {
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
        return bytes;
    }();
    return image;
}

struct ObjectEditor : Editor {
    EditorState& s = *state;
    Form10& window = state->form10;

    ObjectEditor() : Editor(objects_image()) {
        choose(2);
        form.tool = Tool::objects;
    }
    void tick(bool npcs, bool chests, bool events, bool entrances) {
        form.Check1 = npcs, form.Check2 = chests, form.Check3 = events, form.Check4 = entrances;
    }
    void build() { refresh_map(s); }
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
    int tab() const { return state->form10.TabStrip1; }
    int index() const { return state->selected_object.index.value_or(-1); }
};

struct BuiltEditor : ObjectEditor {
    BuiltEditor() {
        tick(true, true, true, true);
        build();
    }
};

struct EditedNpc : BuiltEditor {
    EditedNpc() {
        open_object(s, npc, 2);
        window.Text1 = "A1234";
    }
};

TEST(Objects, CountsFollowTheChoiceAndRowsTheBuild) {
    ObjectEditor editor;
    EXPECT_EQ(editor.form.Label27 + editor.form.Label28 + editor.form.Label29 + editor.form.Label30,
              "3214");
    EXPECT_EQ(editor.s.objects[npc].row_count, 0);
    editor.build();
    EXPECT_EQ(editor.s.objects[npc].row_count, 3);
    editor.choose(4);
    EXPECT_EQ(editor.form.Label27 + editor.form.Label30, "10");
    EXPECT_EQ(editor.s.objects[npc].row_count, 3);
    // After a Cancel a build reads the objects of the list's row.
    editor.s.changes_saved = false;
    editor.dialogs.answers = {false};
    editor.choose(2);
    editor.s.changes_saved = true;
    editor.build();
    EXPECT_EQ(editor.s.map_index, 4);
    EXPECT_EQ(editor.s.objects.map, 2);
}

TEST(Objects, MarkersLieOverEachOtherInTheirOrder) {
    // clang-format off
    const struct { bool npcs, chests, events, entrances; Colour colour; } cases[] = {
        {true, true,  true,  true,  0x0000FF}, {true,  true,  false, true,  0xFFFF00}, {true, false, false, true, 0x00FF00},
        {true, false, false, false, 0xFF0000}, {false, false, false, false, 0xFFFFFF},
    };
    // clang-format on
    for (const auto& c : cases) {
        ObjectEditor editor;
        editor.tick(c.npcs, c.chests, c.events, c.entrances);
        editor.form.grid_on = true;
        editor.build();
        EXPECT_EQ(editor.s.picture.row(6 * 32)[5 * 32], c.colour);
        editor.form.HScroll1 = {4, 16, true}; // they move along
        editor.form.Text2 = "64";
        on_h_scroll(editor.s);
        EXPECT_EQ(editor.s.picture.row(6 * 32)[32], c.colour);
    }
}

TEST(Objects, ClicksOpenAllMatchesAndTheLastOneStays) {
    // clang-format off
    const struct { bool npcs, chests, events, entrances; int column, row, tab, index; } cases[] = {
        {true,  true,  true,  true,  5, 6, 4, 0}, {true, true,  true,  false, 5, 6, 2, 0}, {true, true, false, false, 5, 6, 1, 1},
        {true,  false, false, false, 5, 6, 0, 1}, {true, true,  true,  true,  9, 9, 0, 2}, {true, true, true,  true,  8, 3, 4, 1},
        {false, false, false, false, 5, 6, 0, -1}, {true, true, true,  true,  8, 4, 0, -1},
    };
    // clang-format on
    for (const auto& c : cases) {
        ObjectEditor editor;
        editor.tick(c.npcs, c.chests, c.events, c.entrances);
        editor.build();
        editor.click(c.column, c.row);
        EXPECT_EQ(editor.tab(), c.tab);
        EXPECT_EQ(editor.index(), c.index);
        EXPECT_EQ(editor.window.visible, c.index >= 0);
    }
    ObjectEditor editor; // NPCs are found from their first drawing on, others at once
    editor.build();
    editor.tick(true, true, false, false);
    editor.click(9, 9);
    EXPECT_EQ(editor.index(), -1);
    editor.click(5, 6);
    EXPECT_EQ(editor.tab(), 1);
}

TEST(ObjectWindow, WalksTabsAndRecords) {
    BuiltEditor editor;
    editor.click(9, 9);
    EXPECT_EQ(editor.window.HScroll1.value, 3);
    EXPECT_EQ(editor.window.HScroll1.maximum, 3);
    EXPECT_EQ(editor.s.selected_object.script_offset, 0xA0203);
    editor.window.Text5 = "77"; // dropped without a question
    editor.scroll(1);
    EXPECT_EQ(editor.window.Label10 + " " + editor.window.Text5, "1 5");
    editor.choose_tab(1);
    EXPECT_EQ(editor.window.HScroll1.maximum, 2);
    EXPECT_EQ(editor.window.Combo2_lines.size(), 256u);
    EXPECT_EQ(editor.window.option, 4);
    editor.scroll(2);
    EXPECT_EQ(editor.form.Text20 + " " + editor.window.Text4, "AB 3:5");
    EXPECT_EQ(editor.window.option, 4); // no kind of contents: the pressed button stays
    editor.choose_tab(2);
    EXPECT_EQ(editor.s.selected_object.script_offset, 0x12010 + 0xA0200);
    EXPECT_EQ(editor.window.HScroll1.value, 1);
}

TEST(ObjectWindow, IsBlankWhereThereIsNoRecord) {
    BuiltEditor editor;
    const auto expect_blank = [&](int maximum) {
        EXPECT_FALSE(editor.window.fields_enabled);
        EXPECT_EQ(editor.window.Text1 + editor.window.Text4 + editor.window.Label10, "");
        EXPECT_EQ(editor.window.HScroll1.maximum, maximum);
        EXPECT_EQ(editor.index(), -1);
        save_object(editor.s);
        EXPECT_EQ(editor.disk.writes, 0);
        EXPECT_TRUE(editor.dialogs.silent());
    };
    editor.click(9, 9);
    editor.choose(4);
    EXPECT_TRUE(editor.window.fields_enabled); // until the lists are read anew
    editor.build();
    expect_blank(1);
    editor.choose_tab(1); // an empty list
    expect_blank(1);
    editor.choose(2); // counts of map 2, rows of map 4
    editor.choose_tab(0);
    EXPECT_EQ(editor.window.Text1, "A0209");
    EXPECT_EQ(editor.window.HScroll1.maximum, 3);
    editor.scroll(2);
    expect_blank(3);
    editor.build();
    on_record_scroll(editor.s);
    EXPECT_EQ(editor.window.Text1, "A0202");
    editor.build(); // the same map again: the record stays
    EXPECT_EQ(editor.index(), 1);
}

TEST(ObjectWindow, PreviewFollowsPaletteAndSprite) {
    BuiltEditor editor;
    Bytes& image = editor.image();
    for (std::size_t i = 0; i < 512; ++i)
        image[0x268200 + i] = image[0x23200 + i] = static_cast<std::uint8_t>(i * 5 + 1);
    put_word(image, 0xD2F2 + 2 * 0x57, 0x3000);
    put_word(image, 0xD43C + 2 * 0x57, 0xC2);
    open_object(editor.s, npc, 0);
    const auto type = [&](const char* sprite, const char* palette) {
        editor.window.Text7 = sprite, editor.window.Text2 = palette;
        on_sprite_text(editor.s);
        on_palette_text(editor.s);
    };
    type("57", "e");
    EXPECT_EQ(editor.s.selected_object.sprite_offset, 0x23200);
    EXPECT_EQ(editor.s.selected_object.bytes[2], 0x38);
    Form10 expected;
    draw_sprite_preview(editor.s.rom, 0x23200, 0x57, 6, expected);
    EXPECT_TRUE(editor.window.Picture1 == expected.Picture1);
    type("", "1"), type(" ", "1"), type("1", ""); // nothing to show
    editor.window.Text7 = "73", editor.window.Text2 = "1";
    on_sprite_text(editor.s); // above the last one that is shown
    EXPECT_EQ(editor.s.selected_object.bytes[6], 0x57);
    EXPECT_TRUE(editor.window.Picture1 == expected.Picture1);
    EXPECT_EQ(editor.window.Text7, "73");
    EXPECT_TRUE(editor.dialogs.silent());
}

TEST(ObjectWindow, SavesItsRecordAndNothingElse) {
    for (const ObjectKind kind : all_kinds) {
        BuiltEditor editor;
        open_object(editor.s, kind, kind == event_trigger ? 0 : 1);
        if (kind == chest)
            editor.window.option = -1; // as the image has it
        save_object(editor.s);
        EXPECT_TRUE(editor.image() == objects_image());
        editor.column(kind) = "B";
        save_object(editor.s);
        Bytes expected = objects_image();
        expected[record_place(kind, 2, editor.index()) + (kind == npc ? 4 : 0)] = 0x0B;
        EXPECT_TRUE(editor.image() == expected) << static_cast<int>(kind);
        open_object(editor.s, kind, editor.index()); // the rows are as they were
        EXPECT_NE(editor.column(kind), "B");
        editor.build();
        open_object(editor.s, kind, editor.index());
        EXPECT_EQ(editor.column(kind), "B");
        editor.window.Text4 = "1234567"; // refused, or bits that fall away
        save_object(editor.s);
        if (kind == npc || kind == chest) {
            EXPECT_TRUE(editor.image() == expected);
        }
    }
    expect_prefixes_of_writes([] { return EditedNpc(); },
                              [](EditedNpc& editor) { save_object(editor.s); });
}

TEST(ObjectWindow, SavesIntoTheImageOfItsListsAlone) {
    BuiltEditor editor;
    editor.click(9, 9);
    editor.window.Text5 = "B";
    editor.disk["other.smc"] = objects_image();
    open_image_file(editor.s, "other.smc");
    save_object(editor.s);
    ASSERT_EQ(editor.dialogs.messages.size(), 1u);
    EXPECT_TRUE(editor.disk["other.smc"] == objects_image());
    editor.build();
    EXPECT_EQ(editor.index(), -1);
    // A copy by Save As goes on with the lists.
    open_object(editor.s, npc, 2);
    editor.window.Text5 = "C";
    editor.dialogs.file_names = {"copy.smc"};
    save_as(editor.s);
    save_object(editor.s);
    EXPECT_EQ(editor.disk["copy.smc"][record_place(npc, 2, 2) + 4], 0x0C);
    EXPECT_TRUE(editor.disk["other.smc"] == objects_image());
}

} // namespace
} // namespace veldrune::test
