// Opening, reopening and saving a script in place.

#include "editor/save.h"
#include "support/script_fixture.h"
#include "support/write_failures.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

const Bytes script{0x3D, 7, 0x38, 0xFE};

// Saves the script after these steps and tells what stands at its place.
Bytes saved(ScriptEditor& editor, std::size_t count = 6) {
    save_script(*editor.state);
    const auto at = editor.image().begin() + script_at;
    return {at, at + static_cast<std::ptrdiff_t>(count)};
}

TEST(EventEditor, ASaveGoesInPlaceAndTouchesNothingElse) {
    ScriptEditor editor(script);
    Bytes image = editor.image();
    editor.click(2, 1);
    editor.type("9");
    EXPECT_EQ(saved(editor), (Bytes{0x3D, 9, 0x38, 0xFE, 0, 0}));
    image[script_at + 1] = 9;
    EXPECT_EQ(editor.image(), image);
    // A shorter one leaves its old tail; it may grow again, up to the length that was read.
    editor.click(3, 0);
    remove_script_item(*editor.state);
    EXPECT_EQ(saved(editor), (Bytes{0x3D, 9, 0xFE, 0xFE, 0, 0}));
    add_script_item(*editor.state);
    editor.type("39");
    EXPECT_EQ(saved(editor), (Bytes{0x3D, 9, 0x39, 0xFE, 0, 0}));
    EXPECT_TRUE(editor.dialogs.silent());
    add_script_item(*editor.state);
    editor.type("39");
    const int writes = editor.disk.writes;
    EXPECT_EQ(saved(editor), (Bytes{0x3D, 9, 0x39, 0xFE, 0, 0}));
    EXPECT_EQ(editor.disk.writes, writes);
    EXPECT_EQ(editor.dialogs.messages, (Messages{{"Not Now", "Veldrune Map Editor"}}));
    EXPECT_TRUE(editor.window.visible);
}

TEST(EventEditor, ASaveGoesWhereTheSelectedObjectPoints) {
    ScriptEditor editor(script);
    Bytes image = editor.image();
    editor.state->objects.selected_object.script_offset = 0x40000;
    editor.window.Text3 = "12345";
    save_script(*editor.state);
    put_bytes(image, 0x40000, script);
    EXPECT_EQ(editor.image(), image);
}

TEST(EventEditor, AWriteThatFailsIsToldAndLeavesABeginningOfTheScript) {
    struct Edited : ScriptEditor {
        Edited() : ScriptEditor(script) {
            click(2, 1);
            type("9");
        }
    };
    expect_prefixes_of_writes([] { return Edited(); },
                              [](Edited& editor) { save_script(*editor.state); });
}

TEST(EventEditor, AReadThatTheDiskRefusesIsToldAndTheScriptCanNotBeSaved) {
    for (int at = 1; at <= 3; ++at) { // the script, a dialogue's entry, its text
        ScriptEditor editor({0x4B, 1, 0, 0xFE});
        editor.disk.fail({.at = at}, {});
        open_event_editor(*editor.state);
        editor.disk.fail({}, {});
        ASSERT_EQ(editor.dialogs.messages.size(), 1u) << at;
        EXPECT_TRUE(editor.dialogs.messages[0].text.starts_with("Reading a.smc failed.")) << at;
        save_script(*editor.state);
        EXPECT_EQ(editor.disk.writes, 0);
        open_event_editor(*editor.state);
        save_script(*editor.state);
        EXPECT_EQ(editor.disk.writes, 1);
    }
}

TEST(EventEditor, TheObjectWindowOpensTheScriptsOfNpcsAndTriggersAlone) {
    for (int tab = 0; tab < 5; ++tab)
        for (const bool object : {false, true}) {
            ScriptEditor editor;
            editor.state->form10.TabStrip1 = tab;
            editor.state->objects.selected_object.index =
                object ? std::optional<int>(0) : std::nullopt;
            open_event_editor_of_object(*editor.state);
            EXPECT_EQ(editor.window.visible, object && (tab == 0 || tab == 2)) << tab;
        }
}

TEST(EventEditor, AnOffsetThatIsTypedOpensTheEditorAnew) {
    ScriptEditor editor(script);
    editor.image()[0x1234] = 0x39;
    editor.image()[0x1235] = 0xFE;
    editor.click(1, 0);
    editor.window.Text3 = " 12 34";
    const int loads = editor.window.load_number;
    on_script_offset_enter(*editor.state);
    EXPECT_EQ(editor.rows(), (std::vector<std::string>{"39|||Free Screen|0", "FE|||Return|0"}));
    EXPECT_EQ(editor.window.Text3, "1234");
    EXPECT_EQ(editor.state->objects.selected_object.script_offset, 0x1234);
    EXPECT_EQ(editor.window.load_number, loads + 1);
    EXPECT_FALSE(editor.window.Text2_visible);
    remove_script_item(*editor.state); // nothing is remembered from before
    EXPECT_EQ(editor.rows().size(), 2u);
}

TEST(EventEditor, AScriptThatWasNotReadWholeIsShownAndCanNotBeSaved) {
    // clang-format off
    const struct { std::size_t offset; Bytes tail; std::size_t commands; } cases[] = { // tail: of the file
        {script_at,    {},                    5000}, // one byte of 10001 is left
        {0x110000 - 4, {0x38, 0x3D, 7, 0x39}, 3},    // the file ends
        {0x110000 - 4, {0x38, 0x38, 0x3C, 1}, 2},    // within a command
        {0x110000 - 4, {0x38, 5, 9, 0xFE},    1},    // within a queue
        {0x110000 + 9, {},                    0},
    };
    // clang-format on
    for (const auto& c : cases) {
        ScriptEditor editor;
        Bytes& image = editor.image();
        for (std::size_t i = script_at; i < script_at + 10001; i += 2)
            image[i] = 0x3D;
        put_bytes(image, image.size() - c.tail.size(), c.tail);
        editor.state->objects.selected_object.script_offset = static_cast<std::int64_t>(c.offset);
        open_event_editor(*editor.state);
        std::size_t commands = 0;
        for (int row = 1; row < static_cast<int>(editor.window.grid.size()); ++row)
            commands += starts_command(editor.window.grid, row);
        EXPECT_EQ(commands, c.commands);
        EXPECT_EQ(editor.dialogs.messages.size(), 1u);
        add_script_item(*editor.state);
        editor.type("FE");
        save_script(*editor.state);
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
    save_script(*editor.state);
    EXPECT_EQ(editor.disk.writes, 0);
    EXPECT_EQ(
        editor.dialogs.messages,
        (Messages{{"This script was read from a.smc and can't be saved into the open image, b.smc.",
                   "Error"}}));
    open_image_file(*editor.state, "a.smc");
    save_script(*editor.state);
    EXPECT_EQ(editor.disk.writes, 1);
    editor.click(2, 1);
    editor.type("9");
    editor.dialogs.file_names = {"c.smc"};
    save_as(*editor.state); // a copy counts as what it was made of
    save_script(*editor.state);
    EXPECT_EQ(editor.disk["c.smc"][script_at + 1], 9);
    EXPECT_EQ(editor.image()[script_at + 1], 7);
}

TEST(EventEditor, TheMarkOfTheImageChoosesTheDialogueTable) {
    for (const int mark : {0xFF, 0xFD, 0xFE}) {
        ScriptEditor editor;
        Bytes& image = editor.image();
        image.resize(0x300300, 0);
        image[0x3000E1] = static_cast<std::uint8_t>(mark);
        put_bytes(image, 0x300200, hex_bytes("00 00 C1 00 00 C1")); // both at 0x10200
        image[0x10200] = 0x39;
        editor.load({0x4B, 1, 0, 0xFE});
        const bool patched = mark == 0xFD;
        EXPECT_EQ(editor.rows()[1], patched ? "|1||Z|500" : "|1||A/> B|750");
        editor.click(2, 1);
        editor.type("0");
        EXPECT_EQ(editor.rows()[1], patched ? "|0000||Z|400" : "|0000||A|400");
    }
}

TEST(EventEditor, WithoutAnImageOrAWindowNothingHappens) {
    MemoryDisk disk;
    ScriptedDialogs dialogs;
    EditorState state(disk, dialogs);
    const auto press_everything = [&] {
        state.form9.Text2 = state.form9.Text3 = "5";
        for (void (*command)(EditorState&) :
             {on_script_enter, on_script_escape, add_script_item, remove_script_item,
              on_script_offset_enter, save_script})
            command(state);
        on_script_click(state, 1, 1);
    };
    open_event_editor(state);
    press_everything();
    EXPECT_FALSE(state.form9.visible);
    ScriptEditor editor(script);
    close_event_editor(*editor.state);
    save_script(*editor.state);
    EXPECT_EQ(editor.disk.writes, 0);
    EXPECT_TRUE(dialogs.silent() && editor.dialogs.silent());
}

} // namespace
} // namespace veldrune::test
