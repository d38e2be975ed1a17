#pragma once

#include <array>
#include <string>
#include <vector>

namespace veldrune {

/// Columns of the script's grid. A value is shown in the column of its level.
enum ScriptColumn { primary, secondary, tertiary, explanation };
inline constexpr int script_column_count = 4;

// Sizes of the grid are in units of their own; a line of text is 250 units high.
inline constexpr int script_column_widths[script_column_count] = {1200, 1200, 1200, 5000};
inline constexpr int script_header_height = 500;
inline constexpr int script_line_height = 250;
inline constexpr const char* script_headers[script_column_count] = {
    "Primary\r\nCommands", "Secondary\r\nCommands", "Tertiary\r\nCommands",
    "Approximate English Explanations"};

/// A row of the grid. Lines of a cell are separated by "\r\n", in a wrapped dialogue also by "\r".
struct ScriptRow {
    std::array<std::string, script_column_count> cells;
    int height = 0; // in units, 0 for the grid's default
};

/// The Event Editor. A new Form9 has no script loaded.
struct Form9 {
    bool visible = false;
    bool raise_requested = false; // request to bring the window to the front; the window clears it
    int load_count = 0;           // incremented by every load; the view then scrolls to the top
    int operation_count = 0;      // incremented by every operation on the grid since the load

    std::vector<ScriptRow> grid; // the script; row 0 is the fixed header
    int grid_row = 0;            // the current cell
    int grid_column = 0;

    std::string Text2; // edit box over the current cell; its lines are separated by "\r\n" or "\n"
    bool Text2_visible = false; // while visible, the box has the focus
    std::string Text3;          // "Event Offset": file offset to load, hexadecimal
};

} // namespace veldrune
