// What the rows of a script look like, as loaded and as normalised, and what a save refuses.

#include "events/command_table.h"
#include "support/script_fixture.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

using Rows = std::vector<std::string>;

std::string joined(const Rows& rows) {
    std::string all;
    for (const std::string& row : rows)
        all += (all.empty() ? "" : "; ") + row;
    return all;
}

TEST(ScriptRows, EveryFormIsLaidOutAndNormalised) {
    const std::string list =
        "BE|||Jump to indexed subroutine based on the state of bit $1EB4(x)|0; ";
    const std::string queue = "5|||Action Queue|0; ",
                      in_queue = "||Number of Bytes in Queue (includes end command)|0; ";
    const std::string change = "|1||New Map Data X Position|0; |2||New Map Data Y Position|0; ";
    // clang-format off
    const struct { const char* bytes; std::string loaded, normalised; } cases[] = { // as cells of the first command alone
        {"3D 07", "3D|||Create Object|0; |7||Object Number|0", "07"},
        {"84 2C 01", "84|||Give GP to Party|0; |12C||Amount|0", "012C"},
        {"51 01 02 03", "51|||Modify Background Color Range|0; |1||?Color|0; |2||?From|0; |3||?To|0", "01; 02; 03"},
        {"55 A5", "55|||Flash Screen With Color|0; |A||Color (0 to F)|0; |5||Intensity (0 to F)|0", "0A; 05"},
        {"B3 09 11 22 33", "B3|||Unknown|0; |9||Unknown|0; |3D2411||Unknown|0", "09; 3D2411"},
        {"C1 01 00 02 80 00 00 00", "C1|||Conditional (Branch to Location if Parameter is Met|0; |1||Parameter 1|0; "
            "|8002||Parameter 2|0; |A0200||Location|0", "0001; 8002; 0A0200"},
        {"74 01 02 02 03 0A 1B 2C 03 E4 F5", "74|||Change Layer 1 Map Data (Without Refresh)|0; " + change +
            "|2||New Map Data Width|0; |3||New Map Data Height|0; |0A 1B /2C 03 /E4 F5 /||New Data|750",
            "01; 02; 02; 03; 0A1B/ 2C03/ E4F5/"},
        {"73 01 02 00 03", "73|||Change Layer 1 Map Data (With Refresh)|0; " + change +
            "|0||New Map Data Width|0; |3||New Map Data Height|0; |||New Data|750", "01; 02; 00; 03; "},
        {"73 01 02 03 56 0A 1B", "73|||Change Layer 1 Map Data (With Refresh)|0; " + change + // a size beyond 8 bits
            "|3||New Map Data Width|0; |56||New Map Data Height|0; |0A 1B /||New Data|21500", "01; 02; 03; 56; 0A1B/"},
        {"BE 02 00 00 00 FF FF FF", list + "|2||Number of Parameters|0; |A0200/10A01FF/||Location|500", // the highest pointer stays whole
            "02; 0A0200/ 10A01FF/"},
        {"BE 00", list + "|0||Number of Parameters|0; |||Location|0", "00; "},
        {"05 8A 80 D5 01 02 F9 11 22 33 AC FF", queue + "|8A" + in_queue + "|80||Move Character Up 1 Tile|0; |D5||Set Position|0; "
            "||1|Destination X|0; ||2|Destination Y|0; |F9||Branch to Sub Action Queue Code|0; ||3D2411|Offset|0; |AC|||0; "
            "|FF||End Queue|0", "8A; 80; D5; 01; 02; F9; 3D2411; AC; FF"},
        {"05 02 FF E0 07", queue + "|2" + in_queue + "|FF||End Queue|0; |E0||Pause for xx Units|0; ||7|xx|0", // the last action is read whole
            "02; FF; E0; 07"},
        {"66", "66|||Uncoded|0", ""},
    };
    // clang-format on
    for (const auto& c : cases) {
        ScriptEditor editor(hex_bytes(c.bytes + std::string(" 38 FE")));
        EXPECT_EQ(joined(editor.rows()), c.loaded + "; 38|||Hold Screen|0; FE|||Return|0");
        EXPECT_FALSE(normalise_command(editor.window.grid, 1, editor.dialogs));
        Rows cells;
        for (int row = 2; row < command_end(editor.window.grid, 1); ++row)
            cells.push_back(editor.trimmed(editor.cell(row, 1)) +
                            editor.trimmed(editor.cell(row, 2)));
        EXPECT_EQ(joined(cells), c.normalised) << c.loaded;
    }
}

TEST(ScriptRows, CellsCarryABlankInFrontAndTheGridASpareRow) {
    ScriptEditor editor({0x38, 0x3D, 7, 0xFE});
    const ScriptGrid& grid = editor.window.grid;
    using Cells = std::array<std::string, 4>;
    ASSERT_EQ(grid.size(), 6u);
    EXPECT_EQ(grid[0].cells[0], "Primary\r\nCommands");
    EXPECT_EQ(grid[0].height, 500);
    EXPECT_EQ(grid[1].cells, (Cells{" 38", " ", " ", "Hold Screen"}));
    EXPECT_EQ(grid[3].cells, (Cells{"  ", " 7", " ", "Object Number"}));
    EXPECT_EQ(grid[5].cells, (Cells{" ", "", "", ""}));
    EXPECT_EQ(editor.window.Text3, "30000");
    EXPECT_EQ(editor.state->script.loaded.length, 4);
}

TEST(ScriptRows, DialogueReferencesAreReadInThreeRanges) {
    // clang-format off
    const struct { const char *bytes, *row; } cases[] = { // the row of the reference that stands last
        {"48 01 00",                      "|1||A/> B|800"},
        {"4B 02 80",                      "|8002||A/> B/> C|1000"},
        {"4B 05 40",                      "|4005||A/> B/> C/> D/> E/> F|1750"},
        {"4B 9F 0F",                      "|F9F|||500"},       // past the table: an empty text
        {"4B 00 10",                      "|1000||A|500"},     // dialogue 0 before any other
        {"4B 01 00 4B FF 3F",             "|3FFF||A/> B|750"}, // the one before it stays
        {"4B 01 00 4B A0 0F",             "|FA0||A/> B|750"},
        {"4B 00 00 B6",                   "|||Offset|0"},
        {"4B 02 00 B6 01 00 00 02 00 00", "|A0201/A0202/||Offset|500"},
        {"BE 01 09 00 00 B6 01 00 00",    "|A0201/||Offset|250"}, // a list count in between
        // An FE at the first cut leaves no trace: not as dialogue FE48, not in its options.
        {"4B 01 00 48 FE 10 B6 01 00 00", "|A0201/||Offset|250"},
    };
    // clang-format on
    for (const auto& c : cases) {
        const Bytes script = hex_bytes(c.bytes + std::string(" FE"));
        ScriptEditor editor(script);
        const Rows rows = editor.rows();
        EXPECT_EQ(rows.at(rows.size() - 2), c.row);
        EXPECT_EQ(editor.encode().bytes, script);
    }
}

TEST(ScriptRows, ListsAndMapDataAreRegroupedOrRefused) {
    const Bytes options{0x4B, 2, 0, 0xB6, 1, 0, 0, 2, 0, 0, 0xFE};
    const Bytes counted{0xBE, 2, 1, 0, 0, 2, 0, 0, 0xFE};
    const Bytes map_data{0x73, 0, 0, 2, 3, 1, 2, 3, 4, 5, 6, 0xFE};
    // clang-format off
    const struct { Bytes script; int row; std::string typed, shown; int height; } cases[] = { // empty: refused
        {options,  4, "12",                           "",                          0},
        {options,  4, "A0203",                        "0A0203/",                   250},
        {options,  4, "0a0203 0A0 204",               "0a0203/ 0A0204/",           500},
        {options,  4, "0A02030A0204\n0A0205",         "0A0203/ 0A0204/ 0A0205/",   750},
        {options,  4, "A0203\r\n10A01FF\r\nB0000",    "0A0203/ 10A01FF/ 0B0000/",  750},
        // Ten digits in a line, or thirty: no guess where an offset ends.
        {counted,  3, "A0203 A0204",                  "",                          0},
        {counted,  3, "A0203 A0204 A0205 A0206 A0207 A0208", "A0203A/ 0204A0/ 205A02/ 06A020/ 7A0208/", 1250},
        {map_data, 6, "0a1B 2C03\r\ne4F5",            "0a1B/ 2C03/ e4F5/",         750},
        {map_data, 6, "0A1B2C03E4",                   "",                          0},
        {map_data, 6, "0A1B2C03E4F56",                "",                          0},
    };
    // clang-format on
    for (const auto& c : cases) {
        ScriptEditor editor(c.script);
        editor.click(c.row, 1);
        editor.type(c.typed);
        const ScriptRow& row = editor.window.grid[static_cast<std::size_t>(c.row)];
        if (!c.shown.empty()) {
            EXPECT_TRUE(editor.dialogs.silent()) << c.typed;
            EXPECT_EQ(editor.trimmed(row.cells[1]), c.shown);
            EXPECT_EQ(row.cells[1].back(), ' ');
            EXPECT_EQ(row.height, c.height);
            EXPECT_FALSE(editor.window.Text2_visible);
            continue;
        }
        EXPECT_EQ(editor.dialogs.messages,
                  (Messages{c.script == map_data ? bad_map_data : bad_offsets}));
        EXPECT_TRUE(editor.window.Text2_visible);
        EXPECT_EQ(editor.window.Text2, "");
        EXPECT_EQ(editor.window.grid_row, c.row);
        EXPECT_TRUE(editor.encode().refusal) << "a refused cell can't be saved";
        editor.type(c.script == map_data ? "010203040506" : "0A0201 0A0202");
        EXPECT_EQ(editor.encode().bytes, c.script);
        EXPECT_FALSE(editor.window.Text2_visible);
    }
}

TEST(ScriptRows, WhatCanNotBeEncodedIsRefusedAtItsCell) {
    const Bytes script{0x3D, 7, 0x84, 1, 2,    0xB2, 0, 0, 0, 0xBE, 1, 0, 0,   0,
                       5,    3, 0xE0, 1, 0xFF, 0x73, 0, 0, 1, 2,    9, 9, 0xFE};
    const char* in_byte = "its value does not fit in a byte";
    const char* offset = "an offset lies between 0A0200 and 10A01FF";
    const char* in_queue = "its actions do not make up its number of bytes";
    // clang-format off
    const struct { int row, column; const char* text; int told_row; std::string why; } cases[] = { // empty: it can be encoded
        {2,  1, " FF ",      0,  ""},
        {2,  1, "100",       2,  in_byte},
        {2,  1, "100000001", 2,  in_byte},
        {4,  1, "FFFF",      0,  ""},
        {4,  1, "10000",     4,  "its value does not fit in a word"},
        {6,  1, " ",         6,  offset},
        {6,  1, "0A01FF",    6,  offset},
        {6,  1, "10A01FF",   0,  ""},
        {6,  1, "10A0200",   6,  offset},
        {8,  1, "0",         0,  ""}, // the first ones, as many as told
        {8,  1, "2",         9,  "its list holds fewer offsets than its count tells"},
        {9,  1, "0A01",      9,  "its digits make no whole offsets"},
        {9,  1, "000000",    9,  offset},
        {11, 1, "2",         11, in_queue},
        {11, 1, "4",         11, in_queue},
        {11, 1, "83",        0,  ""},
        {12, 1, "80",        13, "it belongs to no action"},
        {12, 1, "1E0",       12, in_byte},
        {13, 2, "1FF",       13, in_byte},
        {14, 1, "D5",        14, "the action lacks rows"},
        {18, 1, "3",         20, "its width and height take exactly 6 bytes of data"},
        {1,  0, " ",         1,  "it belongs to no command"},
        {3,  0, " ",         3,  "its command has no such row"},
        {4,  0, "38",        3,  "the command lacks rows"},
        {3,  0, "FE",        0,  ""}, // what stands below the first FE is not looked at
        {21, 0, "38",        22, "the script has no FE at its end"},
    };
    // clang-format on
    for (const auto& c : cases) {
        ScriptEditor editor(script);
        editor.window.grid[static_cast<std::size_t>(c.row)]
            .cells[static_cast<std::size_t>(c.column)] = c.text;
        save_script(*editor.state);
        EXPECT_EQ(editor.disk.writes, c.why.empty() ? 1 : 0) << c.row << c.text;
        EXPECT_EQ(editor.window.Text2_visible, !c.why.empty());
        EXPECT_EQ(editor.dialogs.messages,
                  Messages(c.why.empty() ? 0 : 1,
                           {"Row " + std::to_string(c.told_row) + " can't be saved: " + c.why + ".",
                            "Error"}));
        if (!c.why.empty()) {
            EXPECT_EQ(editor.window.grid_row, c.told_row);
            EXPECT_EQ(editor.window.Text2, editor.cell(c.told_row, editor.window.grid_column));
        }
    }
}

TEST(ScriptRows, ACellThatIsNotHexadecimalIsToldAndCountsAsTheParserSays) {
    ScriptEditor editor({0x3D, 7, 0x55, 0xA5, 0xFE});
    editor.window.grid[2].cells[1] = " g1";
    editor.window.grid[4].cells[1] = " ";  // a blank one counts 0
    editor.window.grid[5].cells[1] = "F3"; // of a nibble's cell the low four bits
    EXPECT_EQ(editor.encode().bytes, (Bytes{0x3D, 0x11, 0x55, 0x03, 0xFE}));
    EXPECT_EQ(editor.dialogs.messages, (Messages{no_number("G1", "hex"), blank_hex}));
}

} // namespace
} // namespace veldrune::test
