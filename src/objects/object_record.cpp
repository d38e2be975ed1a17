#include "objects/object_record.h"

#include "rom/bit_run.h"
#include "rom/number_text.h"
#include "rom/rom_layout.h"

#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace veldrune {
namespace {

using F = Form10;

// How a control shows a value of a record.
enum class ObjectFieldForm {
    number,       // hexadecimal text: value + base
    low_number,   // the same; packing cuts it to the bits of the value
    short_number, // the same, less than six characters long
    npc_flag,     // "xxxx:y": byte + base and bit of a flag number
    chest_flag,   // "xx:y"
    box,          // ticked when set
    inverted_box, // ticked when clear
    list,         // row of a list
    option,       // the lowest set bit is the selected button
};
using enum ObjectFieldForm;
using enum ObjectField;

// One value of a record: the control that shows it, its bits, and the base that the text adds. A
// value without bits is shown as 0 and not packed.
struct FieldRow {
    ObjectField field;
    ObjectFieldForm form;
    std::variant<std::string F::*, bool F::*, int F::*> control; // a text, a box or a selection
    BitRun bits;
    std::int32_t base = 0;
};

constexpr std::int32_t scripts = rom_layout::event_scripts;
constexpr std::int32_t npc_flag_bytes = 0x1EE0; // where the game keeps the flags of NPCs

// clang-format off
constexpr FieldRow npc_palette = {ObjectField::palette, low_number, &F::Text2, {18, 3}};
constexpr FieldRow npc_sprites = {ObjectField::sprite, number, &F::Text7, {48, 8}};

// The rows of a kind are in the order in which a save reads its fields and reports errors.
constexpr FieldRow npc_fields[] = {
    // value         form          control      bits      base
    {event,          short_number, &F::Text1,   { 0, 18}, scripts},
    npc_palette, // bit 21 has no control
    {flag,           npc_flag,     &F::Text4,   {22, 10}, npc_flag_bytes},
    {map_x,          number,       &F::Text5,   {32,  8}},
    {map_y,          number,       &F::Text6,   {40,  6}},
    {speed,          list,         &F::Combo3,  {46,  2}},
    npc_sprites,
    {movement,       list,         &F::Combo4,  {56,  4}},
    {walk_over,      box,          &F::Check1,  {60,  1}},
    {walk_under,     box,          &F::Check2,  {61,  1}},
    {vehicle,        list,         &F::Combo1,  {62,  2}},
    {facing,         list,         &F::Combo2,  {64,  2}},
    {turn_to_talk,   inverted_box, &F::Check3,  {66,  1}},  // 67 to 71 have no control
};
constexpr FieldRow chest_fields[] = {
    {map_x,          number,       &F::Text1,   { 0,  8}},
    {map_y,          number,       &F::Text2,   { 8,  8}},
    {flag,           chest_flag,   &F::Text4,   {16,  8}},
    {byte_flag,      box,          &F::Check2,  {24,  1}},
    {chest_bit1,     box,          &F::Check1,  {25,  1}},  // kept in hidden boxes, as is the next
    {chest_bit2,     box,          &F::Check3,  {26,  1}},
    {contents_kind,  option,       &F::option,  {27,  5}},
    {contents,       list,         &F::Combo2,  {32,  8}},
};
constexpr FieldRow event_trigger_fields[] = {
    {map_x,          number,       &F::Text1,   { 0,  8}},
    {map_y,          number,       &F::Text2,   { 8,  8}},
    {event,          number,       &F::Text4,   {16, 24}, scripts},
};
constexpr FieldRow entrance_fields[] = {
    {map_x,          number,       &F::Text1,   { 0,  8}},
    {map_y,          number,       &F::Text2,   { 8,  8}},
    {target_map,     number,       &F::Text4,   {16, 16}},
    {target_x,       number,       &F::Text7,   {32,  8}},
    {target_y,       number,       &F::Text5,   {40,  8}},
    {width,          number,       &F::Text6,   { 0,  0}},
};
constexpr FieldRow long_entrance_fields[] = {
    {map_x,          number,       &F::Text1,   { 0,  8}},
    {map_y,          number,       &F::Text2,   { 8,  8}},
    {target_map,     number,       &F::Text4,   {24, 16}},
    {target_x,       number,       &F::Text7,   {40,  8}},
    {target_y,       number,       &F::Text5,   {48,  8}},
    {width,          number,       &F::Text6,   {16,  8}},  // direction in bit 7
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

template <typename T>
T& value_of(Form10& form, const FieldRow& row) {
    return form.*std::get<T F::*>(row.control);
}

std::string flag_text(std::uint32_t flag, std::int32_t base) {
    return format_hex(base + std::int64_t{flag / 8}) + ":" + format_hex(flag % 8);
}

void press_option(int& option, std::uint32_t bits) {
    for (int button = 4; button >= 0; --button)
        if ((bits >> button & 1) != 0)
            option = button;
}

bool is_flag(const FieldRow& row) {
    return row.form == npc_flag || row.form == chest_flag;
}

// The text of a value that the window shows in a text box.
std::string text_of(const FieldRow& row, std::uint32_t value) {
    return is_flag(row) ? flag_text(value, row.base) : format_hex(std::int64_t{value} + row.base);
}

void show_field(const FieldRow& row, std::uint32_t value, Form10& form) {
    switch (row.form) {
    case number:
    case low_number:
    case short_number:
    case npc_flag:
    case chest_flag:
        value_of<std::string>(form, row) = text_of(row, value);
        break;
    case box:
    case inverted_box:
        value_of<bool>(form, row) = (value != 0) == (row.form == box);
        break;
    case list:
        value_of<int>(form, row) = static_cast<int>(value);
        break;
    case option:
        press_option(value_of<int>(form, row), value);
        break;
    }
}

// Reads fields, and reports invalid ones.
class FieldReader {
  public:
    FieldReader(Form10& form, Dialogs& dialogs) : form_(form), dialogs_(dialogs) {}

    bool refused() const { return refused_; }

    std::uint32_t value(const FieldRow& row) {
        switch (row.form) {
        case number:
            return number_value(row) - unsigned_value(row.base);
        case low_number:
            return number_value(row) & row.bits.mask();
        case short_number:
            return short_value(value_of<std::string>(form_, row)) - unsigned_value(row.base);
        case npc_flag:
            return npc_flag_value(value_of<std::string>(form_, row), row.base);
        case chest_flag:
            return chest_flag_value(value_of<std::string>(form_, row));
        case box:
        case inverted_box:
            return value_of<bool>(form_, row) == (row.form == box);
        case list:
            return value_of<int>(form_, row) < 0 ? 0 : unsigned_value(value_of<int>(form_, row));
        default:
            return value_of<int>(form_, row) < 0 ? 0 : 1u << value_of<int>(form_, row);
        }
    }

  private:
    static std::uint32_t unsigned_value(std::int32_t value) {
        return static_cast<std::uint32_t>(value);
    }

    void refuse(const char* text, const char* title) {
        dialogs_.message(MessageKind::error, text, title);
        refused_ = true;
    }

    std::uint32_t number_value(const FieldRow& row) {
        return unsigned_value(parse_hex_text(value_of<std::string>(form_, row), dialogs_));
    }

    // The number in a part of a text; 0, without a message, where the part is empty.
    std::uint32_t piece_value(std::string_view piece) {
        std::string digits(piece);
        return digits.empty() ? 0 : unsigned_value(parse_hex_text(digits, dialogs_));
    }

    std::uint32_t short_value(std::string text) {
        std::erase(text, ' ');
        if (character_count(text) >= 6)
            refuse("The event address you've entered is too large", error_title);
        else
            text.insert(0, 6 - character_count(text), '0');
        return unsigned_value(parse_hex_text(text, dialogs_));
    }

    std::uint32_t npc_flag_value(std::string text, std::int32_t base) {
        if (character_count(text) != 6 || characters(text, 4, 1) != ":")
            refuse("Your input must be in the following format xxxx:y", "error");
        const std::uint32_t byte = piece_value(characters(text, 0, 4));
        const std::uint32_t bit = piece_value(characters(text, 5, 1));
        if (bit > 7)
            refuse("Your flag bit must 0 - 7", error_title);
        return (byte - unsigned_value(base)) * 8 + bit;
    }

    std::uint32_t chest_flag_value(std::string text) {
        constexpr const char* message =
            "Your byte:bit is in an incorrect format. The format must be x:y and your\n"
            "byte must be no greater than 1F and your bit must be no greater than 7";
        std::erase(text, ' ');
        if (character_count(text) > 4)
            refuse(message, error_title);
        if (character_count(text) == 3)
            text.insert(0, 1, '0');
        if (characters(text, 2, 1) != ":")
            refuse(message, error_title);
        const std::uint32_t byte = piece_value(characters(text, 0, 2));
        const std::uint32_t bit = piece_value(characters(text, 3, 1));
        if (byte > 0x1F || bit > 7)
            refuse(message, error_title);
        return byte * 8 + bit;
    }

    Form10& form_;
    Dialogs& dialogs_;
    bool refused_ = false;
};

} // namespace

void unpack_object(ObjectKind kind, const ObjectBytes& record, Form10& form) {
    for (const FieldRow& row : fields_of(kind))
        show_field(row, read_bits(record, row.bits), form);
}

ObjectBytes unshown_bits(ObjectKind kind, const ObjectBytes& record) {
    ObjectBytes rest = record;
    for (const FieldRow& row : fields_of(kind))
        clear_bits(rest, row.bits);
    return rest;
}

std::optional<ObjectBytes> pack_object(ObjectKind kind, const ObjectBytes& raw, Form10& form,
                                       Dialogs& dialogs) {
    FieldReader reader(form, dialogs);
    ObjectBytes record = unshown_bits(kind, raw);
    for (const FieldRow& row : fields_of(kind))
        if (row.bits.count != 0)
            add_bits(record, row.bits, reader.value(row));
    if (reader.refused())
        return std::nullopt;
    return record;
}

std::optional<std::int64_t> object_value(ObjectKind kind, const ObjectBytes& record,
                                         ObjectField field) {
    const FieldRow* row = row_of(kind, field);
    if (row == nullptr)
        return std::nullopt;
    return std::int64_t{read_bits(record, row->bits)} + (field == event ? row->base : 0);
}

std::string object_text(ObjectKind kind, const ObjectBytes& record, ObjectField field) {
    const FieldRow* row = row_of(kind, field);
    if (row == nullptr)
        return {};
    const std::uint32_t value = read_bits(record, row->bits);
    if (std::holds_alternative<std::string F::*>(row->control) || field == contents)
        return text_of(*row, value);
    return std::to_string(row->form == inverted_box ? 1 - value : value);
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
