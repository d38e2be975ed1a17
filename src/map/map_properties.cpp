#include "map/map_properties.h"

#include "rom/number_field.h"
#include "rom/rom_layout.h"

namespace veldrune {
namespace {

using enum RecordField;
using F = Form1;

// clang-format off
constexpr RecordRow record_rows[] = {
    // value             control                       first bit  count
    {battle_background,  &F::Text46,                  { 2 * 8 + 0,  7}},
    {battles_enabled,    &F::Check8,                  { 5 * 8 + 7,  1}},
    {tileset1,           tileset_controls[0],         { 7 * 8 + 0,  7}},
    {tileset2,           tileset_controls[1],         { 7 * 8 + 7,  7}},
    {tileset3,           tileset_controls[2],         { 8 * 8 + 6,  7}},
    {tileset4,           tileset_controls[3],         { 9 * 8 + 5,  7}},
    {layer3_graphics,    layer_controls[2].formation, {10 * 8 + 4,  6}},
    {layer1_formation,   layer_controls[0].formation, {11 * 8 + 2,  7}},
    {layer2_formation,   layer_controls[1].formation, {12 * 8 + 1,  7}},
    {layer1_data,        layer_controls[0].location,  {13 * 8 + 0, 10}},
    {layer2_data,        layer_controls[1].location,  {14 * 8 + 2, 10}},
    {layer3_data,        layer_controls[2].location,  {15 * 8 + 4, 10}},
    {left_shift1,        &F::Text39,                  {18 * 8 + 0,  8}},
    {left_shift2,        &F::Text40,                  {19 * 8 + 0,  8}},
    {upward_shift1,      &F::Text42,                  {20 * 8 + 0,  8}},
    {upward_shift2,      &F::Text43,                  {21 * 8 + 0,  8}},
    {scroll_index,       &F::Text45,                  {22 * 8 + 0,  8}},
    {layer2_height,      layer_controls[1].height,    {23 * 8 + 0,  2}},
    {layer2_width,       layer_controls[1].width,     {23 * 8 + 2,  2}},
    {layer1_height,      layer_controls[0].height,    {23 * 8 + 4,  2}},
    {layer1_width,       layer_controls[0].width,     {23 * 8 + 6,  2}},
    {layer3_height,      layer_controls[2].height,    {24 * 8 + 4,  2}},
    {layer3_width,       layer_controls[2].width,     {24 * 8 + 6,  2}},
    {palette,            &F::Text13,                  {25 * 8 + 0,  8}},
    {animated_tileset,   &F::Text18,                  {27 * 8 + 0,  5}},
    {byte27_high,        &F::Text26,                  {27 * 8 + 5,  3}},
    {song,               &F::Text44,                  {28 * 8 + 0,  8}},
    {viewable_first,     &F::Text16,                  {30 * 8 + 0,  8}},
    {viewable_second,    &F::Text17,                  {31 * 8 + 0,  8}},
    {layer_priorities,   &F::Text37,                  {32 * 8 + 0,  8}},
};

// The bits of the record that no control shows.
struct Untouched { BitRun bits; };
constexpr Untouched untouched_rows[] = {
    {{ 0 * 8,     16}}, // bytes 0 and 1
    {{ 2 * 8 + 7,  1}},
    {{ 3 * 8,     16}}, // bytes 3 and 4
    {{ 5 * 8,      7}},
    {{ 6 * 8,      8}},
    {{16 * 8 + 6, 10}}, // bits 6 and 7 of byte 16, byte 17
    {{24 * 8,      4}},
    {{26 * 8,      8}},
    {{29 * 8,      8}},
};
// clang-format on

constexpr std::size_t record_size = std::tuple_size_v<MapProperties>;
static_assert(bits_taken<record_size>(record_rows, untouched_rows) == 8 * record_size);
static_assert(in_order<RecordField>(record_rows, &RecordRow::field));

// The number that a field shows for a value of the record.
std::int64_t shown_number(const RomImage& rom, NumberForm form, std::uint32_t bits) {
    if (is_size(form))
        return std::int64_t{min_layer_side} << bits;
    if (form == NumberForm::location)
        return rom.read_pointer24(data_pointer_offset(static_cast<int>(bits))) +
               rom_layout::layer_data;
    return bits;
}

void show_text(const RomImage& rom, std::uint32_t bits, std::string F::*text, Form1& form) {
    const NumberForm shown = text_row(text).form;
    form.*text = format_number(shown, shown_number(rom, shown, bits));
}

} // namespace

const RecordRow& record_row(RecordField field) {
    return record_rows[static_cast<std::size_t>(field)];
}

const RecordRow* record_row_of(std::string F::*text) {
    for (const RecordRow& row : record_rows)
        if (row.control == RecordControl(text))
            return &row;
    return nullptr;
}

std::uint32_t record_value(const MapProperties& record, RecordField field) {
    return read_bits(record, record_row(field).bits);
}

void set_record_value(MapProperties& record, RecordField field, std::uint32_t value) {
    replace_bits(record, record_row(field).bits, value);
}

int layer_data_number(const MapProperties& record, int layer) {
    return static_cast<int>(record_value(record, layer_fields[layer].data));
}

std::int64_t data_pointer_offset(int number) {
    return rom_layout::layer_data_pointers + std::int64_t{3} * number;
}

std::int64_t record_offset(int map_index) {
    return rom_layout::map_properties +
           static_cast<std::int64_t>(std::tuple_size_v<MapProperties>) * map_index;
}

std::int64_t monster_set_offset(int map_index) {
    return std::int64_t{rom_layout::monster_sets} + map_index;
}

MapProperties read_record(const RomImage& rom, int map_index) {
    MapProperties record;
    rom.read(record_offset(map_index), record);
    return record;
}

void show_record(const RomImage& rom, const MapProperties& record, Form1& form) {
    for (const RecordRow& row : record_rows) {
        const std::uint32_t bits = read_bits(record, row.bits);
        if (const auto* box = std::get_if<bool F::*>(&row.control))
            form.*(*box) = bits != 0;
        else if (row.field != byte27_high)
            show_text(rom, bits, std::get<std::string F::*>(row.control), form);
    }
}

void show_byte27_high(const MapProperties& record, Form1& form) {
    form.Text26 = format_number(text_row(&F::Text26).form, record_value(record, byte27_high));
}

void show_monster_set(const RomImage& rom, int map_index, Form1& form) {
    form.Text41 =
        format_number(text_row(&F::Text41).form, rom.read_byte(monster_set_offset(map_index)));
}

int read_layer3_order(const RomImage& rom, const MapProperties& record) {
    const std::uint32_t index = 3 * record_value(record, layer_priorities) % 256;
    const std::uint8_t v = rom.read_byte(std::int64_t{rom_layout::layer_priorities} + index);
    if ((v & 4) != 0)
        return 1;
    return (v & 3) == 3 || (v & 3) == 0 ? 2 : 0;
}

} // namespace veldrune
