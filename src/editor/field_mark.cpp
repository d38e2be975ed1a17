#include "editor/field_mark.h"

#include "editor/object_window.h"
#include "rom/number_field.h"
#include "saving/save_layers.h"
#include "saving/save_properties.h"
#include "saving/save_world.h"

namespace veldrune {
namespace {

const char* fault(NumberForm form, bool is_valid) {
    if (!is_valid)
        return is_decimal(form) ? "No decimal number: " : "No hexadecimal number: ";
    return !is_size(form)              ? "Too large: "
           : form == NumberForm::width ? "No width: "
                                       : "No height: ";
}

// Whether the field is a size of a layer that Save writes in that size.
bool sizes_a_layer(const Form1& form, std::string Form1::*field) {
    for (int layer = 0; layer < layer_count; ++layer)
        if (field == layer_controls[layer].width || field == layer_controls[layer].height)
            return !is_missing_layer(form, layer);
    return false;
}

// The number that a field shows for its bits in the record.
std::string number_in_record(const MapProperties& record, std::string Form1::*field) {
    const NumberForm form = text_row(field).form;
    const std::int64_t bits = read_bits(record, record_row_of(field)->bits);
    return format_number(form, is_size(form) ? std::int64_t{min_layer_side} << bits : bits);
}

std::string map_field_mark(const EditorState& state, std::string Form1::*field) {
    const NumberForm form = text_row(field).form;
    const ReadText read = read_text(form, state.form1.*field);
    const std::optional<std::int64_t> saved = saved_number(field, state.form1.*field);
    if (read.is_valid && saved == read.number.value)
        return "";
    if (form == NumberForm::location && saved != read.number.value)
        return "No pointer reaches " + format_hex(read.number.value) + ": it would lead to " +
               format_hex(*saved) + " instead.";
    const std::string why = fault(form, read.is_valid);
    if (saved)
        return why + "Save makes " + format_number(form, *saved) + " of it.";
    if (read.number.value == 0 && sizes_a_layer(state.form1, field))
        return why + "Save refuses a layer without tiles.";
    return why + "Save keeps " + number_in_record(state.map.map_properties, field) + ".";
}

std::string world_field_mark(const std::string& location) {
    const ReadText read = read_text(text_row(&Form1::Text24).form, location);
    if (!can_name_world_at(read.number.value))
        return "No pointer reaches " + format_hex(read.number.value) +
               ": Save leaves the pointer to the world map as it is.";
    return read.is_valid
               ? ""
               : "No hexadecimal number: Save makes " + format_hex(read.number.value) + " of it.";
}

std::string object_mark(NumberForm form, const PackedText& packed) {
    if (!packed.number)
        return "Save refuses this text.";
    if (packed.as_typed && packed.is_valid)
        return "";
    const std::string number = format_number(form, *packed.number);
    return (packed.is_valid ? "Out of range: Save makes " : "No hexadecimal number: Save makes ") +
           number + (packed.spills ? " of it, and adds the rest to other values." : " of it.");
}

} // namespace

std::optional<std::int64_t> saved_number(std::string Form1::*field, const std::string& text) {
    if (field != &Form1::Text24)
        return saved_property(field, text);
    const int location = read_text(text_row(field).form, text).number.value;
    return can_name_world_at(location) ? std::optional(location) : std::nullopt;
}

std::string field_mark(const EditorState& state, std::string Form1::*field) {
    if (!is_typed(text_row(field).form))
        return "";
    if (field == &Form1::Text24)
        return state.world.source ? world_field_mark(state.form1.*field) : "";
    return state.map.source ? map_field_mark(state, field) : "";
}

std::string field_mark(const EditorState& state, std::string Form10::*field) {
    const Form10& form = state.form10;
    const NumberForm number = text_row(field).forms[static_cast<std::size_t>(form.TabStrip1)];
    if (!state.objects.selected_object.index || !is_typed(number))
        return "";
    return object_mark(number, pack_text(chosen_kind(form), field, form.*field));
}

std::string offset_mark(const std::string& offset) {
    const auto [number, is_valid] = read_text(text_row(&Form9::Text3).form, offset);
    return is_valid ? ""
                    : "No hexadecimal number: Enter loads the script at " +
                          format_hex(number.value) + ".";
}

} // namespace veldrune
