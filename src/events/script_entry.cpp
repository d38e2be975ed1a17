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
    void (*enter)(ScriptDesk);
    void (*break_off)(ScriptDesk);
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

const Stage& stage_of(ScriptDesk desk) {
    return *std::ranges::find(stages, desk.entry.awaited, &Stage::awaited);
}

// The spare row after the last command belongs to none.
void remember_command_at(ScriptDesk desk, int row) {
    if (row + 1 == static_cast<int>(desk.form.grid.size()))
        return forget_command(desk);
    while (row > 0 && !starts_command(desk.form.grid, row))
        --row;
    desk.entry.command_row = row;
    desk.entry.command_code = command_code_at(desk.form.grid, row);
}

// What a cell of the remembered command holds.
Awaited awaited_in(ScriptDesk desk, int row, ScriptColumn column) {
    if (column == primary)
        return Awaited::code;
    const ScriptCommand* command = remembered_command(desk);
    const bool in_actions = command && command->is_queue() && row > desk.entry.command_row + 1;
    return in_actions && column == secondary ? Awaited::action : Awaited::value;
}

// Lays the edit box with a text on a cell, and remembers its command.
void edit_cell(ScriptDesk desk, int row, ScriptColumn column, const std::string& text) {
    desk.entry.cell_row = row;
    remember_command_at(desk, row);
    place_edit_box(desk, awaited_in(desk, row, column), row, column);
    desk.form.Text2 = text;
}

void normalise_remembered_command(ScriptDesk desk) {
    if (!remembered_command(desk))
        return;
    if (const auto refusal =
            normalise_command(desk.form.grid, desk.entry.command_row, desk.dialogs))
        refuse_cell(desk, *refusal, "");
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

void refuse_cell(ScriptDesk desk, const CellRefusal& refusal, const std::string& text) {
    edit_cell(desk, refusal.row, refusal.column, text);
    desk.dialogs.message(MessageKind::error, refusal.text, refusal.title);
}

void end_entry(ScriptDesk desk) {
    const Stage& stage = stage_of(desk);
    if (!stage.break_off)
        return;
    stage.break_off(desk);
    hide_edit_box(desk);
    if (stage.awaited != Awaited::new_code)
        normalise_remembered_command(desk);
}

void click_cell(ScriptDesk desk, int row, int column) {
    const bool in_grid = row > 0 && row < static_cast<int>(desk.form.grid.size());
    desk.entry.clicked_row = in_grid ? row : 0;
    if (in_grid)
        desk.entry.cell_row = row;
    end_entry(desk);
    row = desk.entry.clicked_row;
    if (!holds_value(desk.form.grid, row, column)) {
        forget_command(desk);
        return hide_edit_box(desk);
    }
    const auto value_column = static_cast<ScriptColumn>(column);
    edit_cell(desk, row, value_column, row_at(desk, row).cells[value_column]);
}

void enter_text(ScriptDesk desk) {
    const Stage& stage = stage_of(desk);
    if (!stage.enter)
        return;
    if (is_blank(without_breaks(desk.form.Text2)))
        return desk.dialogs.message(MessageKind::error, "You must enter some valid hex fool",
                                    "Nope");
    if (!has_lines(current_parameter(desk).kind))
        desk.form.Text2 = without_breaks(desk.form.Text2);
    stage.enter(desk);
    desk.form.Text2.clear();
    if (!stage_of(desk).break_off)
        normalise_remembered_command(desk);
}

void escape_entry(ScriptDesk desk) {
    end_entry(desk);
    forget_command(desk);
    hide_edit_box(desk);
}

void add_item(ScriptDesk desk) {
    end_entry(desk);
    const int row = row_for_command(desk.form.grid, desk.entry.cell_row);
    insert_row_at(desk, row, blank_script_row());
    desk.form.Text2.clear();
    desk.entry.cell_row = row;
    place_edit_box(desk, Awaited::new_code, row, primary);
}

void remove_item(ScriptDesk desk) {
    end_entry(desk);
    const int row = desk.entry.command_row;
    if (remembered_command(desk))
        remove_rows_at(desk, row, command_end(desk.form.grid, row));
    forget_command(desk);
    hide_edit_box(desk);
}

} // namespace veldrune
