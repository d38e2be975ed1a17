#include "editor/select_map.h"

#include "editor/objects.h"
#include "editor/view.h"
#include "rom/reported_access.h"

namespace veldrune {
namespace {

void leave_world_map(EditorState& state) {
    state.world_map_open = false;
    state.world_map_mode = false;
    show_scroll_bars(state.form1, false);
}

void enable_map_fields(Form1& form) {
    form.map_fields_enabled = true;
    form.Text24_visible = false;
}

bool may_drop_changes(EditorState& state) {
    if (!state.changes_saved)
        state.changes_saved = state.dialogs.question(
            "Selecting another map without saving will erase your changes, continue?");
    return state.changes_saved;
}

// Shows the map's record in the fields and keeps what later steps need of it.
void read_map_properties(EditorState& state) {
    const MapProperties record = read_record(state.rom, state.map.map_index);
    state.map.map_properties = state.map.record_at_load = record;
    show_record(state.rom, record, state.form1);
    show_byte27_high(record, state.form1);
    for (int layer = 0; layer < layer_count; ++layer)
        state.map.layers[static_cast<std::size_t>(layer)].layer_offset =
            state.rom.read_pointer24(data_pointer_offset(layer_data_number(record, layer)));
    state.map.layer3_order = read_layer3_order(state.rom, record);
    // Four bits, while the field and the build take five.
    fill_anim_tile_table(state.rom, record[27] & 0x0F, state.map.anim_tiles);
}

} // namespace

void report_map_refusal(const ReadWatch& reads, std::optional<ImageSource>& source,
                        Dialogs& dialogs) {
    if (report_read_refusal(
            reads,
            "What is shown of this map is not what the image holds, and it can't be "
            "saved.",
            dialogs))
        source.reset();
}

void show_map_fields(EditorState& state) {
    show_record(state.rom, state.map.map_properties, state.form1);
    show_monster_set(state.rom, state.map.map_index, state.form1);
}

void select_map(EditorState& state) {
    Form1& form = state.form1;
    leave_world_map(state);
    if (!state.rom_open || !may_drop_changes(state))
        return;
    form.Picture3.fill(0);
    enable_map_fields(form);
    const ReadWatch reads(state.rom);
    state.map.map_index = form.Combo1;
    state.map.source = source_of(state.rom);
    read_map_properties(state);
    for (int layer = 0; layer < layer_count; ++layer)
        load_layer(state.rom, form, layer, state.work.decompress_buffer,
                   state.map.layers[static_cast<std::size_t>(layer)]);
    read_object_counts(state);
    if (form.Combo1 > 0)
        state.map_selected = true;
    show_monster_set(state.rom, state.map.map_index, form);
    report_map_refusal(reads, state.map.source, state.dialogs);
}

} // namespace veldrune
