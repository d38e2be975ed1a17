#include "events/command_entry.h"

#include "dialogue/dialogue_text.h"
#include "rom/number_text.h"

namespace veldrune {
namespace {

constexpr int wrapped_line_height = 200; // of a dialogue that was typed
constexpr std::uint32_t typed_number_bits = 0x3FFF;
constexpr std::uint32_t entered_number_bits = 0x3FF;

void show_dialogue(ScriptEdit edit, std::uint32_t number) {
    const DialogueText dialogue =
        read_dialogue_text(edit.rom, edit.entry.dialogue_patched, static_cast<int>(number));
    ScriptRow& row = row_at(edit, edit.form.grid_row);
    row.cells[explanation] = dialogue.text;
    row.height = dialogue.line_count * wrapped_line_height;
}

// A new command, which is remembered, and the edit box on its first value.
void begin_command(ScriptEdit edit, int row, const ScriptCommand& command) {
    add_command_rows(edit.form.grid, row, command);
    edit.entry.command_row = row;
    edit.entry.command_code = command.code;
    if (!command.parameters().empty())
        place_edit_box(edit, command.is_queue() ? Awaited::queue_count : Awaited::parameter,
                       row + 1, secondary);
}

// The command that was typed takes the place of the rows from the current one up to end.
void replace_rows(ScriptEdit edit, int end) {
    const int row = edit.form.grid_row;
    const std::uint32_t code = number_in_box(edit);
    remove_rows_at(edit, row, end);
    hide_edit_box(edit);
    forget_command(edit);
    edit.entry.cell_row = row;
    if (code > 0xFF)
        return;
    const ScriptCommand& command = script_command(static_cast<std::uint8_t>(code));
    if (command.can_be_added)
        begin_command(edit, row, command);
}

} // namespace

void enter_new_code(ScriptEdit edit) {
    replace_rows(edit, edit.form.grid_row + 1);
}

void enter_parameter(ScriptEdit edit) {
    current_cell(edit) = cell_text(edit.form.Text2);
    if (current_parameter(edit).kind == ParameterKind::dialogue)
        show_dialogue(edit, number_in_box(edit) & entered_number_bits);
    const int next = edit.form.grid_row + 1;
    if (next == command_end(edit.form.grid, edit.entry.command_row))
        return hide_edit_box(edit);
    place_edit_box(edit, Awaited::parameter, next, secondary);
}

void change_code(ScriptEdit edit) {
    replace_rows(edit, command_end(edit.form.grid, edit.form.grid_row));
}

void change_value(ScriptEdit edit) {
    if (current_parameter(edit).kind == ParameterKind::dialogue) {
        std::string text = edit.form.Text2;
        const auto number = static_cast<std::uint32_t>(parse_hex_text(text, edit.dialogs));
        show_dialogue(edit, number & typed_number_bits);
        current_cell(edit) = text;
    } else {
        current_cell(edit) = cell_text(edit.form.Text2);
    }
    hide_edit_box(edit);
}

void drop_new_row(ScriptEdit edit) {
    remove_rows_at(edit, edit.form.grid_row, edit.form.grid_row + 1);
}

void drop_parameters(ScriptEdit edit) {
    remove_rows_at(edit, edit.form.grid_row, command_end(edit.form.grid, edit.entry.command_row));
}

} // namespace veldrune
