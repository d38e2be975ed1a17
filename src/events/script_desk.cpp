#include "events/script_desk.h"

#include <algorithm>

namespace veldrune {

std::string& current_cell(ScriptDesk desk) {
    return row_at(desk, desk.form.grid_row).cells[static_cast<std::size_t>(desk.form.grid_column)];
}

void insert_row_at(ScriptDesk desk, int row, ScriptRow what) {
    insert_row(desk.form.grid, row, std::move(what));
    for (int* place : {&desk.entry.cell_row, &desk.entry.clicked_row, &desk.entry.command_row})
        if (*place >= row)
            ++*place;
}

void remove_rows_at(ScriptDesk desk, int first, int end) {
    remove_rows(desk.form.grid, first, end);
    int& clicked = desk.entry.clicked_row;
    if (clicked >= first)
        clicked = clicked < end ? 0 : clicked - (end - first);
    for (int* place : {&desk.entry.cell_row, &desk.entry.command_row})
        if (*place >= first)
            *place = std::max(first, *place - (end - first));
}

void place_edit_box(ScriptDesk desk, Awaited awaited, int row, ScriptColumn column) {
    desk.entry.awaited = awaited;
    desk.form.grid_row = row;
    desk.form.grid_column = column;
    desk.form.Text2_visible = true;
}

void hide_edit_box(ScriptDesk desk) {
    desk.entry.awaited = Awaited::nothing;
    desk.form.Text2.clear();
    desk.form.Text2_visible = false;
}

std::uint32_t number_in_box(ScriptDesk desk) {
    return static_cast<std::uint32_t>(
        std::min<std::uint64_t>(number_in(desk.form.Text2, desk.dialogs), 0xFFFFFFFF));
}

bool command_stands(const ScriptGrid& grid, const ScriptEntry& entry) {
    return entry.command_code >= 0 &&
           command_code_at(grid, entry.command_row) == entry.command_code;
}

const ScriptCommand* remembered_command(ScriptDesk desk) {
    return command_stands(desk.form.grid, desk.entry)
               ? &script_command(static_cast<std::uint8_t>(desk.entry.command_code))
               : nullptr;
}

void forget_command(ScriptDesk desk) {
    desk.entry.command_code = -1;
}

Parameter current_parameter(ScriptDesk desk) {
    const ScriptCommand* command = remembered_command(desk);
    const int index = desk.form.grid_row - desk.entry.command_row - 1;
    if (!command || index < 0 || index >= static_cast<int>(most_parameters))
        return {};
    return command->rows[static_cast<std::size_t>(index)];
}

} // namespace veldrune
