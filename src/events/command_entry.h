#pragma once

#include "events/script_edit.h"

namespace veldrune {

/// What is typed for commands and their values: each takes the text of the edit box into the grid
/// and goes on to the next cell, or hides the box.

void enter_new_code(ScriptEdit edit);
void enter_parameter(ScriptEdit edit);
void change_code(ScriptEdit edit);
void change_value(ScriptEdit edit);

/// The rows of an entry that is broken off.

/// Removes the row of "Add Item".
void drop_new_row(ScriptEdit edit);
/// Removes the rows of a new command that have no value yet.
void drop_parameters(ScriptEdit edit);

} // namespace veldrune
