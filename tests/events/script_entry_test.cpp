// Entry by the keyboard: what is typed into the edit box, Enter by Enter, and what breaks it off.

#include "editor/code_offers.h"
#include "support/script_fixture.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

const Bytes two_commands{0x3D, 7, 0x38, 0xFE};

TEST(ScriptEntry, ACommandOfEveryFormIsTypedThroughAndEncoded) {
    // clang-format off
    const struct { const char *typed, *bytes; } cases[] = {
        {"39", "39"}, {"3d 9", "3D 9"}, {"A0 1 2 3 4 5", "A0 1 2 3 4 5"}, {"48 405", "48 5 4"}, {"E9 1 203", "E9 1 3 2"},
        {"37 1 2", "37 1 2"}, {"53 1 2 3", "53 1 2 3"}, {"3C 1 2 3 4", "3C 1 2 3 4"}, {"84 1234", "84 34 12"}, {"6C 1 2 3", "6C 1 0 2 0 3 0"},
        {"B2 a0203", "B2 3 0 0"}, {"6A 5 1 2 0", "6A 5 0 1 2 0"}, {"B7 1 10A01FF", "B7 1 FF FF FF"}, {"B6 0A0201_0A0202", "B6 1 0 0 2 0 0"},
        {"BE 2 0A0201/0A0202", "BE 2 1 0 0 2 0 0"}, {"C9 1 2 0A0203", "C9 1 0 2 0 3 0 0"}, {"56 A 5", "56 A5"},
        {"73 1 2 2 1 03_04", "73 1 2 2 1 3 4"},
        // Queues: the typed number counts actions, the end included; the cell then counts bytes.
        {"5 0", "5 0"}, {"5 1", "5 1 FF"}, {"34 3 80 CC", "34 3 80 CC FF"}, {"5 83 80 E0 7", "5 84 80 E0 7 FF"},
        {"5 9 1 41 d5 1 2 AC FF f9 A0205 E6 3 FD 4", "5 10 1 41 D5 1 2 AC FF F9 5 0 0 E6 3 FD 4 FF"},
        // No template: nothing comes, and the row of Add Item goes.
        {"66", ""}, {"B8", ""}, {"FF", ""}, {"1FE", ""},
    };
    // clang-format on
    for (const auto& c : cases) {
        ScriptEditor editor(two_commands);
        editor.act("@1,0 @2,1 +");
        EXPECT_EQ(editor.window.grid_row, 3);
        EXPECT_EQ(editor.window.Text2, "");
        editor.act(c.typed);
        EXPECT_TRUE(editor.dialogs.silent() && !editor.window.Text2_visible) << c.typed;
        EXPECT_EQ(editor.encode().bytes, hex_bytes(std::string("3D 7 ") + c.bytes + " 38 FE"));
        // Retyped in column 0 the same command takes the place of another.
        ScriptEditor other({0x3D, 7, 0xC1, 1, 0, 2, 0, 3, 0, 0, 0x38, 0xFE});
        other.act(std::string("@3,0 ") + c.typed);
        EXPECT_EQ(other.rows(), editor.rows()) << c.typed;
    }
}

TEST(ScriptEntry, NewRowsHaveTheirLabelsAndTypedDialoguesTheirText) {
    // clang-format off
    const struct { Bytes script; const char *steps, *rows; } cases[] = {
        {{0xFE}, "+ 48 2", "48.. Display Dialogue, Don't Wait; .0002. A/> B/> C@800"},
        {{0xFE}, "+ 4B 8401", "4B.. Display Dialogue, Wait; .8401. A/> B@600"}, // ten bits: 1
        {{0xFE}, "+ BE 1 0A0200", "BE.. Jump to indexed subroutine based on the state of bit $1EB4(x); .01. Number of Parameters; .0A0200/. Offset@250"},
        {{0xFE}, "+ 5 2 D5 1 2", "05.. Action Queue; .04. Number of Bytes in Queue (includes end command); "
                                 ".D5. Set Position; ..01 Destination X; ..02 Destination Y; .FF. End Queue"},
        {{0xFE}, "+ 5 9 esc", "05.. Action Queue; .01. Number of Bytes in Queue (includes end command); .FF. End Queue"},
        // Typed later: fourteen bits, so dialogue 402 hexadecimal, 1026: no choices.
        {{0x4B, 1, 0, 0xFE}, "@2,1 c402", "4B.. Display Dialogue, Wait; .C402. A@400"},
        {{0x4B, 1, 0, 0xFE}, "@2,1 4003", "4B.. Display Dialogue, Wait; .4003. A/> B/> C/> D@1000"},
    };
    // clang-format on
    for (const auto& c : cases) {
        ScriptEditor editor(c.script);
        editor.act(c.steps); // nothing clicked yet: Add Item goes before the last "Return"
        EXPECT_EQ(editor.rows(), std::string(c.rows) + "; FE.. Return");
    }
}

TEST(ScriptEntry, AnEntryThatIsBrokenOffLeavesWhatWasEntered) {
    // clang-format off
    const struct { const char *typed, *rows; } cases[] = { // between 3D 07 and 38
        {"+", ""}, {"+ 3C", "3C..; "}, {"+ 3C 1 2", "3C..; .01.; .02.; "}, {"+ BE 3", "BE..; .03.; "},
        {"+ 5", "05..; .01.; .FF.; "}, {"+ 5 85 E0 1", "05..; .83.; .E0.; ..01; .FF.; "},
        {"+ 5 5 D5 1", "05..; .01.; .FF.; "}, // an action that lacks a row goes
        {"+ 5 5 80 D5", "05..; .02.; .80.; .FF.; "}, {"+ 5 2 80 @5,1 D5", "05..; .04.; .D5.; .FF.; "},
    };
    // clang-format on
    for (const auto& c : cases)
        for (const char* breaker : {"esc", "@1,3", "@9,0", "save", "+ esc"}) {
            ScriptEditor editor(two_commands);
            editor.act(std::string("@2,1 ") + c.typed + " " + breaker);
            EXPECT_EQ(editor.rows(true), std::string("3D..; .7.; ") + c.rows + "38..; FE..")
                << c.typed << " " << breaker;
            // Nothing of the entry is left: a click and a value go their ordinary way.
            editor.act("@2,1 9");
            EXPECT_EQ(editor.row(2, true), ".09.");
            EXPECT_FALSE(editor.window.Text2_visible);
        }
}

// A queue of which the last action reaches beyond the most that its count can say.
std::string overlong(const std::string& first_action) {
    std::string script = "5 FF " + first_action;
    for (int i = 0; i < 124; ++i)
        script += " 81";
    return script + " F9 1 0 0 FE";
}

TEST(ScriptEntry, StepsChangeTheirOwnBytesAndNothingElse) {
    const char *two = "3D 7 38 FE", *queue = "3D 7 5 83 80 81 FF 38 FE";
    const char* branch = "C0 0 0 0 0 0 38 38 FE";
    const std::string long_two = overlong("E0 7"), long_one = overlong("80");
    // clang-format off
    const struct { const char *script, *steps, *result; } cases[] = {
        // Remove Item takes what was clicked, in any column, and nothing twice.
        {two, "@2,1 - -", "38 FE"}, {two, "@2,1 @3,0 -", "3D 7 FE"}, {two, "@3,0 @3,3 -", two}, {two, "@3,0 @3,1 -", two},
        {two, "@3,0 @0,0 -", two}, {two, "@3,0 esc -", two}, {two, "@3,0 66 -", "3D 7 FE"}, {two, "@1,0 38 -", "38 FE"},
        {two, "@3,0 + -", "3D 7 FE"}, // it has moved down and up again
        {two, "+ 39 -", two}, {two, "+ 3C 1 -", two},
        // Add Item: before the next command, the command itself, or the last "Return".
        {two, "@1,0 + 39", "39 3D 7 38 FE"}, {two, "@2,3 + 39", "3D 7 39 38 FE"}, {two, "@5,0 + 39", "3D 7 38 39 FE"},
        {two, "+ + 39", "3D 7 38 39 FE"}, {two, "@4,0 - + FE", two},
        {two, "@4,0 - save FE", two}, // the box waits at the end
        {two, "@3,0 + @3,0 -", two},  // a click on the blank row
        {two, "@3,0 + @4,0 -", "3D 7 FE"}, {two, "@2,1 + 5 @5,0 -", "3D 7 5 1 FF FE"}, // it moves up, or down
        // A click on a row of the unfinished entry that goes with it takes no other in its place.
        {two, "@3,0 + @3,0 9 -", two}, {two, "@2,1 + 5 5 D5 1 @6,2 9 -", "3D 7 5 1 FF 38 FE"},
        {branch, "@1,0 d 2 FA @3,1 9 -", "D 1 FF 38 38 FE"}, {branch, "@1,0 d 2 D5 7 @4,2 9 -", "D 1 FF 38 38 FE"},
        // Blank cells that are filled when the entry has ended: the end and the count.
        {two, "@2,1 + 5 5 80 @6,1 84", "3D 7 5 2 80 84 38 FE"}, {two, "@2,1 + 5 @4,1 81", "3D 7 5 81 FF 38 FE"},
        // Values.
        {two, "@2,1 1a", "3D 1A 38 FE"}, {two, "@2,1 1a/", "3D 1A 38 FE"}, // a break is none of its digits
        {two, "@2,1 _ 1a", "3D 1A 38 FE"}, {two, "@3,0 3E 5", "3D 7 3E 5 FE"},
        // Actions of a queue that is whole: the count follows, with its bit.
        {queue, "@5,1 84", "3D 7 5 83 84 81 FF 38 FE"}, {queue, "@5,1 E0 9", "3D 7 5 84 E0 9 81 FF 38 FE"},
        {queue, "@6,1 D5 1 2 @6,1 F9 A0201", "3D 7 5 86 80 F9 1 0 0 FF 38 FE"},
        {queue, "@6,1 D5 1 esc @6,1 82", "3D 7 5 83 80 82 FF 38 FE"},
        {queue, "@5,1 1E0", queue},                      // no byte: refused
        {queue, "@5,1 g1", "3D 7 5 83 11 81 FF 38 FE"},  // as parsed
        {queue, "@7,1 E0 3", "3D 7 5 84 80 81 E0 3 38 FE"}, {queue, "@4,1 3", "3D 7 5 3 80 81 FF 38 FE"},
        {queue, "@4,1 2 @5,1 -", "3D 7 38 FE"}, {queue, "@4,1 9 @5,1 -", "3D 7 38 FE"}, // all rows, whatever the count
        {long_two.c_str(), "@3,1 80", long_one.c_str()}, {"5 1 E0 7 FE", "@3,1 E1 8", "5 1 E1 8 FE"},
    };
    // clang-format on
    for (const auto& c : cases) {
        ScriptEditor editor(hex_bytes(c.script));
        editor.act(c.steps);
        EXPECT_EQ(editor.encode().bytes, hex_bytes(c.result)) << c.steps;
    }
}

TEST(ScriptEntry, MessagesOfTheEditBox) {
    ScriptEditor editor(two_commands);
    editor.act("@2,1 __");
    EXPECT_EQ(editor.dialogs.messages, (Messages{{"You must enter some valid hex fool", "Nope"}}));
    EXPECT_TRUE(editor.window.Text2_visible);
    EXPECT_EQ(editor.window.Text2, "  ") << "and does nothing else";

    // A queue that is too long for its count is refused at the action that is too much for it:
    // beyond 128 bytes, with the bit 127.
    const std::pair<const char*, bool> cases[] = {{"+ 5 100", true},    {"+ 5 80 E0", true},
                                                  {"+ 5 7F E0", false}, {"+ 5 7F D5", true},
                                                  {"+ 5 FF E0", true},  {"+ 5 FE E0", false}};
    for (const auto& [steps, refused] : cases) {
        ScriptEditor other(two_commands);
        other.act(steps);
        EXPECT_EQ(other.dialogs.messages.size(), refused ? 1u : 0u) << steps;
        EXPECT_TRUE(other.window.Text2_visible);
    }
    ScriptEditor full(two_commands);
    full.act("+ 5 80 E0");
    for (int action = 0; action < 127; ++action)
        full.act("1"); // goes on where it was refused
    EXPECT_EQ(full.encode().bytes.size(), two_commands.size() + 130);
    EXPECT_EQ(full.encode().bytes[4], 0x80);
}

TEST(CodeOffers, FindCodesByTheirFirstDigitsOrTheirWords) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        // steps, typed, the codes offered
        {"@1,0", "3D", "3D"},
        {"@1,0", " 3b ", "3B"},
        {"@1,0", "6", "06 60 61 62 63 64 65 6A 6B 6C"}, // 66 and others have no rows
        {"+", "B", "0B B0 B1 B2 B3 B4 B5 B6 B7 B9 BA BB BC BD BE BF"},
        {"+", "load MAP", "6A 6B"},
        {"+", "fade", "59 5A 97 F1 F2"}, // no code has so many digits
        {"+", "", ""},
        {"+", "no such words", ""},
        {"@2,1", "3D", ""}, // a value
        {"+ 5", "3D", ""},  // a count
        {"+ 5 3", "d5", "D5"},
        {"+ 5 3", "disappear", "D1"},
        {"+ 5 3 D5", "d5", ""}, // its argument
        {"+ 5 3 80 81 @6,1", "e", "0E E0 E1 E2 E3 E4 E5 E6"},
    };
    for (const auto& [steps, typed, codes] : cases) {
        ScriptEditor editor(two_commands);
        editor.act(steps);
        editor.window.Text2 = typed;
        std::string offered;
        for (const auto& offer : offered_codes(*editor.state))
            offered += (offered.empty() ? "" : " ") + code_of(offer);
        EXPECT_EQ(offered, codes) << steps << ": " << typed;
    }
}

} // namespace
} // namespace veldrune::test
