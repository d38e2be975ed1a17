#include "events/script_edit.h"

#include <algorithm>

namespace veldrune {

std::string& current_cell(ScriptEdit edit) {
    return row_at(edit, edit.form.grid_row).cells[static_cast<std::size_t>(edit.form.grid_column)];
}

void insert_row_at(ScriptEdit edit, int row, ScriptRow what) {
    insert_row(edit.form.grid, row, std::move(what));
    for (int* place : {&edit.entry.cell_row, &edit.entry.clicked_row, &edit.entry.command_row})
        if (*place >= row)
            ++*place;
}

void remove_rows_at(ScriptEdit edit, int first, int end) {
    remove_rows(edit.form.grid, first, end);
    int& clicked = edit.entry.clicked_row;
    if (clicked >= first)
        clicked = clicked < end ? 0 : clicked - (end - first);
    for (int* place : {&edit.entry.cell_row, &edit.entry.command_row})
        if (*place >= first)
            *place = std::max(first, *place - (end - first));
}

void place_edit_box(ScriptEdit edit, Awaited awaited, int row, ScriptColumn column) {
    edit.entry.awaited = awaited;
    edit.form.grid_row = row;
    edit.form.grid_column = column;
    edit.form.Text2_visible = true;
}

void hide_edit_box(ScriptEdit edit) {
    edit.entry.awaited = Awaited::nothing;
    edit.form.Text2.clear();
    edit.form.Text2_visible = false;
}

std::uint32_t number_in_box(ScriptEdit edit) {
    return static_cast<std::uint32_t>(
        std::min<std::uint64_t>(number_in(edit.form.Text2, edit.dialogs), 0xFFFFFFFF));
}

bool has_command(const ScriptGrid& grid, const ScriptEntry& entry) {
    return entry.command_code >= 0 &&
           command_code_at(grid, entry.command_row) == entry.command_code;
}

const ScriptCommand* remembered_command(ScriptEdit edit) {
    return has_command(edit.form.grid, edit.entry)
               ? &script_command(static_cast<std::uint8_t>(edit.entry.command_code))
               : nullptr;
}

void forget_command(ScriptEdit edit) {
    edit.entry.command_code = -1;
}

Parameter current_parameter(ScriptEdit edit) {
    const ScriptCommand* command = remembered_command(edit);
    const int index = edit.form.grid_row - edit.entry.command_row - 1;
    if (!command || index < 0 || index >= static_cast<int>(most_parameters))
        return {};
    return command->rows[static_cast<std::size_t>(index)];
}

} // namespace veldrune
