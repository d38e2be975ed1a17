#include "events/queue_entry.h"

#include "rom/number_text.h"

#include <algorithm>

namespace veldrune {
namespace {

constexpr int most_queue_bytes = 128;
constexpr int most_marked_queue_bytes = 127; // with bit 7 of the count set

// ---- the count, of the bytes of all actions

std::string& count_cell(ScriptEdit edit) {
    return row_at(edit, edit.entry.command_row + 1).cells[secondary];
}

bool has_count_mark(ScriptEdit edit) {
    return plain_hex(count_cell(edit)).value_or(0) > 0x80;
}

int most_bytes(ScriptEdit edit) {
    return has_count_mark(edit) ? most_marked_queue_bytes : most_queue_bytes;
}

int remembered_queue_bytes(ScriptEdit edit) {
    return queue_bytes(edit.form.grid, edit.entry.command_row);
}

bool fits_queue(ScriptEdit edit, int bytes) {
    if (bytes <= most_bytes(edit))
        return true;
    edit.dialogs.error("The count of a queue can tell no more than 128 bytes, or 127 with its "
                       "bit 7 set. Its actions would take " +
                       std::to_string(bytes) + ".");
    return false;
}

// Writes the true number of bytes into the count cell, with bit 7 as it was. Of a queue whose
// last action reaches beyond the most, the most.
void renew_count(ScriptEdit edit) {
    const int bytes = std::min(remembered_queue_bytes(edit), most_bytes(edit));
    const int mark = has_count_mark(edit) ? 0x80 : 0;
    count_cell(edit) = cell_text(padded(format_hex(mark | bytes), 2));
}

// ---- the end of a new queue

void complete_queue(ScriptEdit edit) {
    edit.entry.actions_left = 0;
    renew_count(edit);
    row_at(edit, edit.entry.command_row + 1).cells[explanation] =
        script_command(static_cast<std::uint8_t>(edit.entry.command_code)).rows[0].label.loaded;
    hide_edit_box(edit);
}

// The end action in a blank row.
void end_queue(ScriptEdit edit, int row) {
    row_at(edit, row) = script_row(secondary, format_hex(end_queue_action),
                                   queue_action(end_queue_action).label.loaded);
    complete_queue(edit);
}

void insert_end(ScriptEdit edit, int row) {
    insert_row_at(edit, row, blank_script_row());
    end_queue(edit, row);
}

// ---- actions

// A row of its own after the current one for the next action, or for the end.
void go_to_next_action(ScriptEdit edit) {
    const int row = edit.form.grid_row + 1;
    edit.entry.cell_row = row - 1;
    insert_row_at(edit, row, blank_script_row());
    place_edit_box(edit, Awaited::next_action, row, secondary);
    if (--edit.entry.actions_left == 0)
        end_queue(edit, row);
}

// Rows of arguments right after the current row.
int arguments_below(ScriptEdit edit) {
    const int first = edit.form.grid_row + 1;
    const int end = command_end(edit.form.grid, edit.entry.command_row);
    int row = first;
    while (row < end && is_blank(row_at(edit, row).cells[secondary]))
        ++row;
    return row - first;
}

// To the next argument of the action, or on where it has all of them.
void go_to_next_argument(ScriptEdit edit, Awaited argument, void (*go_on)(ScriptEdit)) {
    if (arguments_below(edit) == 0)
        return go_on(edit);
    place_edit_box(edit, argument, edit.form.grid_row + 1, tertiary);
}

// Bytes of the queue with another action of this size in the current row.
int queue_bytes_with(ScriptEdit edit, int size) {
    const ScriptCommand* former = action_in(row_at(edit, edit.form.grid_row));
    const bool blank = is_blank(current_cell(edit));
    const int former_size = former ? action_size(former->code) : blank ? 0 : 1;
    const int to_come =
        edit.entry.actions_left; // a byte each, the end's in the place of this one's
    return remembered_queue_bytes(edit) - former_size + size + to_come;
}

void write_action(ScriptEdit edit, const ScriptCommand& action) {
    int row = edit.form.grid_row;
    remove_rows_at(edit, row + 1, row + 1 + arguments_below(edit));
    row_at(edit, row) =
        script_row(secondary, padded(format_hex(action.code), 2), action.label.loaded);
    for (const Parameter& parameter : action.parameters())
        insert_row_at(edit, ++row, blank_script_row(parameter.label.loaded));
}

// The action that was typed, in the current row, with blank rows for its arguments. False where it
// was refused.
bool take_action(ScriptEdit edit) {
    const std::uint32_t code = number_in_box(edit);
    if (code > 0xFF) {
        edit.dialogs.error("The code of an action does not fit in a byte.");
        return false;
    }
    const ScriptCommand& action = queue_action(static_cast<std::uint8_t>(code));
    const int bytes = queue_bytes_with(edit, action_size(action.code));
    if (bytes > remembered_queue_bytes(edit) && !fits_queue(edit, bytes))
        return false;
    write_action(edit, action);
    edit.entry.cell_row = edit.form.grid_row;
    return true;
}

} // namespace

void enter_queue_count(ScriptEdit edit) {
    const std::uint32_t count = number_in_box(edit);
    if (count > 0xFF) {
        edit.dialogs.error("The count of a queue does not fit in a byte.");
        return;
    }
    current_cell(edit) = cell_text(format_hex(count));
    edit.entry.actions_left = queue_size(static_cast<std::uint8_t>(count));
    if (edit.entry.actions_left == 0)
        return complete_queue(edit);
    go_to_next_action(edit);
}

void enter_next_action(ScriptEdit edit) {
    if (take_action(edit))
        go_to_next_argument(edit, Awaited::next_argument, go_to_next_action);
}

void enter_next_argument(ScriptEdit edit) {
    current_cell(edit) = cell_text(edit.form.Text2);
    go_to_next_argument(edit, Awaited::next_argument, go_to_next_action);
}

void change_action(ScriptEdit edit) {
    const int former = remembered_queue_bytes(edit);
    if (!take_action(edit))
        return;
    if (remembered_queue_bytes(edit) != former)
        renew_count(edit);
    go_to_next_argument(edit, Awaited::argument, hide_edit_box);
}

void change_argument(ScriptEdit edit) {
    current_cell(edit) = cell_text(edit.form.Text2);
    go_to_next_argument(edit, Awaited::argument, hide_edit_box);
}

void end_uncounted_queue(ScriptEdit edit) {
    insert_end(edit, edit.form.grid_row + 1);
}

void end_queue_here(ScriptEdit edit) {
    end_queue(edit, edit.form.grid_row);
}

void end_queue_before_action(ScriptEdit edit) {
    int row = edit.form.grid_row;
    while (is_blank(row_at(edit, row).cells[secondary]))
        --row;
    remove_rows_at(edit, row, command_end(edit.form.grid, row));
    insert_end(edit, row);
}

void drop_arguments(ScriptEdit edit) {
    const int row = edit.form.grid_row;
    remove_rows_at(edit, row, row + 1 + arguments_below(edit));
}

} // namespace veldrune
