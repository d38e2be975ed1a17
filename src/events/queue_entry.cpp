#include "events/queue_entry.h"

#include "rom/number_text.h"

#include <algorithm>

namespace veldrune {
namespace {

constexpr int most_queue_bytes = 128;
constexpr int most_marked_queue_bytes = 127; // with bit 7 of the count set

// ---- the count, of the bytes of all actions

std::string& count_cell(ScriptDesk desk) {
    return row_at(desk, desk.entry.command_row + 1).cells[secondary];
}

bool has_count_mark(ScriptDesk desk) {
    return plain_hex(count_cell(desk)).value_or(0) > 0x80;
}

int most_bytes(ScriptDesk desk) {
    return has_count_mark(desk) ? most_marked_queue_bytes : most_queue_bytes;
}

int remembered_queue_bytes(ScriptDesk desk) {
    return queue_bytes(desk.form.grid, desk.entry.command_row);
}

bool fits_queue(ScriptDesk desk, int bytes) {
    if (bytes <= most_bytes(desk))
        return true;
    desk.dialogs.error("The count of a queue can tell no more than 128 bytes, or 127 with its "
                       "bit 7 set. Its actions would take " +
                       std::to_string(bytes) + ".");
    return false;
}

// Writes the true number of bytes into the count cell, with bit 7 as it stood. Of a queue whose
// last action reaches beyond the most, the most.
void renew_count(ScriptDesk desk) {
    const int bytes = std::min(remembered_queue_bytes(desk), most_bytes(desk));
    const int mark = has_count_mark(desk) ? 0x80 : 0;
    count_cell(desk) = cell_text(padded(format_hex(mark | bytes), 2));
}

// ---- the end of a new queue

void complete_queue(ScriptDesk desk) {
    desk.entry.actions_left = 0;
    renew_count(desk);
    row_at(desk, desk.entry.command_row + 1).cells[explanation] =
        script_command(static_cast<std::uint8_t>(desk.entry.command_code)).rows[0].label.loaded;
    hide_edit_box(desk);
}

// The end action in a blank row.
void end_queue(ScriptDesk desk, int row) {
    row_at(desk, row) = script_row(secondary, format_hex(end_queue_action),
                                   queue_action(end_queue_action).label.loaded);
    complete_queue(desk);
}

void insert_end(ScriptDesk desk, int row) {
    insert_row_at(desk, row, blank_script_row());
    end_queue(desk, row);
}

// ---- actions

// A row of its own after the current one for the next action, or for the end.
void go_to_next_action(ScriptDesk desk) {
    const int row = desk.form.grid_row + 1;
    desk.entry.cell_row = row - 1;
    insert_row_at(desk, row, blank_script_row());
    place_edit_box(desk, Awaited::next_action, row, secondary);
    if (--desk.entry.actions_left == 0)
        end_queue(desk, row);
}

// Rows of arguments right after the current row.
int arguments_below(ScriptDesk desk) {
    const int first = desk.form.grid_row + 1;
    const int end = command_end(desk.form.grid, desk.entry.command_row);
    int row = first;
    while (row < end && is_blank(row_at(desk, row).cells[secondary]))
        ++row;
    return row - first;
}

// To the next argument of the action, or on where it has all of them.
void go_to_next_argument(ScriptDesk desk, Awaited argument, void (*go_on)(ScriptDesk)) {
    if (arguments_below(desk) == 0)
        return go_on(desk);
    place_edit_box(desk, argument, desk.form.grid_row + 1, tertiary);
}

// Bytes of the queue with another action of this size in the current row.
int queue_bytes_with(ScriptDesk desk, int size) {
    const ScriptCommand* former = action_in(row_at(desk, desk.form.grid_row));
    const bool blank = is_blank(current_cell(desk));
    const int former_size = former ? action_size(former->code) : blank ? 0 : 1;
    const int to_come =
        desk.entry.actions_left; // a byte each, the end's in the place of this one's
    return remembered_queue_bytes(desk) - former_size + size + to_come;
}

void write_action(ScriptDesk desk, const ScriptCommand& action) {
    int row = desk.form.grid_row;
    remove_rows_at(desk, row + 1, row + 1 + arguments_below(desk));
    row_at(desk, row) =
        script_row(secondary, padded(format_hex(action.code), 2), action.label.loaded);
    for (const Parameter& parameter : action.parameters())
        insert_row_at(desk, ++row, blank_script_row(parameter.label.loaded));
}

// The action that was typed, in the current row, with blank rows for its arguments. False where it
// was refused.
bool take_action(ScriptDesk desk) {
    const std::uint32_t code = number_in_box(desk);
    if (code > 0xFF) {
        desk.dialogs.error("The code of an action does not fit in a byte.");
        return false;
    }
    const ScriptCommand& action = queue_action(static_cast<std::uint8_t>(code));
    const int bytes = queue_bytes_with(desk, action_size(action.code));
    if (bytes > remembered_queue_bytes(desk) && !fits_queue(desk, bytes))
        return false;
    write_action(desk, action);
    desk.entry.cell_row = desk.form.grid_row;
    return true;
}

} // namespace

void enter_queue_count(ScriptDesk desk) {
    const std::uint32_t count = number_in_box(desk);
    if (count > 0xFF) {
        desk.dialogs.error("The count of a queue does not fit in a byte.");
        return;
    }
    current_cell(desk) = cell_text(format_hex(count));
    desk.entry.actions_left = queue_size(static_cast<std::uint8_t>(count));
    if (desk.entry.actions_left == 0)
        return complete_queue(desk);
    go_to_next_action(desk);
}

void enter_next_action(ScriptDesk desk) {
    if (take_action(desk))
        go_to_next_argument(desk, Awaited::next_argument, go_to_next_action);
}

void enter_next_argument(ScriptDesk desk) {
    current_cell(desk) = cell_text(desk.form.Text2);
    go_to_next_argument(desk, Awaited::next_argument, go_to_next_action);
}

void change_action(ScriptDesk desk) {
    const int former = remembered_queue_bytes(desk);
    if (!take_action(desk))
        return;
    if (remembered_queue_bytes(desk) != former)
        renew_count(desk);
    go_to_next_argument(desk, Awaited::argument, hide_edit_box);
}

void change_argument(ScriptDesk desk) {
    current_cell(desk) = cell_text(desk.form.Text2);
    go_to_next_argument(desk, Awaited::argument, hide_edit_box);
}

void end_uncounted_queue(ScriptDesk desk) {
    insert_end(desk, desk.form.grid_row + 1);
}

void end_queue_here(ScriptDesk desk) {
    end_queue(desk, desk.form.grid_row);
}

void end_queue_before_action(ScriptDesk desk) {
    int row = desk.form.grid_row;
    while (is_blank(row_at(desk, row).cells[secondary]))
        --row;
    remove_rows_at(desk, row, command_end(desk.form.grid, row));
    insert_end(desk, row);
}

void drop_arguments(ScriptDesk desk) {
    const int row = desk.form.grid_row;
    remove_rows_at(desk, row, row + 1 + arguments_below(desk));
}

} // namespace veldrune
