#pragma once

#include "events/script_desk.h"

namespace veldrune {

// What is typed for queues and their actions: each takes the text of the edit box into the grid and
// goes on to the next cell, or hides the box. What the count can't tell is refused with a message.

void enter_queue_count(ScriptDesk desk);
void enter_next_action(ScriptDesk desk);
void enter_next_argument(ScriptDesk desk);
void change_action(ScriptDesk desk);
void change_argument(ScriptDesk desk);

// The rows of an entry that is broken off. A new queue gets its end and its true count.

/// Ends a new queue that has no count yet.
void end_uncounted_queue(ScriptDesk desk);
/// Ends a new queue in the row of its next action.
void end_queue_here(ScriptDesk desk);
/// Ends a new queue before the action that lacks arguments.
void end_queue_before_action(ScriptDesk desk);
/// Removes the rows of a changed action that have no value yet.
void drop_arguments(ScriptDesk desk);

} // namespace veldrune
