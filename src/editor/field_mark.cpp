#include "editor/field_mark.h"

#include "rom/number_field.h"
#include "saving/save_layers.h"
#include "saving/save_properties.h"
#include "saving/save_world.h"

namespace veldrune {
namespace {

// Notes whether there was a message.
class Listener : public SilentDialogs {
  public:
    bool heard = false;
    void message(MessageKind, const std::string&, const std::string&) override { heard = true; }
};

struct ReadText {
    int value;
    bool is_valid; // read without a message
};
ReadText read_text(NumberForm form, std::string text) {
    Listener listener;
    const TextNumber number = parse_number_text(form, text, listener);
    return {number.value, !listener.heard};
}

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
    if (read.is_valid && saved == read.value)
        return "";
    if (form == NumberForm::location && saved != read.value)
        return "No pointer reaches " + format_hex(read.value) + ": it would lead to " +
               format_hex(*saved) + " instead.";
    const std::string why = fault(form, read.is_valid);
    if (saved)
        return why + "Save makes " + format_number(form, *saved) + " of it.";
    if (read.value == 0 && sizes_a_layer(state.form1, field))
        return why + "Save refuses a layer without tiles.";
    return why + "Save keeps " + number_in_record(state.map.map_properties, field) + ".";
}

std::string world_field_mark(const std::string& location) {
    const ReadText read = read_text(text_row(&Form1::Text24).form, location);
    if (!can_name_world_at(read.value))
        return "No pointer reaches " + format_hex(read.value) +
               ": Save leaves the pointer to the world map as it is.";
    return read.is_valid
               ? ""
               : "No hexadecimal number: Save makes " + format_hex(read.value) + " of it.";
}

} // namespace

std::optional<std::int64_t> saved_number(std::string Form1::*field, const std::string& text) {
    if (field != &Form1::Text24)
        return saved_property(field, text);
    const int location = read_text(text_row(field).form, text).value;
    return can_name_world_at(location) ? std::optional(location) : std::nullopt;
}

std::string field_mark(const EditorState& state, std::string Form1::*field) {
    if (!is_typed(text_row(field).form))
        return "";
    if (field == &Form1::Text24)
        return state.world.source ? world_field_mark(state.form1.*field) : "";
    return state.map.source ? map_field_mark(state, field) : "";
}

} // namespace veldrune
