#include "objects/object_record.h"

#include "rom/bit_run.h"
#include "rom/number_field.h"
#include "rom/rom_layout.h"

#include <algorithm>
#include <span>
#include <string>

namespace veldrune {
namespace {

using F = Form10;

// How the bits of a value make up what its control shows.
enum class Coding {
    plain,    // the number, the row of a list, or ticked for 1
    cut,      // the same; packing cuts a number to its bits
    inverted, // ticked for 0
    one_hot,  // the lowest set bit is the selected button
};
using enum Coding;
using enum ObjectField;

// One value of a record: the control that shows it, its bits, and the base that the text adds. A
// value without bits is shown as 0 and not packed.
struct FieldRow {
    ObjectField field;
    ObjectControl control;
    BitRun bits;
    std::int32_t base = 0;
    Coding coding = plain;
};

constexpr std::int32_t scripts = rom_layout::event_scripts;
constexpr std::int32_t npc_flags = 8 * 0x1EE0; // the first flag of an NPC

// clang-format off
constexpr FieldRow npc_palette = {ObjectField::palette, &F::Text2, {18, 3}, 0, cut};
constexpr FieldRow npc_sprites = {ObjectField::sprite, &F::Text7, {48, 8}};

// The rows of a kind are in the order in which a save reads its fields and reports errors.
constexpr FieldRow npc_fields[] = {
    // value         control    bits      base
    {event,         &F::Text1,  { 0, 18}, scripts},
    npc_palette,                         // bit 21 has no control
    {flag,          &F::Text4,  {22, 10}, npc_flags},
    {map_x,         &F::Text5,  {32,  8}},
    {map_y,         &F::Text6,  {40,  6}},
    {speed,         &F::Combo3, {46,  2}},
    npc_sprites,
    {movement,      &F::Combo4, {56,  4}},
    {walk_over,     &F::Check1, {60,  1}},
    {walk_under,    &F::Check2, {61,  1}},
    {vehicle,       &F::Combo1, {62,  2}},
    {facing,        &F::Combo2, {64,  2}},
    {turn_to_talk,  &F::Check3, {66,  1}, 0, inverted}, // 67 to 71 have no control
};
constexpr FieldRow chest_fields[] = {
    {map_x,         &F::Text1,  { 0,  8}},
    {map_y,         &F::Text2,  { 8,  8}},
    {flag,          &F::Text4,  {16,  8}},
    {byte_flag,     &F::Check2, {24,  1}},
    {chest_bit1,    &F::Check1, {25,  1}},              // kept in hidden boxes, as is the next
    {chest_bit2,    &F::Check3, {26,  1}},
    {contents_kind, &F::option, {27,  5}, 0, one_hot},
    {contents,      &F::Combo2, {32,  8}},
};
constexpr FieldRow event_trigger_fields[] = {
    {map_x,         &F::Text1,  { 0,  8}},
    {map_y,         &F::Text2,  { 8,  8}},
    {event,         &F::Text4,  {16, 24}, scripts},
};
constexpr FieldRow entrance_fields[] = {
    {map_x,         &F::Text1,  { 0,  8}},
    {map_y,         &F::Text2,  { 8,  8}},
    {target_map,    &F::Text4,  {16, 16}},
    {target_x,      &F::Text7,  {32,  8}},
    {target_y,      &F::Text5,  {40,  8}},
    {width,         &F::Text6,  { 0,  0}},
};
constexpr FieldRow long_entrance_fields[] = {
    {map_x,         &F::Text1,  { 0,  8}},
    {map_y,         &F::Text2,  { 8,  8}},
    {target_map,    &F::Text4,  {24, 16}},
    {target_x,      &F::Text7,  {40,  8}},
    {target_y,      &F::Text5,  {48,  8}},
    {width,         &F::Text6,  {16,  8}},              // direction in bit 7
};
constexpr std::span<const FieldRow> fields_of_kinds[object_kind_count] = {
    npc_fields, chest_fields, event_trigger_fields, entrance_fields, long_entrance_fields,
};
// clang-format on

std::span<const FieldRow> fields_of(ObjectKind kind) {
    return fields_of_kinds[static_cast<std::size_t>(kind)];
}

// The row of a value that takes up bits of the record; null where the kind has none.
const FieldRow* row_of(ObjectKind kind, ObjectField field) {
    const auto rows = fields_of(kind);
    const auto row = std::ranges::find(rows, field, &FieldRow::field);
    return row == rows.end() || row->bits.count == 0 ? nullptr : &*row;
}

static_assert(bits_taken<9>(npc_fields) == 8 * 9 - 6); // bits 21 and 67 to 71
static_assert(bits_taken<5>(chest_fields) == 8 * 5);
static_assert(bits_taken<5>(event_trigger_fields) == 8 * 5);
static_assert(bits_taken<6>(entrance_fields) == 8 * 6);
static_assert(bits_taken<7>(long_entrance_fields) == 8 * 7);

NumberForm text_form(ObjectKind kind, std::string F::*text) {
    return text_row(text).forms[static_cast<std::size_t>(kind)];
}

void press_option(int& option, std::uint32_t bits) {
    for (int button = 4; button >= 0; --button)
        if ((bits >> button & 1) != 0)
            option = button;
}

void show_field(ObjectKind kind, const FieldRow& row, std::uint32_t value, Form10& form) {
    if (const auto* text = std::get_if<std::string F::*>(&row.control))
        form.** text = format_number(text_form(kind, *text), std::int64_t{value} + row.base);
    else if (const auto* box = std::get_if<bool F::*>(&row.control))
        form.** box = (value != 0) != (row.coding == inverted);
    else if (row.coding == one_hot)
        press_option(form.*std::get<int F::*>(row.control), value);
    else
        form.*std::get<int F::*>(row.control) = static_cast<int>(value);
}

// The row of a list or the selected button as a value; 0 for none.
std::uint32_t selected_value(const FieldRow& row, int selection) {
    if (selection < 0)
        return 0;
    return row.coding == one_hot ? 1u << selection : static_cast<std::uint32_t>(selection);
}

// What is packed for a number, which may be too wide for its bits.
std::uint32_t value_to_pack(const FieldRow& row, std::int32_t number) {
    const std::uint32_t value =
        static_cast<std::uint32_t>(number) - static_cast<std::uint32_t>(row.base);
    return row.coding == cut ? value & row.bits.mask() : value;
}

// The value in a control; nothing for an invalid text, which has been reported.
std::optional<std::uint32_t> read_control(ObjectKind kind, const FieldRow& row, Form10& form,
                                          Dialogs& dialogs) {
    if (const auto* box = std::get_if<bool F::*>(&row.control))
        return form.**box != (row.coding == inverted);
    if (const auto* selection = std::get_if<int F::*>(&row.control))
        return selected_value(row, form.**selection);
    const auto text = std::get<std::string F::*>(row.control);
    const TextNumber number = parse_number_text(text_form(kind, text), form.*text, dialogs);
    return number.is_number ? std::optional(value_to_pack(row, number.value)) : std::nullopt;
}

} // namespace

std::int64_t largest_number(ObjectKind kind, const ObjectControl& control) {
    const auto rows = fields_of(kind);
    const auto row = std::ranges::find(rows, control, &FieldRow::control);
    return row == rows.end() ? 0 : row->bits.mask();
}

void unpack_object(ObjectKind kind, const ObjectBytes& record, Form10& form) {
    for (const FieldRow& row : fields_of(kind))
        show_field(kind, row, read_bits(record, row.bits), form);
}

ObjectBytes unshown_bits(ObjectKind kind, const ObjectBytes& record) {
    ObjectBytes rest = record;
    for (const FieldRow& row : fields_of(kind))
        clear_bits(rest, row.bits);
    return rest;
}

std::optional<ObjectBytes> pack_object(ObjectKind kind, const ObjectBytes& raw, Form10& form,
                                       Dialogs& dialogs) {
    ObjectBytes record = unshown_bits(kind, raw);
    bool valid = true;
    for (const FieldRow& row : fields_of(kind)) {
        if (row.bits.count == 0)
            continue;
        const std::optional<std::uint32_t> value = read_control(kind, row, form, dialogs);
        valid &= value.has_value();
        add_bits(record, row.bits, value.value_or(0));
    }
    return valid ? std::optional(record) : std::nullopt;
}

PackedText pack_text(ObjectKind kind, std::string F::*field, const std::string& text) {
    const auto row = std::ranges::find(fields_of(kind), ObjectControl(field), &FieldRow::control);
    const auto [number, is_valid] = read_text(text_form(kind, field), text);
    if (!number.is_number)
        return {};
    ObjectBytes record{};
    add_bits(record, row->bits, value_to_pack(*row, number.value));
    const std::int64_t packed = std::int64_t{read_bits(record, row->bits)} + row->base;
    clear_bits(record, row->bits);
    return {packed, packed == number.value, is_valid, record != ObjectBytes{}};
}

std::optional<std::int64_t> object_value(ObjectKind kind, const ObjectBytes& record,
                                         ObjectField field) {
    const FieldRow* row = row_of(kind, field);
    if (row == nullptr)
        return std::nullopt;
    return std::int64_t{read_bits(record, row->bits)} + row->base;
}

std::string object_text(ObjectKind kind, const ObjectBytes& record, ObjectField field) {
    const FieldRow* row = row_of(kind, field);
    if (row == nullptr)
        return {};
    const std::uint32_t value = read_bits(record, row->bits);
    if (const auto* text = std::get_if<std::string F::*>(&row->control))
        return format_number(text_form(kind, *text), std::int64_t{value} + row->base);
    return field == contents ? format_hex(value)
                             : std::to_string(row->coding == inverted ? 1 - value : value);
}

std::vector<ObjectControl> differing_controls(ObjectKind kind, const ObjectBytes& record,
                                              Form10 form) {
    std::vector<ObjectControl> differing;
    SilentDialogs silent;
    for (const FieldRow& row : fields_of(kind))
        if (row.bits.count > 0 &&
            read_control(kind, row, form, silent) != read_bits(record, row.bits))
            differing.push_back(row.control);
    return differing;
}

std::optional<std::int64_t> script_offset(ObjectKind kind, const ObjectBytes& record) {
    return object_value(kind, record, event);
}

std::uint8_t npc_sprite(const ObjectBytes& record) {
    return static_cast<std::uint8_t>(read_bits(record, npc_sprites.bits));
}

void set_npc_sprite(ObjectBytes& record, std::uint32_t sprite) {
    replace_bits(record, npc_sprites.bits, sprite);
}

void set_npc_palette(ObjectBytes& record, std::uint32_t palette) {
    replace_bits(record, npc_palette.bits, palette);
}

} // namespace veldrune
