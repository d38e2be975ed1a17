#include "events/script_entry.h"

#include "events/command_entry.h"
#include "events/queue_entry.h"

#include <algorithm>

namespace veldrune {
namespace {

// What Enter does, and what becomes of the rows when anything else ends the entry: Escape, a click,
// "Add Item", "Remove Item" or a save. Null where there is nothing to do.
struct Stage {
    Awaited awaited;
    void (*enter)(ScriptEdit);
    void (*break_off)(ScriptEdit);
};
// clang-format off
constexpr Stage stages[] = {
    {Awaited::nothing,       nullptr,             nullptr},
    {Awaited::new_code,      enter_new_code,      drop_new_row},
    {Awaited::parameter,     enter_parameter,     drop_parameters},
    {Awaited::queue_count,   enter_queue_count,   end_uncounted_queue},
    {Awaited::next_action,   enter_next_action,   end_queue_here},
    {Awaited::next_argument, enter_next_argument, end_queue_before_action},
    {Awaited::code,          change_code,         nullptr},
    {Awaited::value,         change_value,        nullptr},
    {Awaited::action,        change_action,       nullptr},
    {Awaited::argument,      change_argument,     drop_arguments},
};
// clang-format on

const Stage& stage_of(const ScriptEntry& entry) {
    return *std::ranges::find(stages, entry.awaited, &Stage::awaited);
}

// The spare row after the last command belongs to none.
void remember_command_at(ScriptEdit edit, int row) {
    if (row + 1 == static_cast<int>(edit.form.grid.size()))
        return forget_command(edit);
    while (row > 0 && !starts_command(edit.form.grid, row))
        --row;
    edit.entry.command_row = row;
    edit.entry.command_code = command_code_at(edit.form.grid, row);
}

// What a cell of the remembered command holds.
Awaited awaited_in(ScriptEdit edit, int row, ScriptColumn column) {
    if (column == primary)
        return Awaited::code;
    const ScriptCommand* command = remembered_command(edit);
    const bool in_actions = command && command->is_queue() && row > edit.entry.command_row + 1;
    return in_actions && column == secondary ? Awaited::action : Awaited::value;
}

// Lays the edit box with a text on a cell, and remembers its command.
void edit_cell(ScriptEdit edit, int row, ScriptColumn column, const std::string& text) {
    edit.entry.cell_row = row;
    remember_command_at(edit, row);
    place_edit_box(edit, awaited_in(edit, row, column), row, column);
    edit.form.Text2 = text;
}

void normalise_remembered_command(ScriptEdit edit) {
    if (!remembered_command(edit))
        return;
    if (const auto refusal =
            normalise_command(edit.form.grid, edit.entry.command_row, edit.dialogs))
        refuse_cell(edit, *refusal, "");
}

bool has_lines(ParameterKind kind) {
    return kind == ParameterKind::offset_list || kind == ParameterKind::map_data;
}

// The last "Return"; the spare row where there is none.
int last_return(const ScriptGrid& grid) {
    const int spare = static_cast<int>(grid.size()) - 1;
    int row = spare;
    while (row > 0 && command_code_at(grid, row) != return_command)
        --row;
    return row > 0 ? row : spare;
}

// Where a new command goes: before the next one from a row on, or before the last "Return".
int row_for_command(const ScriptGrid& grid, int row) {
    if (row == 0)
        return last_return(grid);
    const int spare = static_cast<int>(grid.size()) - 1;
    while (row < spare && !starts_command(grid, row))
        ++row;
    return row < spare ? row : last_return(grid);
}

// Whether a cell that was clicked can be edited; row 0 is the header.
bool holds_value(const ScriptGrid& grid, int row, int column) {
    return row > 0 && column >= primary && column < explanation &&
           !is_blank(row_at(grid, row).cells[static_cast<std::size_t>(column)]);
}

} // namespace

void refuse_cell(ScriptEdit edit, const CellRefusal& refusal, const std::string& text) {
    edit_cell(edit, refusal.row, refusal.column, text);
    edit.dialogs.message(MessageKind::error, refusal.text, refusal.title);
}

bool entry_unfinished(const ScriptEntry& entry) {
    return stage_of(entry).break_off != nullptr;
}

void end_entry(ScriptEdit edit) {
    const Stage& stage = stage_of(edit.entry);
    if (!stage.break_off)
        return;
    stage.break_off(edit);
    hide_edit_box(edit);
    if (stage.awaited != Awaited::new_code)
        normalise_remembered_command(edit);
}

void click_cell(ScriptEdit edit, int row, int column) {
    const bool in_grid = row > 0 && row < static_cast<int>(edit.form.grid.size());
    edit.entry.clicked_row = in_grid ? row : 0;
    if (in_grid)
        edit.entry.cell_row = row;
    end_entry(edit);
    row = edit.entry.clicked_row;
    if (!holds_value(edit.form.grid, row, column)) {
        forget_command(edit);
        return hide_edit_box(edit);
    }
    const auto value_column = static_cast<ScriptColumn>(column);
    edit_cell(edit, row, value_column, row_at(edit, row).cells[value_column]);
}

void enter_text(ScriptEdit edit) {
    const Stage& stage = stage_of(edit.entry);
    if (!stage.enter)
        return;
    if (is_blank(without_breaks(edit.form.Text2)))
        return edit.dialogs.message(MessageKind::error, "You must enter some valid hex fool",
                                    "Nope");
    if (!has_lines(current_parameter(edit).kind))
        edit.form.Text2 = without_breaks(edit.form.Text2);
    stage.enter(edit);
    edit.form.Text2.clear();
    if (!stage_of(edit.entry).break_off)
        normalise_remembered_command(edit);
}

void escape_entry(ScriptEdit edit) {
    end_entry(edit);
    forget_command(edit);
    hide_edit_box(edit);
}

void add_item(ScriptEdit edit) {
    end_entry(edit);
    const int row = row_for_command(edit.form.grid, edit.entry.cell_row);
    insert_row_at(edit, row, blank_script_row());
    edit.form.Text2.clear();
    edit.entry.cell_row = row;
    place_edit_box(edit, Awaited::new_code, row, primary);
}

void remove_item(ScriptEdit edit) {
    end_entry(edit);
    const int row = edit.entry.command_row;
    if (remembered_command(edit))
        remove_rows_at(edit, row, command_end(edit.form.grid, row));
    forget_command(edit);
    hide_edit_box(edit);
}

} // namespace veldrune
