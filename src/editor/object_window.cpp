#include "editor/object_window.h"

#include "objects/markers.h"
#include "rom/number_field.h"
#include "rom/reported_access.h"

#include <algorithm>

namespace veldrune {
namespace {

bool has_row(const EditorState& state, int index) {
    return index >= 0 && index < chosen_list(state).row_count;
}

// Keeps the offset that the Event Editor saves to: it may be open on this object's script.
void forget_object(SelectedObject& object) {
    SelectedObject none;
    none.script_offset = object.script_offset;
    object = none;
}

void show_record_number(int index, int count, Form10& form) {
    form.HScroll1.value = index + 1;
    form.HScroll1.maximum = std::max(count, form.HScroll1.value);
    form.Label10 = std::to_string(form.HScroll1.value);
}

void fill_object_fields(EditorState& state) {
    SelectedObject& object = state.objects.selected_object;
    const ObjectKind kind = chosen_kind(state.form10);
    if (kind == ObjectKind::chest)
        state.form10.Combo2_lines = load_item_names(state.rom);
    unpack_object(kind, object.bytes, state.form10);
    object.script_offset = script_offset(kind, object.bytes).value_or(object.script_offset);
    if (kind == ObjectKind::chest)
        state.form1.Text20 = format_hex(state.form10.Combo2);
    on_sprite_text(state);
}

void load_selected_record(EditorState& state, int index) {
    if (!has_row(state, index))
        return drop_object(state);
    const auto row = object_row(chosen_kind(state.form10), chosen_list(state), index);
    SelectedObject& object = state.objects.selected_object;
    object.index = index;
    object.bytes = {};
    std::ranges::copy(row, object.bytes.begin());
    Form10& form = state.form10;
    form.visible = form.raise_requested = form.fields_enabled = true;
    fill_object_fields(state);
    show_record_number(index, chosen_list(state).count, form);
}

// Whether the preview can be drawn: an NPC is loaded, and neither of the two fields is blank.
bool has_preview(const SelectedObject& object, const Form10& form) {
    return object.index && chosen_kind(form) == ObjectKind::npc && !is_blank(form.Text2) &&
           !is_blank(form.Text7);
}

// The number typed so far in a field of an NPC. The text stays as it was typed.
std::int32_t typed_number(const Form10& form, std::string Form10::*text, Dialogs& dialogs) {
    std::string copy = form.*text;
    return parse_number_text(text_row(text).forms[0], copy, dialogs).value;
}

void draw_preview(const RomImage& rom, const ObjectBytes& record, std::int32_t sprite,
                  std::int32_t palette, Form10& form) {
    draw_sprite_preview(rom, sprite_graphics_offset(rom, npc_sprite(record)), sprite, palette & 7,
                        form);
}

} // namespace

ObjectKind chosen_kind(const Form10& form) {
    const int last_tab = object_tab_count - 1;
    return static_cast<ObjectKind>(std::clamp(form.TabStrip1, 0, last_tab));
}

const ObjectList& chosen_list(const EditorState& state) {
    return state.objects.lists[chosen_kind(state.form10)];
}

void open_object(EditorState& state, ObjectKind kind, int index) {
    if (chosen_kind(state.form10) != kind) {
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
    forget_object(state.objects.selected_object);
}

void on_object_tab(EditorState& state) {
    state.form10.HScroll1.value = 1;
    load_selected_record(state, 0);
}

void on_record_scroll(EditorState& state) {
    load_selected_record(state, state.form10.HScroll1.value - 1);
}

void on_palette_text(EditorState& state) {
    SelectedObject& object = state.objects.selected_object;
    Form10& form = state.form10;
    if (!has_preview(object, form))
        return;
    const std::int32_t palette = typed_number(form, &Form10::Text2, state.dialogs);
    set_npc_palette(object.bytes, static_cast<std::uint32_t>(palette));
    const std::int32_t sprite = typed_number(form, &Form10::Text7, state.dialogs);
    draw_preview(state.rom, object.bytes, sprite, palette, form);
}

void on_sprite_text(EditorState& state) {
    SelectedObject& object = state.objects.selected_object;
    Form10& form = state.form10;
    if (!has_preview(object, form))
        return;
    const std::int32_t sprite = typed_number(form, &Form10::Text7, state.dialogs);
    if (sprite >= first_hidden_sprite)
        return;
    set_npc_sprite(object.bytes, static_cast<std::uint32_t>(sprite));
    const std::int32_t palette = typed_number(form, &Form10::Text2, state.dialogs);
    draw_preview(state.rom, object.bytes, sprite, palette, form);
}

bool preview_is_outdated(const EditorState& state) {
    SilentDialogs silent;
    return has_preview(state.objects.selected_object, state.form10) &&
           typed_number(state.form10, &Form10::Text7, silent) >= first_hidden_sprite;
}

void save_object(EditorState& state) {
    const SelectedObject& object = state.objects.selected_object;
    if (!object.index || !has_row(state, *object.index))
        return;
    if (!is_from(state.objects.lists.source, state.rom))
        return state.dialogs.error("This object was read from another image than the open one. "
                                   "Build the map of the open image first. Nothing is written.");
    const ObjectKind kind = chosen_kind(state.form10);
    Form10 packed = state.form10;
    const auto record = pack_object(kind, object.bytes, packed, state.dialogs);
    if (!record)
        return;
    const auto size = static_cast<std::size_t>(object_kind_row(kind).record_size);
    if (!may_write(state.rom, state.dialogs))
        return;
    state.form10 = packed;
    write_or_report(state.rom, object_offset(kind, chosen_list(state), *object.index),
                    std::span(*record).first(size), state.dialogs);
    flush_or_report(state.rom, state.dialogs);
}

void close_object_window(EditorState& state) {
    state.form10 = {};
    forget_object(state.objects.selected_object);
}

} // namespace veldrune
