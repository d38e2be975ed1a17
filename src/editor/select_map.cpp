#include "editor/select_map.h"

#include "editor/object_lists.h"
#include "editor/save_status.h"
#include "editor/view_place.h"
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
    if (state.changes_saved)
        return true;
    if (!state.dialogs.question(
            "Selecting another map without saving will erase your changes, continue?"))
        return false;
    forget_changes(state);
    return true;
}

} // namespace

void report_refused_map_reads(const ReadWatch& reads, std::optional<ImageSource>& source,
                              Dialogs& dialogs) {
    if (report_refused_reads(
            reads,
            "What is shown of this map is not what the image holds, and it can't be "
            "saved.",
            dialogs))
        source.reset();
}

void show_map_fields(const RomImage& rom, const ChosenMap& map, Form1& form) {
    show_record(rom, map.map_properties, form);
    show_monster_set(rom, map.map_index, form);
}

void select_map(EditorState& state) {
    Form1& form = state.form1;
    leave_world_map(state);
    const bool painted = state.map.unsaved_painting || state.last_save.cleared;
    if (!state.rom_open || !may_drop_changes(state))
        return;
    form.Picture3.fill(0);
    enable_map_fields(form);
    const ReadWatch reads(state.rom);
    if (painted) { // the picture shows what is dropped
        state.picture.cells.source.reset();
        state.picture.strips = {};
    }
    load_map(state.rom, form.Combo1, state.work.decompress_buffer, state.map);
    show_byte27_high(state.map.map_properties, form);
    read_object_counts(state);
    if (form.Combo1 > 0)
        state.map_selected = true;
    show_map_fields(state.rom, state.map, form);
    remember_loaded_fields(state);
    report_refused_map_reads(reads, state.map.source, state.dialogs);
}

} // namespace veldrune
