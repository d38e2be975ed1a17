// Opening, reopening and saving a script in place.

#include "editor/save.h"
#include "editor/script_status.h"
#include "support/script_fixture.h"
#include "support/write_failures.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

const Bytes script{0x3D, 7, 0x38, 0xFE};

TEST(EventEditor, ASaveGoesInPlaceAndTouchesNothingElse) {
    ScriptEditor editor(script);
    Bytes image = editor.image();
    const std::pair<std::string, const char*> cases[] = {
        {"@2,1 9", "3D 9 38 FE 0"},
        {"@3,0 -", "3D 9 FE FE 0"}, // a shorter one leaves its old tail
        {"+ 39", "3D 9 39 FE 0"}};  // and may grow again, up to the length that was read
    for (const auto& [steps, saved] : cases) {
        editor.act(steps + " save");
        put_bytes(image, script_at, hex_bytes(saved));
        EXPECT_EQ(editor.image(), image) << steps;
        EXPECT_TRUE(editor.dialogs.silent());
    }
    const int writes = editor.disk.writes;
    editor.act("+ 39 save");
    EXPECT_EQ(editor.disk.writes, writes);
    EXPECT_EQ(editor.dialogs.messages, (Messages{{"Not Now", "Veldrune Map Editor"}}));
}

const std::string elsewhere =
    "This script was read from 30000 and will be written to 40000. The script there may be "
    "shorter: what follows it would be overwritten. Write it there all the same?";

TEST(EventEditor, ASaveGoesWhereTheSelectedObjectPointsAndAsksEachTime) {
    ScriptEditor editor(script);
    Bytes image = editor.image();
    editor.state->objects.selected_object.script_offset = 0x40000;
    editor.window.Text3 = "12345";
    editor.dialogs.answers = {false, true, false};
    editor.act("@2,1 + save"); // the entry ends all the same
    EXPECT_EQ(editor.image(), image);
    EXPECT_EQ(editor.rows(true), "3D..; .7.; 38..; FE..");
    EXPECT_FALSE(editor.window.Text2_visible);
    editor.act("save");
    put_bytes(image, 0x40000, script);
    EXPECT_EQ(editor.image(), image);
    editor.act("@2,1 9 save");
    EXPECT_EQ(editor.image(), image);
    EXPECT_EQ(editor.dialogs.questions, std::vector(3, elsewhere));
    editor.state->objects.selected_object.script_offset = script_at;
    editor.act("save");
    EXPECT_EQ(editor.image()[script_at + 1], 9);
    EXPECT_EQ(editor.dialogs.questions.size(), 3u);
}

TEST(EventEditor, AListThatALoadWouldReadOtherwiseAsksBeforeThePlace) {
    const Bytes lists = hex_bytes("4B 2 0 B6 1 0 0 2 0 0 38 BE 2 1 0 0 2 0 0 B6 1 0 0 2 0 0 FE");
    const std::pair<const char*, int> cases[] = {
        // 0: the list comes back
        {"", 0},
        {"@5,0 -", 0},
        {"@2,1 8", 0},
        {"@2,1 1", 4},
        {"@2,1 5", 4},
        {"@4,1 A0201", 4},
        {"@1,0 -", 2},
        {"@7,1 1", 10},
        {"@10,1 A0201", 10},
        {"@10,1 A0201 @4,1 A0201", 4},
        {"@9,0 - @6,0 - @2,1 5", 4}}; // it would reach beyond the end
    for (const auto& [steps, row] : cases) {
        ScriptEditor editor(lists);
        editor.act(steps);
        Bytes image = editor.image();
        const std::string place = "This script; ", list = "Row " + std::to_string(row) + "; ";
        editor.state->objects.selected_object.script_offset = 0x40000;
        editor.dialogs.answers = {false};
        editor.act("save");
        EXPECT_EQ(editor.image(), image);
        editor.act("save");
        put_bytes(image, 0x40000, editor.encode().bytes);
        EXPECT_EQ(editor.image(), image);
        const std::string twice = std::string(list).append(list).append(place);
        EXPECT_EQ(editor.dialogs.asked(), row == 0 ? place + place : twice) << steps;
    }
    for (const int refused : {1, 2}) { // the dialogue's entry, its text
        ScriptEditor editor(lists);
        editor.act("@2,1 1");
        editor.disk.fail(refused, 0);
        editor.act("save");
        EXPECT_EQ(std::ssize(editor.disk.log), 1);
        EXPECT_TRUE(editor.dialogs.silent());
    }
    ScriptEditor editor(lists);
    put_word(editor.image(), 0xCE802 + 2 * 2, 0x1000); // no choices any more
    editor.act("save");
    EXPECT_TRUE(editor.dialogs.silent()) << "the bytes that were read";
    editor.act("+ 39 save");
    EXPECT_EQ(editor.dialogs.messages.size(), 1u) << "too long: refused first";
    EXPECT_TRUE(editor.dialogs.questions.empty());
    editor.act("@11,0 - @5,0 - save");
    EXPECT_EQ(editor.dialogs.asked(), "Row 4; ");
}

TEST(ScriptStatus, CountsWhatASaveWouldWriteWithoutAMessage) {
    const std::tuple<const char*, const char*, bool, bool, int> cases[] = {
        {"", "4 of 4 bytes", false, false, 5},
        {"@2,1 9", "4 of 4 bytes", false, true, 5},
        {"@2,1 9 save", "4 of 4 bytes", false, true, 5},
        {"@2,1 9 @2,1 7", "4 of 4 bytes", false, false, 5},
        {"+ 39", "5 of 4 bytes", true, true, 6},
        {"@1,0 -", "2 of 4 bytes", false, true, 3},
        {"@1,0 FE", "1 of 4 bytes", false, true, 2},
        {"@2,1 100", "- of 4 bytes", false, true, 5},
        {"@4,0 -", "- of 4 bytes", false, true, 5},
        {"@2,1 @1,3", "4 of 4 bytes", false, false, 5},
        // A save ends these entries first.
        {"+", "4 of 4 bytes", false, true, 6},
        {"+ 5", "7 of 4 bytes", true, true, 7},
        {"+ 37 1", "- of 4 bytes", false, true, 8}};
    for (const auto& [steps, size, too_long, changed, end] : cases) {
        ScriptEditor editor(script);
        editor.act(steps);
        const std::string rows = editor.rows();
        const GridStatus status = grid_status(*editor.state);
        EXPECT_EQ(std::tuple(status.size, status.too_long, status.changed),
                  std::tuple(size, too_long, changed))
            << steps;
        EXPECT_EQ(script_end(editor.window.grid), end) << steps;
        EXPECT_TRUE(editor.dialogs.silent() && editor.rows() == rows) << steps;
    }
    ScriptEditor editor(script);
    editor.cell(2, 1) = "G"; // a save takes it for 0, with a warning
    EXPECT_EQ(grid_status(*editor.state).size, "4 of 4 bytes");
    EXPECT_EQ(save_place(*editor.state).text, "Save writes to 30000");
    editor.state->objects.selected_object.script_offset = 0xA08F7;
    EXPECT_EQ(save_place(*editor.state).text, "Save writes to A08F7, loaded from 30000");
    EXPECT_TRUE(editor.dialogs.silent() && save_place(*editor.state).elsewhere);
    editor.state->script.loaded.whole = false;
    EXPECT_EQ(save_place(*editor.state).text, "Can't be saved");
}

TEST(EventEditor, AWriteThatFailsLeavesABeginningOfTheScript) {
    struct Edited : ScriptEditor {
        Edited() : ScriptEditor(script) { act("@2,1 9"); }
    };
    expect_prefixes_of_writes([] { return Edited(); }, [](Edited& editor) { editor.act("save"); });
}

TEST(EventEditor, AScriptThatTheDiskRefusesToReadCanNotBeSaved) {
    const auto open = [](ScriptEditor& editor) { open_event_editor(*editor.state); };
    const auto expect_lost = [&](ScriptEditor& editor) {
        editor.act("save");
        EXPECT_EQ(editor.disk.writes, 0);
        open(editor);
        editor.act("save");
        EXPECT_EQ(std::ssize(editor.disk.log), 1);
    };
    expect_refused_reads([] { return ScriptEditor({0x4B, 1, 0, 0xFE}); }, open, expect_lost);
}

TEST(EventEditor, TheObjectWindowOpensTheScriptsOfNpcsAndTriggersAlone) {
    for (int tab = 0; tab < 5; ++tab)
        for (const bool object : {false, true}) {
            ScriptEditor editor;
            editor.state->form10.TabStrip1 = tab;
            if (object)
                editor.state->objects.selected_object.index = 0;
            open_event_editor_of_object(*editor.state);
            EXPECT_EQ(editor.window.visible, object && (tab == 0 || tab == 2)) << tab;
        }
}

TEST(EventEditor, AnOffsetThatIsTypedOpensTheEditorAnew) {
    ScriptEditor editor(script);
    put_bytes(editor.image(), 0x1234, Bytes{0x39, 0xFE});
    editor.click(1, 0);
    editor.window.Text3 = " 12 34";
    on_script_offset_enter(*editor.state);
    EXPECT_EQ(editor.rows(true), "39..; FE..");
    EXPECT_EQ(editor.window.Text3, "1234");
    EXPECT_FALSE(editor.window.Text2_visible);
}

TEST(EventEditor, AScriptThatWasNotReadWholeIsShownAndCanNotBeSaved) {
    const std::tuple<std::size_t, Bytes, std::size_t> cases[] = {
        {script_at, {}, 10002},                   // one byte of 10001 is left
        {0x110000 - 4, {0x38, 0x3D, 7, 0x39}, 6}, // the file ends
        {0x110000 - 4, {0x38, 0x38, 0x3C, 1}, 4}, // within a command
        {0x110000 - 4, {0x38, 5, 9, 0xFE}, 3},    // within a queue
        {0x110000 + 9, {}, 2}};
    for (const auto& [offset, end_of_file, rows] : cases) {
        ScriptEditor editor;
        Bytes& image = editor.image();
        for (std::size_t i = script_at; i < script_at + 10001; i += 2)
            image[i] = 0x3D;
        put_bytes(image, image.size() - end_of_file.size(), end_of_file);
        editor.state->objects.selected_object.script_offset = static_cast<std::int64_t>(offset);
        open_event_editor(*editor.state);
        EXPECT_EQ(editor.window.grid.size(), rows); // with the header and the spare one
        EXPECT_EQ(editor.dialogs.messages.size(), 1u);
        editor.act("+ FE save");
        EXPECT_EQ(editor.disk.writes, 0);
        EXPECT_EQ(editor.dialogs.messages.size(), 2u);
    }
    // One that fills the buffer to its last byte is whole.
    Bytes longest(10001, 0x38);
    longest.back() = 0xFE;
    ScriptEditor editor(longest);
    EXPECT_TRUE(editor.dialogs.silent());
    EXPECT_EQ(editor.encode().bytes, longest);
}

TEST(EventEditor, AScriptOfAnotherImageCanNotBeSaved) {
    ScriptEditor editor(script);
    editor.disk["b.smc"] = editor.image();
    open_image_file(*editor.state, "b.smc");
    editor.act("save");
    EXPECT_EQ(editor.disk.writes, 0);
    const std::string why =
        "This script was read from a.smc and can't be saved into the open image, b.smc.";
    EXPECT_EQ(editor.dialogs.messages, (Messages{{why, "Error"}}));
    open_image_file(*editor.state, "a.smc");
    editor.act("save");
    EXPECT_EQ(std::ssize(editor.disk.log), 1);
    editor.act("@2,1 9");
    editor.dialogs.file_names = {"c.smc"};
    save_as(*editor.state); // a copy counts as what it was made of
    editor.act("save");
    EXPECT_EQ(editor.disk["c.smc"][script_at + 1], 9);
    EXPECT_EQ(editor.image()[script_at + 1], 7);
}

TEST(EventEditor, TheMarkOfTheImageChoosesTheDialogueTable) {
    for (const std::uint8_t mark : Bytes{0xFF, 0xFD, 0xFE}) {
        ScriptEditor editor;
        Bytes& image = editor.image();
        image.resize(0x300300, 0);
        image[0x3000E1] = mark;
        put_bytes(image, 0x300200, hex_bytes("00 00 C1 00 00 C1")); // both at 0x10200
        image[0x10200] = 0x39;
        editor.load({0x4B, 1, 0, 0xFE});
        const bool patched = mark == 0xFD;
        EXPECT_EQ(editor.row(2), patched ? ".1. Z@500" : ".1. A/> B@750");
        editor.act("@2,1 0");
        EXPECT_EQ(editor.row(2), patched ? ".0000. Z@400" : ".0000. A@400");
    }
}

TEST(EventEditor, WithoutAWindowNothingHappens) {
    for (const bool with_image : {false, true}) {
        Editor editor(with_image ? script_image() : Bytes());
        open_event_editor(editor.s);
        EXPECT_EQ(editor.s.form9.visible, with_image);
        close_event_editor(editor.s);
        editor.dialogs.messages.clear(); // of a script that is none
        editor.s.form9.Text2 = editor.s.form9.Text3 = "5";
        on_script_click(editor.s, 1, 1);
        for (void (*command)(EditorState&) :
             {on_script_enter, on_script_escape, add_script_item, remove_script_item,
              on_script_offset_enter, save_script})
            command(editor.s);
        EXPECT_TRUE(!editor.s.form9.visible && editor.disk.writes == 0 && editor.dialogs.silent());
    }
}

} // namespace
} // namespace veldrune::test
