#pragma once

#include "events/script_desk.h"

namespace veldrune {

// What is typed for commands and their values: each takes the text of the edit box into the grid
// and goes on to the next cell, or hides the box.

void enter_new_code(ScriptDesk desk);
void enter_parameter(ScriptDesk desk);
void change_code(ScriptDesk desk);
void change_value(ScriptDesk desk);

// The rows of an entry that is broken off.

/// Removes the row of "Add Item".
void drop_new_row(ScriptDesk desk);
/// Removes the rows of a new command that have no value yet.
void drop_parameters(ScriptDesk desk);

} // namespace veldrune
