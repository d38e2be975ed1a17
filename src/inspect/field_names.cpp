#include "inspect/field_names.h"

#include "map/chosen_map.h"

namespace veldrune::inspect {
namespace {

// clang-format off
struct RecordName { RecordField field; const char* name; };
constexpr RecordName record_names[] = {
    {RecordField::battle_background, "battle-background"},
    {RecordField::battles_enabled,   "battles"},
    {RecordField::tileset1,          "tileset1"},
    {RecordField::tileset2,          "tileset2"},
    {RecordField::tileset3,          "tileset3"},
    {RecordField::tileset4,          "tileset4"},
    {RecordField::layer3_graphics,   "graphics3"},
    {RecordField::layer1_formation,  "formation1"},
    {RecordField::layer2_formation,  "formation2"},
    {RecordField::layer1_data,       "data1"},
    {RecordField::layer2_data,       "data2"},
    {RecordField::layer3_data,       "data3"},
    {RecordField::left_shift1,       "left-shift1"},
    {RecordField::left_shift2,       "left-shift2"},
    {RecordField::upward_shift1,     "upward-shift1"},
    {RecordField::upward_shift2,     "upward-shift2"},
    {RecordField::scroll_index,      "scroll-index"},
    {RecordField::layer2_height,     "height2"},
    {RecordField::layer2_width,      "width2"},
    {RecordField::layer1_height,     "height1"},
    {RecordField::layer1_width,      "width1"},
    {RecordField::layer3_height,     "height3"},
    {RecordField::layer3_width,      "width3"},
    {RecordField::palette,           "palette"},
    {RecordField::animated_tileset,  "animated-tileset"},
    {RecordField::byte27_high,       "byte27-high"},
    {RecordField::song,              "song"},
    {RecordField::viewable_first,    "viewable1"},
    {RecordField::viewable_second,   "viewable2"},
    {RecordField::layer_priorities,  "layer-priorities"},
};
struct ObjectName { ObjectField field; const char* name; };
constexpr ObjectName object_names[] = {
    {ObjectField::event,         "event"},
    {ObjectField::palette,       "palette"},
    {ObjectField::flag,          "flag"},
    {ObjectField::map_x,         "column"},
    {ObjectField::map_y,         "row"},
    {ObjectField::speed,         "speed"},
    {ObjectField::sprite,        "sprite"},
    {ObjectField::movement,      "movement"},
    {ObjectField::walk_over,     "walk-over"},
    {ObjectField::walk_under,    "walk-under"},
    {ObjectField::vehicle,       "vehicle"},
    {ObjectField::facing,        "facing"},
    {ObjectField::turn_to_talk,  "turn-to-talk"},
    {ObjectField::byte_flag,     "byte-flag"},
    {ObjectField::chest_bit1,    "bit1"},
    {ObjectField::chest_bit2,    "bit2"},
    {ObjectField::contents_kind, "contents-kind"},
    {ObjectField::contents,      "contents"},
    {ObjectField::target_map,    "target-map"},
    {ObjectField::target_x,      "target-column"},
    {ObjectField::target_y,      "target-row"},
    {ObjectField::width,         "width"},
};
// clang-format on
static_assert(in_order<RecordField>(record_names, &RecordName::field));
static_assert(in_order<ObjectField>(object_names, &ObjectName::field));

NumberForm form_of(const RecordRow& row) {
    const auto* text = std::get_if<std::string Form1::*>(&row.control);
    return text == nullptr ? NumberForm::decimal : text_row(*text).form;
}

} // namespace

const char* field_name(RecordField field) {
    return record_names[static_cast<std::size_t>(field)].name;
}

const char* field_name(ObjectField field) {
    return object_names[static_cast<std::size_t>(field)].name;
}

const char* kind_name(ObjectKind kind) {
    constexpr const char* names[] = {"npc", "chest", "trigger", "entrance", "long-entrance"};
    return names[static_cast<std::size_t>(kind)];
}

std::string object_place(const ObjectAt& object) {
    return "map " + std::to_string(object.map) + ' ' + kind_name(object.kind) + ' ' +
           std::to_string(object.index);
}

const char* certainty(bool sure) {
    return sure ? "sure" : "perhaps";
}

Cell record_cell(const MapProperties& record, RecordField field) {
    const std::int64_t value = record_value(record, field);
    const NumberForm form = form_of(record_row(field));
    if (is_size(form))
        return std::int64_t{min_layer_side} << value;
    return form == NumberForm::hexadecimal ? Cell(HexNumber{value}) : Cell(value);
}

} // namespace veldrune::inspect
