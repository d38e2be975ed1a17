#include "events/script_entry.h"

#include "dialogue/dialogue_text.h"
#include "rom/number_text.h"

#include <algorithm>

namespace veldrune {
namespace {

constexpr int wrapped_line_height = 200; // of a dialogue that was typed
constexpr int most_queue_bytes = 128;
constexpr int most_marked_queue_bytes = 127; // with bit 7 of the count set
constexpr std::uint32_t typed_number_bits = 0x3FFF;
constexpr std::uint32_t entered_number_bits = 0x3FF;

ScriptRow& row_at(ScriptDesk desk, int row) {
    return row_at(desk.form.grid, row);
}

std::string& current_cell(ScriptDesk desk) {
    return row_at(desk, desk.form.grid_row).cells[static_cast<std::size_t>(desk.form.grid_column)];
}

// ---- rows, and the places in the grid that follow them

void insert_row_at(ScriptDesk desk, int row, ScriptRow what) {
    insert_row(desk.form.grid, row, std::move(what));
    for (int* place : {&desk.entry.cell_row, &desk.entry.command_row})
        if (*place >= row)
            ++*place;
}

void remove_rows_at(ScriptDesk desk, int first, int end) {
    remove_rows(desk.form.grid, first, end);
    for (int* place : {&desk.entry.cell_row, &desk.entry.command_row})
        if (*place >= first)
            *place = std::max(first, *place - (end - first));
}

void remove_command_rows(ScriptDesk desk, int row) {
    remove_rows_at(desk, row, command_end(desk.form.grid, row));
}

// ---- the edit box

void place_edit_box(ScriptDesk desk, int row, int column) {
    desk.form.grid_row = row;
    desk.form.grid_column = column;
    desk.form.Text2_visible = true;
}

void hide_edit_box(ScriptDesk desk) {
    desk.form.Text2.clear();
    desk.form.Text2_visible = false;
}

// Numbers that 32 bits can't hold count as the greatest that they can, which fits nowhere.
std::uint32_t number_in_box(ScriptDesk desk) {
    return static_cast<std::uint32_t>(
        std::min<std::uint64_t>(number_in(desk.form.Text2, desk.dialogs), 0xFFFFFFFF));
}

// ---- the remembered command

void forget_command(ScriptDesk desk) {
    desk.entry.command_code = -1;
}

// The spare row behind the last command belongs to none.
void remember_command_at(ScriptDesk desk, int row) {
    if (row + 1 == static_cast<int>(desk.form.grid.size()))
        return forget_command(desk);
    while (row > 0 && !starts_command(desk.form.grid, row))
        --row;
    desk.entry.command_row = row;
    desk.entry.command_code = command_code_at(desk.form.grid, row);
}

const ScriptCommand* remembered_command(ScriptDesk desk) {
    return command_stands(desk.form.grid, desk.entry)
               ? &script_command(static_cast<std::uint8_t>(desk.entry.command_code))
               : nullptr;
}

void normalise_remembered_command(ScriptDesk desk) {
    if (!command_stands(desk.form.grid, desk.entry))
        return;
    if (const auto refusal =
            normalise_command(desk.form.grid, desk.entry.command_row, desk.dialogs))
        refuse_cell(desk, *refusal, "");
}

// What the current row holds of the remembered command.
Parameter current_parameter(ScriptDesk desk) {
    const ScriptCommand* command = remembered_command(desk);
    const int index = desk.form.grid_row - desk.entry.command_row - 1;
    if (!command || index < 0 || index >= static_cast<int>(most_parameters))
        return {};
    return command->rows[static_cast<std::size_t>(index)];
}

bool has_lines(ParameterKind kind) {
    return kind == ParameterKind::offset_list || kind == ParameterKind::map_data;
}

bool in_queue_actions(ScriptDesk desk) {
    const ScriptCommand* command = remembered_command(desk);
    return command && command->is_queue() && desk.form.grid_row > desk.entry.command_row + 1;
}

// ---- queues

std::string& count_cell(ScriptDesk desk) {
    return row_at(desk, desk.entry.command_row + 1).cells[secondary];
}

bool has_count_mark(ScriptDesk desk) {
    return plain_hex(count_cell(desk)).value_or(0) > 0x80;
}

int most_bytes(ScriptDesk desk) {
    return has_count_mark(desk) ? most_marked_queue_bytes : most_queue_bytes;
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
    const int bytes =
        std::min(queue_bytes(desk.form.grid, desk.entry.command_row), most_bytes(desk));
    const int mark = has_count_mark(desk) ? 0x80 : 0;
    count_cell(desk) = cell_text(padded(format_hex(mark | bytes), 2));
}

void complete_queue(ScriptDesk desk) {
    renew_count(desk);
    row_at(desk, desk.entry.command_row + 1).cells[explanation] =
        script_command(static_cast<std::uint8_t>(desk.entry.command_code)).rows[0].label.loaded;
    hide_edit_box(desk);
}

// The end action in the blank row of a queue.
void end_queue(ScriptDesk desk, int row) {
    row_at(desk, row) = script_row(secondary, format_hex(end_queue_action),
                                   queue_action(end_queue_action).label.loaded);
    complete_queue(desk);
}

// A row of its own behind the current one for the next action, or for the end.
void go_to_next_action(ScriptDesk desk) {
    const int row = desk.form.grid_row + 1;
    desk.entry.cell_row = row - 1;
    insert_row_at(desk, row, blank_script_row());
    place_edit_box(desk, row, secondary);
    if (desk.entry.actions_left == 0)
        end_queue(desk, row);
}

// An action stands with all its arguments: one of a new queue, or one that was retyped.
void finish_action(ScriptDesk desk) {
    if (desk.entry.actions_left == 0)
        return hide_edit_box(desk);
    --desk.entry.actions_left;
    go_to_next_action(desk);
}

int arguments_of_action(ScriptDesk desk, int row) {
    const int end = command_end(desk.form.grid, desk.entry.command_row);
    int count = 0;
    while (row + 1 + count < end && is_blank(row_at(desk, row + 1 + count).cells[secondary]))
        ++count;
    return count;
}

// Bytes of the queue with another action of this size in the current row.
int queue_bytes_with(ScriptDesk desk, int size) {
    const ScriptCommand* former = action_in(row_at(desk, desk.form.grid_row));
    const bool blank = is_blank(current_cell(desk));
    const int former_size = former ? action_size(former->code) : blank ? 0 : 1;
    const int to_come =
        desk.entry.actions_left; // a byte each, the end's in the place of this one's
    return queue_bytes(desk.form.grid, desk.entry.command_row) - former_size + size + to_come;
}

void write_action(ScriptDesk desk, const ScriptCommand& action) {
    const int row = desk.form.grid_row;
    remove_rows_at(desk, row + 1, row + 1 + arguments_of_action(desk, row));
    row_at(desk, row) =
        script_row(secondary, padded(format_hex(action.code), 2), action.label.loaded);
    const auto parameters = action.parameters();
    for (std::size_t i = 0; i < parameters.size(); ++i)
        insert_row_at(desk, row + 1 + static_cast<int>(i),
                      blank_script_row(parameters[i].label.loaded));
    desk.entry.action_params_left = static_cast<int>(parameters.size());
}

// An action's code, in the blank row of a new queue or over an action that stands there.
void enter_action(ScriptDesk desk) {
    const std::uint32_t code = number_in_box(desk);
    if (code > 0xFF) {
        desk.dialogs.error("The code of an action does not fit in a byte.");
        return;
    }
    const ScriptCommand& action = queue_action(static_cast<std::uint8_t>(code));
    const bool is_new = desk.entry.actions_left > 0;
    const int bytes = queue_bytes_with(desk, action_size(action.code));
    const int former = queue_bytes(desk.form.grid, desk.entry.command_row);
    if ((is_new || bytes > former) && !fits_queue(desk, bytes))
        return;
    write_action(desk, action);
    if (!is_new && bytes != former)
        renew_count(desk);
    if (desk.entry.action_params_left == 0)
        return finish_action(desk);
    desk.entry.cell_row = desk.form.grid_row;
    place_edit_box(desk, desk.form.grid_row + 1, tertiary);
}

void enter_action_argument(ScriptDesk desk) {
    current_cell(desk) = cell_text(desk.form.Text2);
    if (--desk.entry.action_params_left == 0)
        return finish_action(desk);
    place_edit_box(desk, desk.form.grid_row + 1, tertiary);
}

void enter_queue_count(ScriptDesk desk) {
    const std::uint32_t count = number_in_box(desk);
    if (count > 0xFF) {
        desk.dialogs.error("The count of a queue does not fit in a byte.");
        return;
    }
    current_cell(desk) = cell_text(format_hex(count));
    desk.entry.rows_left = 0;
    const int actions = queue_size(static_cast<std::uint8_t>(count));
    if (actions == 0)
        return complete_queue(desk);
    desk.entry.actions_left = actions - 1;
    go_to_next_action(desk);
}

// ---- commands and their values

void show_dialogue(ScriptDesk desk, std::uint32_t number) {
    const DialogueText dialogue =
        read_dialogue_text(desk.rom, desk.entry.dialogue_patched, static_cast<int>(number));
    ScriptRow& row = row_at(desk, desk.form.grid_row);
    row.cells[explanation] = dialogue.text;
    row.height = dialogue.line_count * wrapped_line_height;
}

void go_to_first_parameter(ScriptDesk desk, int row, const ScriptCommand& command) {
    desk.entry.command_row = row;
    desk.entry.command_code = command.code;
    desk.entry.rows_left = static_cast<int>(command.parameters().size());
    if (desk.entry.rows_left > 0)
        place_edit_box(desk, row + 1, secondary);
}

// A command's code: its rows take the place of the old command's, or of the row of "Add Item".
void enter_code(ScriptDesk desk) {
    const int row = desk.form.grid_row;
    const std::uint32_t code = number_in_box(desk);
    if (desk.entry.new_row)
        remove_rows_at(desk, row, row + 1);
    else
        remove_command_rows(desk, row);
    desk.entry.new_row = false;
    hide_edit_box(desk);
    forget_command(desk);
    desk.entry.cell_row = row;
    if (code > 0xFF || !script_command(static_cast<std::uint8_t>(code)).can_be_added)
        return;
    const ScriptCommand& command = script_command(static_cast<std::uint8_t>(code));
    add_command_rows(desk.form.grid, row, command);
    go_to_first_parameter(desk, row, command);
}

void enter_parameter(ScriptDesk desk) {
    const ParameterKind kind = current_parameter(desk).kind;
    if (kind == ParameterKind::queue_count)
        return enter_queue_count(desk);
    current_cell(desk) = cell_text(desk.form.Text2);
    if (kind == ParameterKind::dialogue)
        show_dialogue(desk, number_in_box(desk) & entered_number_bits);
    if (--desk.entry.rows_left == 0)
        return hide_edit_box(desk);
    place_edit_box(desk, desk.form.grid_row + 1, secondary);
}

// A value that stands already.
void change_value(ScriptDesk desk) {
    if (desk.form.grid_column == secondary && in_queue_actions(desk))
        return enter_action(desk);
    if (current_parameter(desk).kind == ParameterKind::dialogue) {
        std::string text = desk.form.Text2;
        const auto number = static_cast<std::uint32_t>(parse_hex_text(text, desk.dialogs));
        show_dialogue(desk, number & typed_number_bits);
        current_cell(desk) = text;
    } else {
        current_cell(desk) = cell_text(desk.form.Text2);
    }
    hide_edit_box(desk);
}

bool entry_goes_on(const ScriptEntry& entry) {
    return entry.new_row || entry.rows_left > 0 || entry.actions_left > 0 ||
           entry.action_params_left > 0;
}

// The queue of a broken entry gets its end in a row of its own behind what stands.
void break_off_queue(ScriptDesk desk, int row) {
    insert_row_at(desk, row, blank_script_row());
    end_queue(desk, row);
}

void break_off_parameters(ScriptDesk desk) {
    const int row = desk.form.grid_row;
    if (current_parameter(desk).kind == ParameterKind::queue_count)
        return break_off_queue(desk, row + 1);
    remove_rows_at(desk, row, row + desk.entry.rows_left);
}

void break_off_action(ScriptDesk desk) {
    const int missing = desk.entry.action_params_left;
    const int end = desk.form.grid_row + std::max(missing, 1); // of the blank rows
    int row = desk.form.grid_row;
    // Of a new queue the action that lacks arguments goes as a whole: its count must be true.
    while (desk.entry.actions_left > 0 && missing > 0 &&
           is_blank(row_at(desk, row).cells[secondary]))
        --row;
    remove_rows_at(desk, row, end);
    if (desk.entry.actions_left > 0)
        break_off_queue(desk, row);
}

} // namespace

bool command_stands(const ScriptGrid& grid, const ScriptEntry& entry) {
    return entry.command_code >= 0 &&
           command_code_at(grid, entry.command_row) == entry.command_code;
}

void refuse_cell(ScriptDesk desk, const CellRefusal& refusal, const std::string& text) {
    place_edit_box(desk, refusal.row, refusal.column);
    desk.form.Text2 = text;
    desk.entry.cell_row = refusal.row;
    remember_command_at(desk, refusal.row);
    desk.dialogs.message(MessageKind::error, refusal.text, refusal.title);
}

void end_entry(ScriptDesk desk) {
    ScriptEntry& entry = desk.entry;
    if (!entry_goes_on(entry))
        return;
    if (entry.new_row)
        remove_rows_at(desk, desk.form.grid_row, desk.form.grid_row + 1);
    else if (entry.rows_left > 0)
        break_off_parameters(desk);
    else
        break_off_action(desk);
    const bool is_command = !entry.new_row;
    entry.new_row = false;
    entry.rows_left = entry.actions_left = entry.action_params_left = 0;
    hide_edit_box(desk);
    if (is_command)
        normalise_remembered_command(desk);
}

void click_cell(ScriptDesk desk, int row, int column) {
    const bool in_grid = row > 0 && row < static_cast<int>(desk.form.grid.size());
    const bool editable = in_grid && column >= primary && column < explanation &&
                          !is_blank(row_at(desk, row).cells[static_cast<std::size_t>(column)]);
    if (in_grid)
        desk.entry.cell_row = row;
    end_entry(desk);
    if (!editable) {
        forget_command(desk);
        return hide_edit_box(desk);
    }
    remember_command_at(desk, desk.entry.cell_row);
    place_edit_box(desk, desk.entry.cell_row, column);
    desk.form.Text2 = current_cell(desk);
}

void enter_text(ScriptDesk desk) {
    ScriptEntry& entry = desk.entry;
    if (!desk.form.Text2_visible)
        return;
    if (is_blank(without_breaks(desk.form.Text2)))
        return desk.dialogs.message(MessageKind::error, "You must enter some valid hex fool",
                                    "Nope");
    if (!has_lines(current_parameter(desk).kind))
        desk.form.Text2 = without_breaks(desk.form.Text2);
    if (desk.form.grid_column == primary)
        enter_code(desk);
    else if (entry.action_params_left > 0)
        enter_action_argument(desk);
    else if (entry.actions_left > 0)
        enter_action(desk);
    else if (entry.rows_left > 0)
        enter_parameter(desk);
    else
        change_value(desk);
    desk.form.Text2.clear();
    if (!entry_goes_on(entry))
        normalise_remembered_command(desk);
}

void escape_entry(ScriptDesk desk) {
    end_entry(desk);
    forget_command(desk);
    hide_edit_box(desk);
}

void add_item(ScriptDesk desk) {
    end_entry(desk);
    const ScriptGrid& grid = desk.form.grid;
    const int spare = static_cast<int>(grid.size()) - 1;
    int row = desk.entry.cell_row;
    while (row > 0 && row < spare && !starts_command(grid, row))
        ++row;
    if (row == 0 || row >= spare) { // nothing below: before the last "Return"
        row = spare;
        while (row > 0 && command_code_at(grid, row) != return_command)
            --row;
    }
    if (row == 0)
        row = spare;
    insert_row_at(desk, row, blank_script_row());
    desk.form.Text2.clear();
    desk.entry.cell_row = row;
    desk.entry.new_row = true;
    place_edit_box(desk, row, primary);
}

void remove_item(ScriptDesk desk) {
    end_entry(desk);
    if (command_stands(desk.form.grid, desk.entry))
        remove_command_rows(desk, desk.entry.command_row);
    forget_command(desk);
    hide_edit_box(desk);
}

} // namespace veldrune
