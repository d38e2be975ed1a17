#include "editor/object_window.h"

#include "objects/markers.h"
#include "objects/sprite_preview.h"
#include "rom/number_text.h"
#include "rom/reported_access.h"

#include <algorithm>

namespace veldrune {
namespace {

const ObjectList& chosen_list(const EditorState& state) {
    return state.objects.lists[chosen_kind(state)];
}

bool has_row(const EditorState& state, int index) {
    return index >= 0 && index < chosen_list(state).row_count;
}

// Keeps the offset that the Event Editor saves to: it may be open on this object's script.
void forget_object(EditorState& state) {
    SelectedObject none;
    none.script_offset = state.objects.selected_object.script_offset;
    state.objects.selected_object = none;
}

// Combo2 lists the directions for an NPC and the items for a chest.
void fill_lists(EditorState& state) {
    std::vector<std::string>& lines = state.form10.Combo2_lines;
    if (chosen_kind(state) == ObjectKind::npc)
        lines.assign(std::begin(facing_names), std::end(facing_names));
    else if (chosen_kind(state) == ObjectKind::chest)
        lines = load_item_names(state.rom);
}

void show_record_number(EditorState& state, int index) {
    Form10& form = state.form10;
    form.HScroll1.value = index + 1;
    form.HScroll1.maximum = std::max(chosen_list(state).count, form.HScroll1.value);
    form.Label10 = std::to_string(form.HScroll1.value);
}

void fill_object_fields(EditorState& state) {
    SelectedObject& object = state.objects.selected_object;
    const ObjectKind kind = chosen_kind(state);
    fill_lists(state);
    unpack_object(kind, object.bytes, state.form10);
    object.script_offset = script_offset(kind, object.bytes).value_or(object.script_offset);
    if (kind == ObjectKind::chest)
        state.form1.Text20 = format_hex(state.form10.Combo2);
    on_sprite_text(state);
}

void load_selected_record(EditorState& state, int index) {
    if (!has_row(state, index))
        return drop_object(state);
    const auto row = object_row(chosen_kind(state), chosen_list(state), index);
    SelectedObject& object = state.objects.selected_object;
    object.index = index;
    object.bytes = {};
    std::ranges::copy(row, object.bytes.begin());
    Form10& form = state.form10;
    form.visible = form.raise_requested = form.fields_enabled = true;
    fill_object_fields(state);
    show_record_number(state, index);
}

// Whether the preview can be drawn: an NPC is loaded, and neither of the two fields is blank.
bool has_preview(const EditorState& state) {
    return state.objects.selected_object.index && chosen_kind(state) == ObjectKind::npc &&
           !is_blank(state.form10.Text2) && !is_blank(state.form10.Text7);
}

// The number typed so far. The field's text stays as it was typed.
std::int32_t typed_number(const EditorState& state, std::string text) {
    return parse_hex_text(text, state.dialogs);
}

void draw_preview(EditorState& state, std::int32_t sprite, std::int32_t palette) {
    const ObjectBytes& record = state.objects.selected_object.bytes;
    draw_sprite_preview(state.rom, sprite_graphics_offset(state.rom, npc_sprite(record)), sprite,
                        palette & 7, state.form10);
}

} // namespace

ObjectKind chosen_kind(const EditorState& state) {
    const int last_tab = object_tab_count - 1;
    return static_cast<ObjectKind>(std::clamp(state.form10.TabStrip1, 0, last_tab));
}

void open_object(EditorState& state, ObjectKind kind, int index) {
    if (chosen_kind(state) != kind) {
        state.form10.TabStrip1 = static_cast<int>(kind);
        on_object_tab(state);
    }
    load_selected_record(state, index);
}

void select_object_at(EditorState& state, std::uint8_t x, std::uint8_t y) {
    const ObjectKinds kinds =
        state.world_map_mode ? ObjectKinds(world_object_kinds) : ObjectKinds(map_object_kinds);
    for (const ObjectKind kind : kinds) {
        const bool shown = state.form1.*object_kind_row(kind).shown;
        const ObjectList& list = state.objects.lists[kind];
        for (int index = 0; shown && index < list.row_count; ++index)
            if (object_hit_by_click(kind, list, index, x, y))
                open_object(state, kind, index);
    }
}

void drop_object(EditorState& state) {
    Form10& form = state.form10;
    Form10 blank;
    blank.visible = form.visible;
    blank.raise_requested = form.raise_requested;
    blank.TabStrip1 = form.TabStrip1;
    const ObjectList& list = chosen_list(state);
    blank.HScroll1.maximum = list.row_count == 0 ? 1 : std::max(list.count, 1);
    blank.HScroll1.value = std::min(form.HScroll1.value, blank.HScroll1.maximum);
    form = blank;
    forget_object(state);
}

void on_object_tab(EditorState& state) {
    state.form10.HScroll1.value = 1;
    load_selected_record(state, 0);
}

void on_record_scroll(EditorState& state) {
    load_selected_record(state, state.form10.HScroll1.value - 1);
}

void on_palette_text(EditorState& state) {
    if (!has_preview(state))
        return;
    const std::int32_t palette = typed_number(state, state.form10.Text2);
    set_npc_palette(state.objects.selected_object.bytes, static_cast<std::uint32_t>(palette));
    draw_preview(state, typed_number(state, state.form10.Text7), palette);
}

void on_sprite_text(EditorState& state) {
    if (!has_preview(state))
        return;
    const std::int32_t sprite = typed_number(state, state.form10.Text7);
    if (sprite >= first_hidden_sprite)
        return;
    set_npc_sprite(state.objects.selected_object.bytes, static_cast<std::uint32_t>(sprite));
    draw_preview(state, sprite, typed_number(state, state.form10.Text2));
}

void save_object(EditorState& state) {
    const SelectedObject& object = state.objects.selected_object;
    if (!object.index || !has_row(state, *object.index))
        return;
    if (!is_from(state.objects.lists.source, state.rom))
        return state.dialogs.error("This object was read from another image than the open one. "
                                   "Build the map of the open image first. Nothing is written.");
    const ObjectKind kind = chosen_kind(state);
    const auto record = pack_object(kind, object.bytes, state.form10, state.dialogs);
    if (!record)
        return;
    const auto size = static_cast<std::size_t>(object_kind_row(kind).record_size);
    if (!may_write(state.rom, state.dialogs))
        return;
    write_or_report(state.rom, object_offset(kind, chosen_list(state), *object.index),
                    std::span(*record).first(size), state.dialogs);
    flush_or_report(state.rom, state.dialogs);
}

void close_object_window(EditorState& state) {
    state.form10 = {};
    forget_object(state);
}

} // namespace veldrune
