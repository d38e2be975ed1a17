#pragma once

#include "events/script_decoder.h"
#include "events/script_rows.h"
#include "forms/form9.h"
#include "rom/rom_image.h"

namespace veldrune {

/// Where the editing of a script stands. Rows follow insertions and removals above them.
struct ScriptEntry {
    int cell_row = 0;           // clicked or added row, 0 before; in a queue the row entered last
    int command_row = 0;        // the remembered command's first row
    int command_code = -1;      // its code, -1 with no command remembered
    bool new_row = false;       // "Add Item" has made the current row, and it has no code yet
    int rows_left = 0;          // rows of a new command still to be entered
    int actions_left = 0;       // queue actions still to be entered, the end not included
    int action_params_left = 0; // arguments of the current action still to be entered
    bool dialogue_patched = false; // dialogues are found by the new table
};

/// The script in the Event Editor, whose grid is Form9's.
struct OpenScript {
    LoadedScript loaded;
    std::optional<ImageSource> source; // nothing before the first loading
    ScriptEntry entry;
};

/// Whether a command is remembered and still stands where it was.
bool command_stands(const ScriptGrid& grid, const ScriptEntry& entry);

/// What editing works on.
struct ScriptDesk {
    Form9& form;
    ScriptEntry& entry;
    const RomImage& rom;
    Dialogs& dialogs;
};

/// A click on a cell: ends an entry and lays the edit box on the cell, unless it is blank or an
/// explanation.
void click_cell(ScriptDesk desk, int row, int column);

/// Enter in the edit box: takes its text into the grid and goes on to the next cell of the entry.
void enter_text(ScriptDesk desk);

/// Escape: ends an entry, forgets the command and hides the edit box.
void escape_entry(ScriptDesk desk);

/// "Add Item": a blank row for a new command, before the next command or the final "Return".
void add_item(ScriptDesk desk);

/// "Remove Item": removes the remembered command.
void remove_item(ScriptDesk desk);

/// Ends an entry that is unfinished: rows that were still to be filled go, and a queue gets its
/// end.
void end_entry(ScriptDesk desk);

/// Tells a refusal and lays the edit box on its cell, with this text.
void refuse_cell(ScriptDesk desk, const CellRefusal& refusal, const std::string& text);

} // namespace veldrune
