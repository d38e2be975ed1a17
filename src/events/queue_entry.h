#pragma once

#include "events/script_edit.h"

namespace veldrune {

/// What is typed for queues and their actions: each takes the text of the edit box into the grid
/// and goes on to the next cell, or hides the box. What the count can't hold is refused with a
/// message.

void enter_queue_count(ScriptEdit edit);
void enter_next_action(ScriptEdit edit);
void enter_next_argument(ScriptEdit edit);
void change_action(ScriptEdit edit);
void change_argument(ScriptEdit edit);

/// The rows of an entry that is broken off. A new queue gets its end and its true count.

/// Ends a new queue that has no count yet.
void end_uncounted_queue(ScriptEdit edit);
/// Ends a new queue in the row of its next action.
void end_queue_here(ScriptEdit edit);
/// Ends a new queue before the action that lacks arguments.
void end_queue_before_action(ScriptEdit edit);
/// Removes the rows of a changed action that have no value yet.
void drop_arguments(ScriptEdit edit);

} // namespace veldrune
