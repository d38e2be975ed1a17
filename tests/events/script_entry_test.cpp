// Entry by the keyboard: what is typed into the edit box, Enter by Enter, and what breaks it off.

#include "support/script_fixture.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

using Texts = std::vector<std::string>;

const Bytes two_commands{0x3D, 7, 0x38, 0xFE};

Bytes between(const Bytes& middle) {
    Bytes all{0x3D, 7};
    all.insert(all.end(), middle.begin(), middle.end());
    all.insert(all.end(), {0x38, 0xFE});
    return all;
}

TEST(ScriptEntry, ACommandOfEveryFormIsTypedThroughAndEncoded) {
    const struct {
        Texts typed;
        Bytes bytes;
    } cases[] = {
        {{"39"}, {0x39}},
        {{"3d", "9"}, {0x3D, 9}},
        {{"37", "1", "2"}, {0x37, 1, 2}},
        {{"53", "1", "2", "3"}, {0x53, 1, 2, 3}},
        {{"3C", "1", "2", "3", "4"}, {0x3C, 1, 2, 3, 4}},
        {{"A0", "1", "2", "3", "4", "5"}, {0xA0, 1, 2, 3, 4, 5}},
        {{"48", "405"}, {0x48, 5, 4}},
        {{"84", "1234"}, {0x84, 0x34, 0x12}},
        {{"E9", "1", "203"}, {0xE9, 1, 3, 2}},
        {{"6C", "1", "2", "3"}, {0x6C, 1, 0, 2, 0, 3, 0}},
        {{"6A", "5", "1", "2", "0"}, {0x6A, 5, 0, 1, 2, 0}},
        {{"B2", "a0203"}, {0xB2, 3, 0, 0}},
        {{"B7", "1", "10A01FF"}, {0xB7, 1, 0xFF, 0xFF, 0xFF}},
        {{"B6", "0A0201 0A0202"}, {0xB6, 1, 0, 0, 2, 0, 0}},
        {{"BE", "2", "0A0201 0A0202"}, {0xBE, 2, 1, 0, 0, 2, 0, 0}},
        {{"C9", "1", "2", "0A0203"}, {0xC9, 1, 0, 2, 0, 3, 0, 0}},
        {{"56", "A", "5"}, {0x56, 0xA5}},
        {{"73", "1", "2", "2", "1", "3 4"}, {}}, // three digits more than it takes: refused
        {{"73", "1", "2", "2", "1", "03 04"}, {0x73, 1, 2, 2, 1, 3, 4}},
        // Queues: the typed number counts actions, the end included; the cell then counts bytes.
        {{"5", "0"}, {5, 0}},
        {{"5", "1"}, {5, 1, 0xFF}},
        {{"34", "3", "80", "CC"}, {0x34, 3, 0x80, 0xCC, 0xFF}},
        {{"5", "83", "80", "E0", "7"}, {5, 0x84, 0x80, 0xE0, 7, 0xFF}},
        {{"5", "9", "1", "41", "d5", "1", "2", "AC", "FF", "f9", "A0205", "E6", "3", "FD", "4"},
         {5, 16, 1, 0x41, 0xD5, 1, 2, 0xAC, 0xFF, 0xF9, 5, 0, 0, 0xE6, 3, 0xFD, 4, 0xFF}},
        // No template: nothing comes, and the row of Add Item goes.
        {{"66"}, {}},
        {{"B8"}, {}},
        {{"FF"}, {}},
        {{"1FE"}, {}},
    };
    for (const auto& c : cases) {
        ScriptEditor editor(two_commands);
        editor.click(1, 0);
        editor.click(2, 1);
        add_script_item(*editor.state);
        EXPECT_EQ(editor.window.grid_row, 3);
        EXPECT_EQ(editor.window.Text2, "");
        editor.type(c.typed);
        const bool refused = !editor.dialogs.silent();
        EXPECT_EQ(refused, c.bytes.empty() && c.typed.size() > 1) << c.typed[0];
        EXPECT_EQ(editor.window.Text2_visible, refused);
        EXPECT_TRUE(refused || editor.encode().bytes == between(c.bytes)) << c.typed[0];
        // Retyped in column 0 the same command takes the place of another.
        ScriptEditor other(between({0xC1, 1, 0, 2, 0, 3, 0, 0}));
        other.click(3, 0);
        other.type(c.typed);
        EXPECT_EQ(other.rows(), editor.rows()) << c.typed[0];
    }
}

TEST(ScriptEntry, NewRowsHaveTheLabelsOfTheirTemplates) {
    const struct {
        Texts typed;
        std::vector<std::string> rows;
    } cases[] = {
        {{"48", "2"}, {"48|||Display Dialogue, Don't Wait|0", "|0002||A/> B/> C|800"}},
        {{"4B", "8401"}, {"4B|||Display Dialogue, Wait|0", "|8401||A/> B|600"}}, // ten bits: 1
        {{"70", "1", "2"},
         {"70|||Scroll Layer 3|0", "|01||X Scroll (0-7F = Left, 80-FF = Right)|0",
          "|02||Y Scroll (0-7F = Left, 80-FF = Right)|0"}},
        {{"EA", "1", "2"}, {"EA||||0", "|01|||0", "|0002|||0"}},
        {{"BE", "1", "0A0200"},
         {"BE|||Jump to indexed subroutine based on the state of bit $1EB4(x)|0",
          "|01||Number of Parameters|0", "|0A0200/||Offset|250"}},
        {{"5", "2", "D5", "1", "2"},
         {"05|||Action Queue|0", "|04||Number of Bytes in Queue (includes end command)|0",
          "|D5||Set Position|0", "||01|Destination X|0", "||02|Destination Y|0",
          "|FF||End Queue|0"}},
    };
    for (const auto& c : cases) {
        ScriptEditor editor({0xFE});
        add_script_item(*editor.state); // nothing clicked yet: before the last "Return"
        editor.type(c.typed);
        std::vector<std::string> rows = c.rows;
        rows.push_back("FE|||Return|0");
        EXPECT_EQ(editor.rows(), rows);
    }
}

// "+": Add Item, "-": Remove Item, "esc", "save", "@r,c": a click; anything else is typed.
void act(ScriptEditor& editor, const Texts& steps) {
    for (const std::string& step : steps)
        if (step == "+")
            add_script_item(*editor.state);
        else if (step == "-")
            remove_script_item(*editor.state);
        else if (step == "esc")
            on_script_escape(*editor.state);
        else if (step == "save")
            save_script(*editor.state);
        else if (step[0] == '@')
            editor.click(std::stoi(step.substr(1)), std::stoi(step.substr(step.find(',') + 1)));
        else
            editor.type(step);
}

TEST(ScriptEntry, AnEntryThatIsBrokenOffLeavesWhatWasEntered) {
    const Texts breakers[] = {{"esc"}, {"@1,3"}, {"@9,0"}, {"save"}, {"+", "esc"}};
    const std::string queue = "05|||Action Queue|0", end = "|FF||End Queue|0";
    const auto counted = [](const char* count) {
        return std::string("|") + count + "||Number of Bytes in Queue (includes end command)|0";
    };
    // clang-format off
    const struct { Texts typed, rows; } cases[] = { // between 3D 07 and 38
        {{"+"}, {}},
        {{"+", "3C"}, {"3C|||Assign Characters to Party|0"}},
        {{"+", "3C", "1", "2"}, {"3C|||Assign Characters to Party|0", "|01||Character 1|0", "|02||Character 2|0"}},
        {{"+", "BE", "3"}, {"BE|||Jump to indexed subroutine based on the state of bit $1EB4(x)|0", "|03||Number of Parameters|0"}},
        {{"+", "5"}, {queue, counted("01"), end}},
        {{"+", "5", "85", "E0", "1"}, {queue, counted("83"), "|E0||Pause for xx Units|0", "||01|xx|0", end}},
        {{"+", "5", "5", "D5", "1"}, {queue, counted("01"), end}}, // an action that lacks a row goes
        {{"+", "5", "5", "80", "D5"}, {queue, counted("02"), "|80||Move Character Up 1 Tile|0", end}},
    };
    // clang-format on
    for (const auto& c : cases)
        for (const Texts& breaker : breakers) {
            ScriptEditor editor(two_commands);
            act(editor, {"@2,1"});
            act(editor, c.typed);
            act(editor, breaker);
            std::vector<std::string> rows{"3D|||Create Object|0", "|7||Object Number|0"};
            rows.insert(rows.end(), c.rows.begin(), c.rows.end());
            rows.insert(rows.end(), {"38|||Hold Screen|0", "FE|||Return|0"});
            EXPECT_EQ(editor.rows(), rows) << c.typed.back() << " " << breaker[0];
            // Nothing of the entry is left: a click and a value go their ordinary way.
            act(editor, {"@2,1", "9"});
            EXPECT_EQ(editor.rows()[1], "|09||Object Number|0");
            EXPECT_FALSE(editor.window.Text2_visible);
        }
}

// A queue of which the last action reaches beyond the most that its count can tell.
Bytes overlong(Bytes first_action) {
    Bytes script{5, 0xFF};
    script.insert(script.end(), first_action.begin(), first_action.end());
    script.resize(script.size() + 124, 0x81);
    script.insert(script.end(), {0xF9, 1, 0, 0, 0xFE});
    return script;
}

TEST(ScriptEntry, StepsChangeTheScriptAsToldAndNothingElse) {
    const Bytes queue{0x3D, 7, 5, 0x83, 0x80, 0x81, 0xFF, 0x38, 0xFE};
    const struct {
        Bytes script;
        Texts steps;
        Bytes result;
    } cases[] = {
        // Remove Item takes what was clicked, in any column, and nothing twice.
        {two_commands, {"@2,1", "-", "-"}, {0x38, 0xFE}},
        {two_commands, {"@2,1", "@3,0", "-"}, {0x3D, 7, 0xFE}},
        {two_commands, {"@3,0", "@3,3", "-"}, two_commands},
        {two_commands, {"@3,0", "@3,1", "-"}, two_commands},
        {two_commands, {"@3,0", "@0,0", "-"}, two_commands},
        {two_commands, {"@3,0", "esc", "-"}, two_commands},
        {two_commands, {"@3,0", "+", "-"}, {0x3D, 7, 0xFE}}, // it has moved down and up again
        {two_commands, {"@3,0", "66", "-"}, {0x3D, 7, 0xFE}},
        {two_commands, {"@1,0", "38", "-"}, {0x38, 0xFE}},
        {two_commands, {"+", "39", "-"}, two_commands},
        {two_commands, {"+", "3C", "1", "-"}, two_commands},
        // Add Item: before the next command, the command itself, or the last "Return".
        {two_commands, {"@1,0", "+", "39"}, {0x39, 0x3D, 7, 0x38, 0xFE}},
        {two_commands, {"@2,3", "+", "39"}, {0x3D, 7, 0x39, 0x38, 0xFE}},
        {two_commands, {"@5,0", "+", "39"}, {0x3D, 7, 0x38, 0x39, 0xFE}},
        {two_commands, {"+", "+", "39"}, {0x3D, 7, 0x38, 0x39, 0xFE}},
        {two_commands, {"@4,0", "-", "+", "FE"}, two_commands},
        {two_commands, {"@4,0", "-", "save", "FE"}, two_commands}, // the box waits at the end
        {two_commands, {"@3,0", "+", "@3,0", "-"}, two_commands},  // a click on the blank row
        {two_commands, {"@3,0", "+", "@4,0", "-"}, {0x3D, 7, 0xFE}},
        // Values.
        {two_commands, {"@2,1", "1a"}, {0x3D, 0x1A, 0x38, 0xFE}},
        {two_commands, {"@2,1", "1a\n"}, {0x3D, 0x1A, 0x38, 0xFE}}, // a break is none of its digits
        {two_commands, {"@2,1", " ", "1a"}, {0x3D, 0x1A, 0x38, 0xFE}},
        {two_commands, {"@3,0", "3E", "5"}, {0x3D, 7, 0x3E, 5, 0xFE}},
        // Actions of a queue that stands: the count follows, with its bit.
        {queue, {"@5,1", "84"}, {0x3D, 7, 5, 0x83, 0x84, 0x81, 0xFF, 0x38, 0xFE}},
        {queue, {"@5,1", "E0", "9"}, {0x3D, 7, 5, 0x84, 0xE0, 9, 0x81, 0xFF, 0x38, 0xFE}},
        {queue,
         {"@6,1", "D5", "1", "2", "@6,1", "F9", "A0201"},
         {0x3D, 7, 5, 0x86, 0x80, 0xF9, 1, 0, 0, 0xFF, 0x38, 0xFE}},
        {queue,
         {"@6,1", "D5", "1", "esc", "@6,1", "82"},
         {0x3D, 7, 5, 0x83, 0x80, 0x82, 0xFF, 0x38, 0xFE}},
        {queue, {"@5,1", "1E0"}, queue}, // no byte: refused
        {queue, {"@5,1", "g1"}, {0x3D, 7, 5, 0x83, 0x11, 0x81, 0xFF, 0x38, 0xFE}}, // as parsed
        {queue, {"@7,1", "E0", "3"}, {0x3D, 7, 5, 0x84, 0x80, 0x81, 0xE0, 3, 0x38, 0xFE}},
        {queue, {"@4,1", "3"}, {0x3D, 7, 5, 3, 0x80, 0x81, 0xFF, 0x38, 0xFE}},
        {queue, {"@4,1", "2", "@5,1", "-"}, {0x3D, 7, 0x38, 0xFE}}, // all rows, whatever the count
        {queue, {"@4,1", "9", "@5,1", "-"}, {0x3D, 7, 0x38, 0xFE}},
        {overlong({0xE0, 7}), {"@3,1", "80"}, overlong({0x80})},
        {{5, 1, 0xE0, 7, 0xFE}, {"@3,1", "E1", "8"}, {5, 1, 0xE1, 8, 0xFE}},
    };
    for (const auto& c : cases) {
        ScriptEditor editor(c.script);
        act(editor, c.steps);
        EXPECT_EQ(editor.encode().bytes, c.result) << c.steps.front() << " " << c.steps.back();
    }
}

TEST(ScriptEntry, ALaterNumberOfADialogueIsReadWithFourteenBits) {
    ScriptEditor editor({0x4B, 1, 0, 0xFE});
    act(editor, {"@2,1", "c402"}); // dialogue 402 hexadecimal, 1026: no choices
    EXPECT_EQ(editor.rows()[1], "|C402||A|400");
    act(editor, {"@2,1", "4003"});
    EXPECT_EQ(editor.rows()[1], "|4003||A/> B/> C/> D|1000");
    EXPECT_EQ(editor.encode().bytes, (Bytes{0x4B, 3, 0x40, 0xFE}));
}

TEST(ScriptEntry, MessagesOfTheEditBox) {
    const std::string fool = "You must enter some valid hex fool";
    ScriptEditor editor(two_commands);
    act(editor, {"@2,1", "  "});
    EXPECT_EQ(editor.dialogs.messages, (Messages{{fool, "Nope"}}));
    EXPECT_TRUE(editor.window.Text2_visible);
    EXPECT_EQ(editor.window.Text2, "  ") << "and does nothing else";

    // A queue that its count can't tell is refused at the action that is too much for it.
    const auto refused = [](const Texts& steps) {
        ScriptEditor other(two_commands);
        act(other, steps);
        return other.dialogs.messages.size() == 1 && other.dialogs.messages[0].title == "Error" &&
               other.window.Text2_visible;
    };
    EXPECT_TRUE(refused({"+", "5", "100"}));
    EXPECT_TRUE(refused({"+", "5", "80", "E0"}));
    EXPECT_FALSE(refused({"+", "5", "7F", "E0"})); // 128 bytes
    EXPECT_TRUE(refused({"+", "5", "7F", "D5"}));
    EXPECT_TRUE(refused({"+", "5", "FF", "E0"})); // 127 with the bit
    EXPECT_FALSE(refused({"+", "5", "FE", "E0"}));
    ScriptEditor full(two_commands);
    act(full, {"+", "5", "80", "E0"});
    act(full, Texts(127, "1")); // goes on where it was refused
    EXPECT_EQ(full.encode().bytes.size(), two_commands.size() + 130);
    EXPECT_EQ(full.encode().bytes[4], 0x80);
}

} // namespace
} // namespace veldrune::test
