#pragma once

#include <array>
#include <string>
#include <vector>

namespace veldrune {

/// Columns of the script's grid. A value stands in the column of its level.
enum ScriptColumn { primary, secondary, tertiary, explanation };
inline constexpr int script_column_count = 4;

// Sizes of the grid are told in units; a line of text is 250 units high.
inline constexpr int script_column_widths[script_column_count] = {1200, 1200, 1200, 5000};
inline constexpr int script_header_height = 500;
inline constexpr int script_line_height = 250;
inline constexpr const char* script_headers[script_column_count] = {
    "Primary\r\nCommands", "Secondary\r\nCommands", "Tertiary\r\nCommands",
    "Approximate English Explanations"};

/// A row of the grid. Lines of a cell are parted by "\r\n", in a wrapped dialogue by "\r" too.
struct ScriptRow {
    std::array<std::string, script_column_count> cells;
    int height = 0; // in units, 0 for the grid's default
};

/// The Event Editor. A new Form9 is the window before it has loaded.
struct Form9 {
    bool visible = false;
    bool to_front = false; // wants to come to the front; the window clears it when it has
    int load_number = 0;   // grows with every load: the view goes back to the top
    int work_number = 0;   // grows with every operation on the grid since then

    std::vector<ScriptRow> grid; // the script; row 0 is the fixed header
    int grid_row = 0;            // the current cell
    int grid_column = 0;

    std::string Text2; // edit box over the current cell; its lines are parted by "\r\n" or "\n"
    bool Text2_visible = false; // a shown box has the focus
    std::string Text3;          // "Event Offset": file offset to load, hexadecimal
};

} // namespace veldrune
