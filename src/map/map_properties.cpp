#include "map/map_properties.h"

#include "rom/number_text.h"
#include "rom/rom_layout.h"

namespace veldrune {
namespace {

using enum RecordField;
using enum FieldForm;
using F = Form1;

constexpr std::size_t row_count = static_cast<std::size_t>(count);

// clang-format off
constexpr std::array<RecordRow, row_count> record_rows = {{
    // value             text          flag        first bit   bits  form
    {battle_background,  &F::Text46,   nullptr,     2 * 8 + 0,   7,  hexadecimal},
    {battles_enabled,    nullptr,      &F::Check8,  5 * 8 + 7,   1,  flag},
    {tileset1,           &F::Text8,    nullptr,     7 * 8 + 0,   7,  decimal},
    {tileset2,           &F::Text9,    nullptr,     7 * 8 + 7,   7,  decimal},
    {tileset3,           &F::Text10,   nullptr,     8 * 8 + 6,   7,  decimal},
    {tileset4,           &F::Text11,   nullptr,     9 * 8 + 5,   7,  decimal},
    {layer3_graphics,    &F::Text23,   nullptr,    10 * 8 + 4,   6,  decimal},
    {layer1_formation,   &F::Text6,    nullptr,    11 * 8 + 2,   7,  decimal},
    {layer2_formation,   &F::Text7,    nullptr,    12 * 8 + 1,   7,  decimal},
    {layer1_data,        &F::Text14,   nullptr,    13 * 8 + 0,  10,  data_number},
    {layer2_data,        &F::Text12,   nullptr,    14 * 8 + 2,  10,  data_number},
    {layer3_data,        &F::Text25,   nullptr,    15 * 8 + 4,  10,  data_number},
    {left_shift1,        &F::Text39,   nullptr,    18 * 8 + 0,   8,  hexadecimal},
    {left_shift2,        &F::Text40,   nullptr,    19 * 8 + 0,   8,  hexadecimal},
    {upward_shift1,      &F::Text42,   nullptr,    20 * 8 + 0,   8,  hexadecimal},
    {upward_shift2,      &F::Text43,   nullptr,    21 * 8 + 0,   8,  hexadecimal},
    {scroll_index,       &F::Text45,   nullptr,    22 * 8 + 0,   8,  decimal},
    {layer2_height,      &F::Text3,    nullptr,    23 * 8 + 0,   2,  size},
    {layer2_width,       &F::Text1,    nullptr,    23 * 8 + 2,   2,  size},
    {layer1_height,      &F::Text5,    nullptr,    23 * 8 + 4,   2,  size},
    {layer1_width,       &F::Text2,    nullptr,    23 * 8 + 6,   2,  size},
    {layer3_height,      &F::Text22,   nullptr,    24 * 8 + 4,   2,  size},
    {layer3_width,       &F::Text21,   nullptr,    24 * 8 + 6,   2,  size},
    {palette,            &F::Text13,   nullptr,    25 * 8 + 0,   8,  decimal},
    {animated_tileset,   &F::Text18,   nullptr,    27 * 8 + 0,   5,  decimal},
    {byte27_high,        &F::Text26,   nullptr,    27 * 8 + 5,   3,  high_number},
    {song,               &F::Text44,   nullptr,    28 * 8 + 0,   8,  decimal},
    {viewable_first,     &F::Text16,   nullptr,    30 * 8 + 0,   8,  decimal},
    {viewable_second,    &F::Text17,   nullptr,    31 * 8 + 0,   8,  decimal},
    {layer_priorities,   &F::Text37,   nullptr,    32 * 8 + 0,   8,  decimal},
}};

// The stretches of the record that no control shows.
struct Untouched { int first_bit; int bit_count; };
constexpr Untouched untouched_bits[] = {
    { 0 * 8,     16}, // bytes 0 and 1
    { 2 * 8 + 7,  1},
    { 3 * 8,     16}, // bytes 3 and 4
    { 5 * 8,      7},
    { 6 * 8,      8},
    {16 * 8 + 6, 10}, // bits 6 and 7 of byte 16, byte 17
    {24 * 8,      4},
    {26 * 8,      8},
    {29 * 8,      8},
};
// clang-format on

// Every bit of the record belongs to exactly one row or untouched stretch.
constexpr bool rows_tile_the_record() {
    std::array<int, 33 * 8> owners{};
    for (const RecordRow& row : record_rows)
        for (int bit = 0; bit < row.bit_count; ++bit)
            ++owners[static_cast<std::size_t>(row.first_bit + bit)];
    for (const Untouched& stretch : untouched_bits)
        for (int bit = 0; bit < stretch.bit_count; ++bit)
            ++owners[static_cast<std::size_t>(stretch.first_bit + bit)];
    for (const int owner_count : owners)
        if (owner_count != 1)
            return false;
    return true;
}
constexpr bool rows_stand_in_field_order() {
    for (std::size_t i = 0; i < row_count; ++i)
        if (record_rows[i].field != static_cast<RecordField>(i))
            return false;
    return true;
}
static_assert(rows_tile_the_record());
static_assert(rows_stand_in_field_order());

// The bytes from first on as one number: three, which hold every row that begins in the first of
// them, or fewer at the record's end.
std::uint32_t window_at(const MapProperties& record, std::size_t first) {
    std::uint32_t window = 0;
    for (std::size_t i = 0; i < 3 && first + i < record.size(); ++i)
        window |= std::uint32_t{record[first + i]} << (8 * i);
    return window;
}

std::string location_text(const RomImage& rom, std::uint32_t number) {
    return format_hex(rom.read_pointer24(data_pointer_offset(static_cast<int>(number))) +
                      rom_layout::layer_data);
}

std::string number_text(FieldForm form, std::uint32_t value) {
    switch (form) {
    case hexadecimal:
        return format_hex(value);
    case size:
        return std::to_string(16u << value);
    case high_number:
        return value == 0 ? "N/A" : std::to_string(value - 1);
    default:
        return std::to_string(value);
    }
}

} // namespace

const RecordRow& record_row(RecordField field) {
    return record_rows[static_cast<std::size_t>(field)];
}

std::uint32_t record_value(const MapProperties& record, RecordField field) {
    const RecordRow& row = record_row(field);
    const auto first = static_cast<std::size_t>(row.first_bit / 8);
    return window_at(record, first) >> (row.first_bit % 8) & ((1u << row.bit_count) - 1);
}

void set_record_value(MapProperties& record, RecordField field, std::uint32_t value) {
    const RecordRow& row = record_row(field);
    const auto first = static_cast<std::size_t>(row.first_bit / 8);
    const std::uint32_t mask = ((1u << row.bit_count) - 1) << (row.first_bit % 8);
    const std::uint32_t bits =
        (window_at(record, first) & ~mask) | (value << (row.first_bit % 8) & mask);
    for (std::size_t i = 0; i < 3 && first + i < record.size(); ++i)
        record[first + i] = static_cast<std::uint8_t>(bits >> (8 * i));
}

int layer_data_number(const MapProperties& record, int layer) {
    constexpr RecordField numbers[] = {layer1_data, layer2_data, layer3_data};
    return static_cast<int>(record_value(record, numbers[layer]));
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
        const std::uint32_t value = record_value(record, row.field);
        if (row.form == flag)
            form.*row.flag = value != 0;
        else if (row.field != byte27_high)
            form.*row.text =
                row.form == data_number ? location_text(rom, value) : number_text(row.form, value);
    }
}

void show_byte27_high(const MapProperties& record, Form1& form) {
    form.Text26 = number_text(high_number, record_value(record, byte27_high));
}

void show_monster_set(const RomImage& rom, int map_index, Form1& form) {
    form.Text41 = format_hex(rom.read_byte(monster_set_offset(map_index)));
}

int read_layer3_order(const RomImage& rom, const MapProperties& record) {
    const std::uint32_t index = 3 * record_value(record, layer_priorities) % 256;
    const std::uint8_t v = rom.read_byte(std::int64_t{rom_layout::layer_priorities} + index);
    if ((v & 4) != 0)
        return 1;
    return (v & 3) == 3 || (v & 3) == 0 ? 2 : 0;
}

} // namespace veldrune
