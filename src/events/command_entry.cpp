#include "events/command_entry.h"

#include "dialogue/dialogue_text.h"
#include "rom/number_text.h"

namespace veldrune {
namespace {

constexpr int wrapped_line_height = 200; // of a dialogue that was typed
constexpr std::uint32_t typed_number_bits = 0x3FFF;
constexpr std::uint32_t entered_number_bits = 0x3FF;

void show_dialogue(ScriptDesk desk, std::uint32_t number) {
    const DialogueText dialogue =
        read_dialogue_text(desk.rom, desk.entry.dialogue_patched, static_cast<int>(number));
    ScriptRow& row = row_at(desk, desk.form.grid_row);
    row.cells[explanation] = dialogue.text;
    row.height = dialogue.line_count * wrapped_line_height;
}

// A new command, which is remembered, and the edit box on its first value.
void begin_command(ScriptDesk desk, int row, const ScriptCommand& command) {
    add_command_rows(desk.form.grid, row, command);
    desk.entry.command_row = row;
    desk.entry.command_code = command.code;
    if (!command.parameters().empty())
        place_edit_box(desk, command.is_queue() ? Awaited::queue_count : Awaited::parameter,
                       row + 1, secondary);
}

// The command that was typed takes the place of the rows from the current one up to end.
void replace_rows(ScriptDesk desk, int end) {
    const int row = desk.form.grid_row;
    const std::uint32_t code = number_in_box(desk);
    remove_rows_at(desk, row, end);
    hide_edit_box(desk);
    forget_command(desk);
    desk.entry.cell_row = row;
    if (code > 0xFF)
        return;
    const ScriptCommand& command = script_command(static_cast<std::uint8_t>(code));
    if (command.can_be_added)
        begin_command(desk, row, command);
}

} // namespace

void enter_new_code(ScriptDesk desk) {
    replace_rows(desk, desk.form.grid_row + 1);
}

void enter_parameter(ScriptDesk desk) {
    current_cell(desk) = cell_text(desk.form.Text2);
    if (current_parameter(desk).kind == ParameterKind::dialogue)
        show_dialogue(desk, number_in_box(desk) & entered_number_bits);
    const int next = desk.form.grid_row + 1;
    if (next == command_end(desk.form.grid, desk.entry.command_row))
        return hide_edit_box(desk);
    place_edit_box(desk, Awaited::parameter, next, secondary);
}

void change_code(ScriptDesk desk) {
    replace_rows(desk, command_end(desk.form.grid, desk.form.grid_row));
}

void change_value(ScriptDesk desk) {
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

void drop_new_row(ScriptDesk desk) {
    remove_rows_at(desk, desk.form.grid_row, desk.form.grid_row + 1);
}

void drop_parameters(ScriptDesk desk) {
    remove_rows_at(desk, desk.form.grid_row, command_end(desk.form.grid, desk.entry.command_row));
}

} // namespace veldrune
