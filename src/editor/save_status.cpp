#include "editor/save_status.h"

#include "editor/field_mark.h"
#include "rom/number_text.h"

#include <algorithm>

namespace veldrune {
namespace {

// Whether the text stands for another number than the image holds, or for none.
bool differs(const EditorState& state, std::string Form1::*field) {
    const std::string& text = state.form1.*field;
    const std::string& saved = state.last_save.fields.*field;
    if (text == saved)
        return false;
    const auto number = saved_number(field, text);
    return !number || number != saved_number(field, saved);
}

bool differs(const EditorState& state, bool Form1::*box) {
    return state.form1.*box != state.last_save.fields.*box;
}

std::vector<RecordControl> differing_fields(const EditorState& state) {
    std::vector<RecordControl> fields;
    const auto add = [&](auto control) {
        if (differs(state, control))
            fields.push_back(control);
    };
    for (const TextRow<Form1>& row : form1_texts)
        if (is_typed(row.form) && row.text != &Form1::Text24)
            add(row.text);
    add(std::get<bool Form1::*>(record_row(RecordField::battles_enabled).control));
    return fields;
}

bool contains(const std::vector<RecordControl>& fields, const RecordControl& control) {
    return std::ranges::find(fields, control) != fields.end();
}

// Whether Save would bring what the control shows into the image.
bool can_be_saved(const Form1& form, const RecordControl& control) {
    const auto* text = std::get_if<std::string Form1::*>(&control);
    return !text || saved_number(*text, form.**text);
}

// The fields as the image holds them. Where the disk refuses to read them, what was written.
void read_fields(const EditorState& state, Form1& fields) {
    const ReadWatch reads(state.rom);
    show_record(state.rom, read_record(state.rom, state.map.map_index), fields);
    show_monster_set(state.rom, state.map.map_index, fields);
    if (reads.refused())
        fields = state.form1;
}

} // namespace

SaveStatus save_status(const EditorState& state) {
    const LastSave& last = state.last_save;
    SaveStatus status;
    status.painting =
        !state.changes_saved || state.map.unsaved_painting || state.world.unsaved_painting;
    status.command = last.cleared || last.pasted;
    if (state.map.source)
        for (const RecordControl& field : differing_fields(state))
            (contains(last.left_out, field) ? status.left_out : status.fields).push_back(field);
    if (state.world_map_open && state.world.source && differs(state, &Form1::Text24))
        status.fields.push_back(&Form1::Text24);
    status.saved_at = last.at;
    if (state.rom_open && state.rom.path() != state.rom_path)
        status.save_goes_to = state.rom.path();
    return status;
}

void remember_loaded_fields(EditorState& state) {
    LastSave& last = state.last_save;
    const std::string world_location = last.fields.Text24;
    last = {};
    last.fields = state.form1;
    last.fields.Text24 = world_location;
}

void remember_saved_fields(EditorState& state, SaveKind kind) {
    LastSave& last = state.last_save;
    read_fields(state, last.fields);
    last.at = std::chrono::system_clock::now();
    last.cleared = false;
    last.left_out.clear();
    if (kind == SaveKind::save)
        last.pasted = false;
    else
        for (const RecordControl& field : differing_fields(state))
            if (can_be_saved(state.form1, field))
                last.left_out.push_back(field);
}

void remember_world_location(EditorState& state) {
    const WorldRow& row = world_row(state.world.world);
    state.last_save.fields.Text24 =
        format_hex(offset_of_address(state.rom.read_pointer24(row.map_pointer)));
}

} // namespace veldrune
