#pragma once

#include "forms/number_form.h"

#include <array>
#include <string>
#include <vector>

namespace veldrune {

/// Columns of the script's grid. A value is shown in the column of its level.
enum ScriptColumn { primary, secondary, tertiary, explanation };
inline constexpr int script_column_count = 4;

/// Sizes of the grid are in units of their own; a line of text is 250 units high.
inline constexpr int script_header_height = 500;
inline constexpr int script_line_height = 250;

/// A row of the grid. Lines of a cell are separated by "\r\n", in a wrapped dialogue also by "\r".
struct ScriptRow {
    std::array<std::string, script_column_count> cells;
    int height = 0; // in units, 0 for the grid's default
};

/// The texts of the Event Editor outside the grid.
struct Form9Texts {
    std::string Text2; // edit box over the current cell; its lines are separated by "\r\n" or "\n"
    std::string Text3; // "Event Offset": file offset to load
};

/// The Event Editor. A new Form9 has no script loaded.
struct Form9 : Form9Texts {
    bool visible = false;
    bool raise_requested = false; // request to bring the window to the front; the window clears it
    int load_count = 0;           // incremented by every load; the view then scrolls to the top
    int operation_count = 0;      // incremented by every operation on the grid since the load

    std::vector<ScriptRow> grid; // the script; row 0 is the fixed header
    int grid_row = 0;            // the current cell
    int grid_column = 0;

    bool Text2_visible = false; // while visible, the edit box has the focus
};

inline constexpr auto form9_texts = std::to_array<TextRow<Form9>>({
    {&Form9::Text2, "Text2", NumberForm::hexadecimal},
    {&Form9::Text3, "Text3", NumberForm::location},
});
static_assert(each_has_one_row<Form9Texts>(form9_texts));
constexpr const TextRow<Form9>& text_row(std::string Form9::*text) {
    return row_of(form9_texts, text);
}

} // namespace veldrune
