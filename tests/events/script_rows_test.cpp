// What the rows of a script look like, as loaded and as normalised, and what a save refuses.

#include "support/script_fixture.h"

#include <gtest/gtest.h>

namespace veldrune::test {

TEST(ScriptRows, EveryFormIsLaidOutAndNormalised) {
    // clang-format off
    const struct { const char *bytes, *loaded, *normalised; } cases[] = { // as values of the first command alone
        {"84 2C 01", "84..; .12C.", "84..; .012C."},
        {"55 A5", "55..; .A.; .5.", "55..; .0A.; .05."},
        {"B3 09 11 22 33", "B3..; .9.; .3D2411.", "B3..; .09.; .3D2411."},
        {"C1 01 00 02 80 00 00 00", "C1..; .1.; .8002.; .A0200.", "C1..; .0001.; .8002.; .0A0200."},
        {"74 01 02 02 03 0A 1B 2C 03 E4 F5", "74..; .1.; .2.; .2.; .3.; .0A 1B /2C 03 /E4 F5 /.@750",
            "74..; .01.; .02.; .02.; .03.; .0A1B/ 2C03/ E4F5/.@750"},
        {"73 01 02 00 03", "73..; .1.; .2.; .0.; .3.; ..@750", "73..; .01.; .02.; .00.; .03.; ..@750"},
        {"73 01 02 03 56 0A 1B", "73..; .1.; .2.; .3.; .56.; .0A 1B /.@21500", // a size beyond 8 bits
            "73..; .01.; .02.; .03.; .56.; .0A1B/.@21500"},
        {"BE 02 00 00 00 FF FF FF", "BE..; .2.; .A0200/10A01FF/.@500", // the highest pointer stays whole
            "BE..; .02.; .0A0200/ 10A01FF/.@500"},
        {"BE 00", "BE..; .0.; ..", "BE..; .00.; .."},
        {"05 8A 80 D5 01 02 F9 11 22 33 AC FF", "5..; .8A.; .80.; .D5.; ..1; ..2; .F9.; ..3D2411; .AC.; .FF.",
            "05..; .8A.; .80.; .D5.; ..01; ..02; .F9.; ..3D2411; .AC.; .FF."},
        {"05 02 FF E0 07", "5..; .2.; .FF.; .E0.; ..7", "05..; .02.; .FF.; .E0.; ..07"}, // the last action is read whole
        {"66", "66..", "66.."},
    };
    // clang-format on
    for (const auto& c : cases) {
        ScriptEditor editor(hex_bytes(c.bytes + std::string(" 38 FE")));
        EXPECT_EQ(editor.rows(true), c.loaded + std::string("; 38..; FE.."));
        EXPECT_FALSE(normalise_command(editor.window.grid, 1, editor.dialogs));
        EXPECT_EQ(editor.rows(true), c.normalised + std::string("; 38..; FE.."));
    }
}

TEST(ScriptRows, CellsCarryABlankInFrontAndLabelsAndTheGridASpareRow) {
    ScriptEditor editor({0x38, 0x70, 7, 1, 5, 2, 0xE0, 3, 0xFE});
    const ScriptGrid& grid = editor.window.grid;
    using Cells = std::array<std::string, 4>;
    EXPECT_EQ(grid[0].cells[0], "Primary\r\nCommands");
    EXPECT_EQ(grid[0].height, 500);
    EXPECT_EQ(grid[1].cells, (Cells{" 38", " ", " ", "Hold Screen"}));
    EXPECT_EQ(grid[3].cells, (Cells{"  ", " 7", " ", "X Scroll (0-7F = Left, 80-FF = Right)"}));
    EXPECT_EQ(grid[8].cells, (Cells{"  ", " ", " 3", "xx"}));
    EXPECT_EQ(grid.back().cells, (Cells{" ", "", "", ""}));
    EXPECT_EQ(editor.row(2), "70.. Scroll Layer 1");
    EXPECT_EQ(editor.row(6), ".2. Number of Bytes in Queue (includes end command)");
    EXPECT_EQ(editor.row(7), ".E0. Pause for xx Units");
    EXPECT_EQ(editor.window.Text3, "30000");
    EXPECT_EQ(editor.state->script.loaded.length(), 9);
}

TEST(ScriptRows, DialogueReferencesAreReadInThreeRanges) {
    // clang-format off
    const struct { const char *bytes, *row; } cases[] = { // the row of the last reference
        {"48 01 00",                      ".1. A/> B@800"},
        {"4B 02 80",                      ".8002. A/> B/> C@1000"},
        {"4B 05 40",                      ".4005. A/> B/> C/> D/> E/> F@1750"},
        {"4B 9F 0F",                      ".F9F. @500"},        // past the table: an empty text
        {"4B 00 10",                      ".1000. A@500"},      // dialogue 0 before any other
        {"4B 01 00 4B FF 3F",             ".3FFF. A/> B@750"},  // the one before it stays
        {"4B 01 00 4B A0 0F",             ".FA0. A/> B@750"},
        {"4B 00 00 B6",                   ".. Offset"},
        {"4B 02 00 B6 01 00 00 02 00 00", ".A0201/A0202/. Offset@500"},
        {"BE 01 09 00 00 B6 01 00 00",    ".A0201/. Offset@250"}, // a list count in between
        // An FE at the first cut leaves no trace: not as dialogue FE48, not in its options.
        {"4B 01 00 48 FE 10 B6 01 00 00", ".A0201/. Offset@250"},
    };
    // clang-format on
    for (const auto& c : cases) {
        const Bytes script = hex_bytes(c.bytes + std::string(" FE"));
        ScriptEditor editor(script);
        EXPECT_EQ(editor.row(static_cast<int>(editor.window.grid.size()) - 3), c.row);
        EXPECT_EQ(editor.encode().bytes, script);
    }
}

TEST(ScriptRows, ListsAndMapDataAreRegroupedOrRefused) {
    const Bytes options = hex_bytes("4B 2 0 B6 1 0 0 2 0 0 FE");
    const Bytes counted = hex_bytes("BE 2 1 0 0 2 0 0 FE");
    const Bytes map_data = hex_bytes("73 0 0 2 3 1 2 3 4 5 6 FE");
    // clang-format off
    const struct { Bytes script; int row; const char *typed, *shown; } cases[] = { // empty: refused
        {options,  4, "12",                         ""},
        {options,  4, "A0203",                      ".0A0203/.@250"},
        {options,  4, "0a0203 0A0 204",             ".0a0203/ 0A0204/.@500"},
        {options,  4, "0A02030A0204\n0A0205",       ".0A0203/ 0A0204/ 0A0205/.@750"},
        {options,  4, "A0203\r\n10A01FF\r\nB0000",    ".0A0203/ 10A01FF/ 0B0000/.@750"},
        {counted,  3, "A0203 A0204",                ".0A0203/ 0A0204/.@500"},
        {options,  4, "FFFFF 1000000\n10A01FF FFFFFF", ".0FFFFF/ 1000000/ 10A01FF/ FFFFFF/.@1000"},
        // Seven digits that no pointer can hold, and pieces of no offset's length: all digits together.
        {options,  4, "0A02001",                    ""}, {options, 4, "10A0200", ""}, {options, 4, "0FFFFFF", ""},
        {options,  4, "0A02001 A0201",              ".0A0200/ 1A0201/.@500"},
        {options,  4, "A02G3 A0204",                ""}, {counted, 3, "A0203A0204", ""},
        {counted,  3, "A0203A0204A0205A0206A0207A0208", ".A0203A/ 0204A0/ 205A02/ 06A020/ 7A0208/.@1250"},
        {map_data, 6, "0a1B 2C03\r\ne4F5",          ".0a1B/ 2C03/ e4F5/.@750"},
        {map_data, 6, "0A1B2C03E4",                 ""},
        {map_data, 6, "0A1B2C03E4F56",              ""},
    };
    // clang-format on
    for (const auto& c : cases) {
        ScriptEditor editor(c.script);
        editor.click(c.row, 1);
        editor.type(c.typed);
        const bool refused = *c.shown == '\0', map = c.script == map_data;
        EXPECT_EQ(editor.window.Text2_visible, refused) << c.typed;
        EXPECT_EQ(editor.dialogs.messages,
                  Messages(refused ? 1 : 0, map ? bad_map_data : bad_offsets));
        if (!refused) {
            EXPECT_EQ(editor.row(c.row, true), c.shown);
            EXPECT_EQ(editor.cell(c.row, 1).back(), ' ');
            continue;
        }
        EXPECT_EQ(editor.window.Text2, "");
        EXPECT_EQ(editor.window.grid_row, c.row);
        EXPECT_TRUE(editor.encode().refusal) << "a refused cell can't be saved";
        editor.type(map ? "010203040506" : "0A0201 0A0202");
        EXPECT_EQ(editor.encode().bytes, c.script);
        EXPECT_FALSE(editor.window.Text2_visible);
    }
}

TEST(ScriptRows, WhatCanNotBeEncodedIsRefusedAtItsCell) {
    const Bytes script = hex_bytes("3D 7 84 1 2 B2 0 0 0 BE 1 0 0 0 5 3 E0 1 FF 73 0 0 1 2 9 9 FE");
    const char* in_byte = "its value does not fit in a byte";
    const char* offset = "an offset lies between 0A0200 and 10A01FF";
    const char* alone = "it has no value in that column";
    const char* in_queue = "its actions do not make up its number of bytes";
    // clang-format off
    const struct { int row, column; const char* text; int refused_row; std::string why; } cases[] = { // empty: it can be encoded
        {2, 1, " FF ", 0, ""}, {2, 1, "100", 2, in_byte}, {2, 1, "100000001", 2, in_byte},
        {4, 1, "FFFF", 0, ""}, {4, 1, "10000", 4, "its value does not fit in a word"},
        {6, 1, " ", 6, offset}, {6, 1, "0A01FF", 6, offset}, {6, 1, "10A01FF", 0, ""}, {6, 1, "10A0200", 6, offset},
        {8, 1, "0", 0, ""}, // the first ones, as many as the count says
        {8, 1, "2", 9, "its list holds fewer offsets than its count tells"},
        {9, 1, "0A01", 9, "its digits make no whole offsets"}, {9, 1, "000000", 9, offset},
        {11, 1, "2", 11, in_queue}, {11, 1, "4", 11, in_queue}, {11, 1, "83", 0, ""},
        {12, 1, "80", 13, "it belongs to no action"}, {12, 1, "1E0", 12, in_byte}, {13, 2, "1FF", 13, in_byte},
        {14, 1, "D5", 14, "the action lacks rows"}, {18, 1, "3", 20, "its width and height take exactly 6 bytes of data"},
        {1, 0, " ", 1, "it belongs to no command"}, {3, 0, " ", 3, "its command has no such row"},
        {4, 0, "38", 3, "the command lacks rows"}, {21, 0, "38", 22, "the script has no FE at its end"},
        {1, 1, "0", 1, alone}, {2, 2, "1", 2, alone}, {9, 2, "0A0200", 9, alone}, {12, 2, "1", 12, alone},
        {21, 1, "1", 21, alone}, {21, 2, "1", 21, alone}, {22, 1, "1", 0, ""},
        {3, 0, "FE", 0, ""}, // what follows the first FE is not looked at
    };
    // clang-format on
    for (const auto& c : cases) {
        ScriptEditor editor(script);
        editor.cell(c.row, c.column) = c.text;
        save_script(*editor.state);
        const bool refused = !c.why.empty();
        EXPECT_EQ(std::ssize(editor.disk.log), refused ? 0 : 1) << c.row << c.text;
        EXPECT_EQ(editor.window.Text2_visible, refused);
        EXPECT_EQ(editor.dialogs.messages,
                  Messages(refused ? 1 : 0, {"Row " + std::to_string(c.refused_row) +
                                                 " can't be saved: " + c.why + ".",
                                             "Error"}));
        if (refused) {
            EXPECT_EQ(editor.window.grid_row, c.refused_row);
            EXPECT_EQ(editor.window.Text2, editor.cell(c.refused_row, editor.window.grid_column));
        }
    }
    ScriptEditor editor(script); // a value alone below the end of a queue
    editor.cell(11, 1) = "2";
    std::swap(editor.cell(14, 1), editor.cell(14, 2));
    EXPECT_EQ(editor.encode().refusal.value().row, 14);
}

TEST(ScriptRows, ACellThatIsNotHexadecimalIsReportedAndCountsAsTheParserSays) {
    ScriptEditor editor({0x3D, 7, 0x55, 0xA5, 0xFE});
    editor.cell(2, 1) = " g1";
    editor.cell(4, 1) = " ";  // a blank one counts 0
    editor.cell(5, 1) = "F3"; // of a nibble's cell the low four bits
    EXPECT_EQ(editor.encode().bytes, (Bytes{0x3D, 0x11, 0x55, 0x03, 0xFE}));
    EXPECT_EQ(editor.dialogs.messages, (Messages{no_number("G1", "hex"), blank_hex}));
}

} // namespace veldrune::test
