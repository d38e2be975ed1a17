#include "editor/event_editor.h"

#include "editor/object_window.h"
#include "events/script_encoder.h"
#include "rom/number_field.h"
#include "rom/patch_marks.h"
#include "rom/reported_access.h"

namespace veldrune {
namespace {

// The edit for an operation that may change the grid, which is counted: the view then shows it
// again.
ScriptEdit counted_edit(EditorState& state) {
    ++state.form9.operation_count;
    return {state.form9, state.script.entry, state.rom, state.dialogs};
}

bool is_open(const EditorState& state) {
    return state.form9.visible;
}

void report(EditorState& state, const std::string& text) {
    state.dialogs.error(text);
}

bool reading_failed(const ReadWatch& reads, Dialogs& dialogs) {
    return report_refused_reads(reads, "What is shown of this script is not what the image holds.",
                                dialogs);
}

void report_if_cut(EditorState& state) {
    if (!state.script.loaded.whole)
        report(state, "The script at " + state.form9.Text3 + " has no end within " +
                          std::to_string(max_script_bytes) +
                          " bytes and the file. It is shown as far as it goes and can't be saved.");
}

// Reads the script from the open image.
void read_script(EditorState& state) {
    ScriptEntry& entry = state.script.entry;
    entry.dialogue_patched = has_dialogue_patch(state.rom);
    state.script.loaded = load_script(state.rom, state.objects.selected_object.script_offset,
                                      entry.dialogue_patched, state.form9.grid);
    state.script.loaded_values = values_of(state.form9.grid);
    state.script.source = source_of(state.rom);
}

// Whether the script may be written into the open image at all; if not, it has been reported.
bool may_save_script(EditorState& state) {
    const std::optional<std::string> refusal = script_save_refusal(state);
    if (refusal)
        report(state, *refusal);
    return !refusal;
}

// A list that a load would give another number of offsets is saved only where the user wants that.
// The bytes that were read come from the image: they lose nothing.
bool may_save_lists(EditorState& state, const std::vector<std::uint8_t>& bytes) {
    if (bytes == state.script.loaded.bytes)
        return true;
    const std::optional<int> row = row_of_misread_list(state.rom, bytes, state.form9.grid);
    return !row ||
           state.dialogs.question(
               "Row " + std::to_string(*row) +
               " holds another number of offsets than will be read there: as many as the dialogue "
               "before it offers choices, or as the count of a list in between says. The rest of "
               "the script will be taken for something else. Save it all the same?");
}

// So is a script that was read from another place.
bool may_save_at(EditorState& state, std::int64_t offset) {
    const std::int64_t loaded = state.script.loaded.offset;
    return offset == loaded ||
           state.dialogs.question("This script was read from " + format_hex(loaded) +
                                  " and will be written to " + format_hex(offset) +
                                  ". The script there may be shorter: what follows it would be "
                                  "overwritten. Write it there all the same?");
}

void refuse(EditorState& state, const CellRefusal& refusal) {
    const ScriptRow& row = row_at(state.form9.grid, refusal.row);
    refuse_cell(counted_edit(state), refusal, row.cells[refusal.column]);
}

} // namespace

void open_event_editor(EditorState& state) {
    if (!state.rom_open)
        return;
    const int former_loads = state.form9.load_count;
    state.form9 = Form9{};
    state.script.entry = ScriptEntry{};
    const ReadWatch reads(state.rom);
    read_script(state);
    state.form9.Text3 =
        format_hex(static_cast<std::uint32_t>(state.objects.selected_object.script_offset));
    state.form9.load_count = former_loads + 1;
    state.form9.visible = state.form9.raise_requested = true;
    if (reading_failed(reads, state.dialogs))
        state.script.loaded.whole = false; // counts as cut
    else
        report_if_cut(state);
}

void open_event_editor_of_object(EditorState& state) {
    const SelectedObject& object = state.objects.selected_object;
    if (object.index && script_offset(chosen_kind(state.form10), object.bytes))
        open_event_editor(state);
}

void close_event_editor(EditorState& state) {
    state.form9.visible = false;
    state.form9.Text2_visible = false;
}

ScriptRows remembered_rows(const EditorState& state) {
    const ScriptGrid& grid = state.form9.grid;
    if (!has_command(grid, state.script.entry))
        return {};
    const int first = state.script.entry.command_row;
    return {first, command_end(grid, first)};
}

std::optional<std::string> script_save_refusal(const EditorState& state) {
    if (!state.script.loaded.whole)
        return "This script can't be saved, since it was not read up to its end.";
    if (is_from(state.script.source, state.rom))
        return std::nullopt;
    return "This script was read from " + state.script.source->path +
           " and can't be saved into the open image, " + state.rom.path() + ".";
}

void on_script_click(EditorState& state, int row, int column) {
    if (is_open(state))
        click_cell(counted_edit(state), row, column);
}

void on_script_enter(EditorState& state) {
    if (!is_open(state))
        return;
    const ReadWatch reads(state.rom);
    enter_text(counted_edit(state));
    reading_failed(reads, state.dialogs); // a dialogue that was shown
}

void on_script_escape(EditorState& state) {
    if (is_open(state))
        escape_entry(counted_edit(state));
}

void add_script_item(EditorState& state) {
    if (is_open(state))
        add_item(counted_edit(state));
}

void remove_script_item(EditorState& state) {
    if (is_open(state))
        remove_item(counted_edit(state));
}

void on_script_offset_enter(EditorState& state) {
    if (!is_open(state))
        return;
    state.objects.selected_object.script_offset =
        read_field(state.form9, &Form9::Text3, state.dialogs).value;
    open_event_editor(state);
}

void save_script(EditorState& state) {
    if (!is_open(state))
        return;
    end_entry(counted_edit(state));
    if (!may_save_script(state))
        return;
    const EncodedScript script = encode_script(state.form9.grid, state.dialogs);
    if (script.refusal)
        return refuse(state, *script.refusal);
    if (static_cast<int>(script.bytes.size()) > state.script.loaded.length())
        return state.dialogs.message(MessageKind::note, "Not Now", default_title);
    const std::int64_t offset = state.objects.selected_object.script_offset;
    if (!may_write(state.rom, state.dialogs) || !may_save_lists(state, script.bytes) ||
        !may_save_at(state, offset))
        return;
    write_or_report(state.rom, offset, script.bytes, state.dialogs);
    flush_or_report(state.rom, state.dialogs);
}

} // namespace veldrune
