#pragma once

#include "events/script_rows.h"
#include "forms/form9.h"
#include "rom/rom_image.h"

namespace veldrune {

/// What the edit box waits for.
enum class Awaited {
    nothing,       // it is hidden
    new_code,      // the code of a new command, in the row of "Add Item"
    parameter,     // the next value of a new command
    queue_count,   // the count of a new queue
    next_action,   // the next action of a new queue
    next_argument, // the next value of that action
    code,          // another code for a command that is there
    value,         // another value
    action,        // another action in a queue that is there
    argument,      // the next value of that action
};

/// The state of the editing of a script. Rows follow insertions and removals above them.
struct ScriptEntry {
    Awaited awaited = Awaited::nothing;
    int cell_row = 0;      // clicked or added row, 0 before; in a queue the row entered last
    int clicked_row = 0;   // of the click that ends an entry, 0 once that row is gone
    int command_row = 0;   // the remembered command's first row
    int command_code = -1; // its code, -1 with no command remembered
    int actions_left = 0;  // actions of a new queue still to be entered, the end not included
    bool dialogue_patched = false; // dialogues are found by the new table
};

/// What editing works on.
struct ScriptEdit {
    Form9& form;
    ScriptEntry& entry;
    const RomImage& rom;
    Dialogs& dialogs;
};

inline ScriptRow& row_at(ScriptEdit edit, int row) {
    return row_at(edit.form.grid, row);
}
/// The cell under the edit box.
std::string& current_cell(ScriptEdit edit);

/// As in the grid; the rows that the entry remembers follow.
void insert_row_at(ScriptEdit edit, int row, ScriptRow what);
void remove_rows_at(ScriptEdit edit, int first, int end);

/// Lays the edit box on a cell, to wait there.
void place_edit_box(ScriptEdit edit, Awaited awaited, int row, ScriptColumn column);
/// Empties and hides the edit box: nothing is awaited.
void hide_edit_box(ScriptEdit edit);
/// The number in the edit box. One that 32 bits can't hold counts as the greatest that they can,
/// which fits nowhere.
std::uint32_t number_in_box(ScriptEdit edit);

/// Whether a command is remembered and is still where it was.
bool has_command(const ScriptGrid& grid, const ScriptEntry& entry);
/// The remembered command, null where there is none.
const ScriptCommand* remembered_command(ScriptEdit edit);
void forget_command(ScriptEdit edit);
/// What the row under the edit box holds of the remembered command.
Parameter current_parameter(ScriptEdit edit);

} // namespace veldrune
