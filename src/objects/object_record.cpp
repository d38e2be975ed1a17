#include "objects/object_record.h"

#include "rom/number_text.h"
#include "rom/rom_layout.h"

#include <span>
#include <string>
#include <string_view>

namespace veldrune {
namespace {

using F = Form10;

/// How a value of a record stands in its control.
enum class ObjectFieldForm {
    number,       // hexadecimal text, the value and base added
    low_number,   // the same; only as many bits of it as the value has are packed
    short_number, // the same, of less than six characters
    npc_flag,     // "xxxx:y": the byte, base added, and the bit of a flag number
    chest_flag,   // "xx:y"
    box,          // ticked when set
    inverted_box, // ticked when clear
    list,         // row of a list
    option,       // the lowest set bit tells the pressed button
};
using enum ObjectFieldForm;

/// One value of a record: bit_count bits from first_bit on, bit 0 being the lowest of byte 0. A
/// value of no bits shows as 0 and is not packed.
struct FieldRow {
    ObjectFieldForm form;
    int first_bit;
    int bit_count;
    std::string F::*text;
    bool F::*box;
    int F::*choice;
    std::int32_t base;
};

constexpr std::int32_t scripts = rom_layout::event_scripts;
constexpr std::int32_t npc_flag_bytes = 0x1EE0; // where the game keeps the flags of NPCs

// clang-format off
constexpr FieldRow npc_palette = {low_number, 18, 3, &F::Text2, nullptr, nullptr, 0};
constexpr FieldRow npc_sprites = {number,     48, 8, &F::Text7, nullptr, nullptr, 0};

// The rows of a kind stand in the order in which a save reads, and complains about, its fields.
constexpr FieldRow npc_fields[] = {
    // form        first bit  bits  text       box         list or option  base
    {short_number,  0,        18,   &F::Text1, nullptr,    nullptr,        scripts}, // event
    npc_palette,                                                                     // bit 21 is the game's own
    {npc_flag,     22,        10,   &F::Text4, nullptr,    nullptr,        npc_flag_bytes},
    {number,       32,         8,   &F::Text5, nullptr,    nullptr,        0},       // column
    {number,       40,         6,   &F::Text6, nullptr,    nullptr,        0},       // row
    {list,         46,         2,   nullptr,   nullptr,    &F::Combo3,     0},       // speed
    npc_sprites,
    {list,         56,         4,   nullptr,   nullptr,    &F::Combo4,     0},       // movement
    {box,          60,         1,   nullptr,   &F::Check1, nullptr,        0},       // walk over
    {box,          61,         1,   nullptr,   &F::Check2, nullptr,        0},       // walk under
    {list,         62,         2,   nullptr,   nullptr,    &F::Combo1,     0},       // vehicle
    {list,         64,         2,   nullptr,   nullptr,    &F::Combo2,     0},       // facing
    {inverted_box, 66,         1,   nullptr,   &F::Check3, nullptr,        0},       // turn to talk; 67 to 71 are the game's own
};
constexpr FieldRow chest_fields[] = {
    {number,        0,         8,   &F::Text1, nullptr,    nullptr,        0},       // column
    {number,        8,         8,   &F::Text2, nullptr,    nullptr,        0},       // row
    {chest_flag,   16,         8,   &F::Text4, nullptr,    nullptr,        0},
    {box,          24,         1,   nullptr,   &F::Check2, nullptr,        0},       // byte flag
    {box,          25,         1,   nullptr,   &F::Check1, nullptr,        0},       // carried in hidden boxes
    {box,          26,         1,   nullptr,   &F::Check3, nullptr,        0},
    {option,       27,         5,   nullptr,   nullptr,    &F::option,     0},       // kind of contents
    {list,         32,         8,   nullptr,   nullptr,    &F::Combo2,     0},       // contents
};
constexpr FieldRow event_trigger_fields[] = {
    {number,        0,         8,   &F::Text1, nullptr,    nullptr,        0},       // column
    {number,        8,         8,   &F::Text2, nullptr,    nullptr,        0},       // row
    {number,       16,        24,   &F::Text4, nullptr,    nullptr,        scripts}, // event
};
constexpr FieldRow entrance_fields[] = {
    {number,        0,         8,   &F::Text1, nullptr,    nullptr,        0},       // column
    {number,        8,         8,   &F::Text2, nullptr,    nullptr,        0},       // row
    {number,       16,        16,   &F::Text4, nullptr,    nullptr,        0},       // target map
    {number,       32,         8,   &F::Text7, nullptr,    nullptr,        0},       // target column
    {number,       40,         8,   &F::Text5, nullptr,    nullptr,        0},       // target row
    {number,        0,         0,   &F::Text6, nullptr,    nullptr,        0},       // width
};
constexpr FieldRow long_entrance_fields[] = {
    {number,        0,         8,   &F::Text1, nullptr,    nullptr,        0},       // column
    {number,        8,         8,   &F::Text2, nullptr,    nullptr,        0},       // row
    {number,       24,        16,   &F::Text4, nullptr,    nullptr,        0},       // target map
    {number,       40,         8,   &F::Text7, nullptr,    nullptr,        0},       // target column
    {number,       48,         8,   &F::Text5, nullptr,    nullptr,        0},       // target row
    {number,       16,         8,   &F::Text6, nullptr,    nullptr,        0},       // width, direction in bit 7
};
constexpr std::span<const FieldRow> fields_of_kinds[object_kind_count] = {
    npc_fields, chest_fields, event_trigger_fields, entrance_fields, long_entrance_fields,
};
// clang-format on

std::span<const FieldRow> fields_of(ObjectKind kind) {
    return fields_of_kinds[static_cast<std::size_t>(kind)];
}

constexpr std::size_t first_byte(const FieldRow& row) {
    return static_cast<std::size_t>(row.first_bit / 8);
}
constexpr std::size_t end_byte(const FieldRow& row) {
    return static_cast<std::size_t>((row.first_bit + row.bit_count + 7) / 8);
}
constexpr int shift(const FieldRow& row) {
    return row.first_bit % 8;
}
constexpr std::uint32_t mask(const FieldRow& row) {
    return (1u << row.bit_count) - 1;
}

constexpr bool rows_overlap(std::span<const FieldRow> rows) {
    std::array<int, 8 * max_object_size> owners{};
    for (const FieldRow& row : rows)
        for (int bit = 0; bit < row.bit_count; ++bit)
            if (++owners[static_cast<std::size_t>(row.first_bit + bit)] > 1)
                return true;
    return false;
}
static_assert(!rows_overlap(npc_fields) && !rows_overlap(chest_fields) &&
              !rows_overlap(event_trigger_fields) && !rows_overlap(entrance_fields) &&
              !rows_overlap(long_entrance_fields));

std::uint32_t field_value(const ObjectBytes& record, const FieldRow& row) {
    std::uint64_t window = 0;
    for (std::size_t i = first_byte(row); i < end_byte(row); ++i)
        window |= std::uint64_t{record[i]} << (8 * (i - first_byte(row)));
    return static_cast<std::uint32_t>(window >> shift(row)) & mask(row);
}

void clear_field(ObjectBytes& record, const FieldRow& row) {
    const std::uint64_t window = std::uint64_t{mask(row)} << shift(row);
    for (std::size_t i = first_byte(row); i < end_byte(row); ++i)
        record[i] &= static_cast<std::uint8_t>(~(window >> (8 * (i - first_byte(row)))));
}

// Adds the value byte by byte, so that what its bits can't hold spills into the rest of the last
// byte and no further.
void add_field(ObjectBytes& record, const FieldRow& row, std::uint32_t value) {
    const std::uint64_t window = std::uint64_t{value} << shift(row);
    for (std::size_t i = first_byte(row); i < end_byte(row); ++i)
        record[i] = static_cast<std::uint8_t>(record[i] + (window >> (8 * (i - first_byte(row)))));
}

void set_field(ObjectBytes& record, const FieldRow& row, std::uint32_t value) {
    clear_field(record, row);
    add_field(record, row, value & mask(row));
}

std::string flag_text(std::uint32_t flag, std::int32_t base) {
    return format_hex(base + std::int64_t{flag / 8}) + ":" + format_hex(flag % 8);
}

void press_option(int& option, std::uint32_t bits) {
    for (int button = 4; button >= 0; --button)
        if ((bits >> button & 1) != 0)
            option = button;
}

void show_field(const FieldRow& row, std::uint32_t value, Form10& form) {
    switch (row.form) {
    case number:
    case low_number:
    case short_number:
        form.*row.text = format_hex(std::int64_t{value} + row.base);
        break;
    case npc_flag:
    case chest_flag:
        form.*row.text = flag_text(value, row.base);
        break;
    case box:
    case inverted_box:
        form.*row.box = (value != 0) == (row.form == box);
        break;
    case list:
        form.*row.choice = static_cast<int>(value);
        break;
    case option:
        press_option(form.*row.choice, value);
        break;
    }
}

/// Reads fields, and tells what can't be meant.
class FieldReader {
  public:
    FieldReader(Form10& form, Dialogs& dialogs) : form_(form), dialogs_(dialogs) {}

    bool refused() const { return refused_; }

    std::uint32_t value(const FieldRow& row) {
        switch (row.form) {
        case number:
            return unsigned_value(parse_hex_text(form_.*row.text, dialogs_)) -
                   unsigned_value(row.base);
        case low_number:
            return unsigned_value(parse_hex_text(form_.*row.text, dialogs_)) & mask(row);
        case short_number:
            return short_value(form_.*row.text) - unsigned_value(row.base);
        case npc_flag:
            return npc_flag_value(form_.*row.text, row.base);
        case chest_flag:
            return chest_flag_value(form_.*row.text);
        case box:
        case inverted_box:
            return form_.*row.box == (row.form == box);
        case list:
            return form_.*row.choice < 0 ? 0 : unsigned_value(form_.*row.choice);
        default:
            return form_.*row.choice < 0 ? 0 : 1u << form_.*row.choice;
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

    // The number in a part of a text; 0, without a word, where the text does not reach that far.
    std::uint32_t piece_value(std::string_view piece) {
        std::string digits(piece);
        return digits.empty() ? 0 : unsigned_value(parse_hex_text(digits, dialogs_));
    }

    std::uint32_t short_value(std::string text) {
        std::erase(text, ' ');
        if (character_count(text) >= 6)
            refuse("The event address you've entered is too large", "Error");
        else
            text.insert(0, 6 - character_count(text), '0');
        return unsigned_value(parse_hex_text(text, dialogs_));
    }

    std::uint32_t npc_flag_value(std::string text, std::int32_t base) {
        if (character_count(text) != 6 || characters(text, 4, 1) != ":")
            refuse("Your input must be in the following format xxxx:y", "error");
        const std::string_view digits = characters(text, 0, 4);
        const std::uint32_t byte = piece_value(digits.substr(0, digits.find(':')));
        const std::uint32_t bit = piece_value(characters(text, 5, 1));
        if (bit > 7)
            refuse("Your flag bit must 0 - 7", "Error");
        return (byte - unsigned_value(base)) * 8 + bit;
    }

    std::uint32_t chest_flag_value(std::string text) {
        constexpr const char* wrong =
            "Your byte:bit is in an incorrect format. The format must be x:y and your\n"
            "byte must be no greater than 1F and your bit must be no greater than 7";
        std::erase(text, ' ');
        if (character_count(text) > 4)
            refuse(wrong, "Error");
        if (character_count(text) == 3)
            text.insert(0, 1, '0');
        if (characters(text, 2, 1) != ":")
            refuse(wrong, "Error");
        const std::uint32_t byte = piece_value(characters(text, 0, 2));
        const std::uint32_t bit = piece_value(characters(text, 3, 1));
        if (byte > 0x1F || bit > 7)
            refuse(wrong, "Error");
        return byte * 8 + bit;
    }

    Form10& form_;
    Dialogs& dialogs_;
    bool refused_ = false;
};

} // namespace

void unpack_object(ObjectKind kind, const ObjectBytes& record, Form10& form) {
    for (const FieldRow& row : fields_of(kind))
        show_field(row, field_value(record, row), form);
}

std::optional<ObjectBytes> pack_object(ObjectKind kind, const ObjectBytes& raw, Form10& form,
                                       Dialogs& dialogs) {
    FieldReader reader(form, dialogs);
    ObjectBytes record = raw;
    for (const FieldRow& row : fields_of(kind))
        clear_field(record, row);
    for (const FieldRow& row : fields_of(kind))
        if (row.bit_count != 0)
            add_field(record, row, reader.value(row));
    if (reader.refused())
        return std::nullopt;
    return record;
}

std::optional<std::int64_t> script_offset(ObjectKind kind, const ObjectBytes& record) {
    for (const FieldRow& row : fields_of(kind))
        if (row.base == scripts)
            return std::int64_t{field_value(record, row)} + row.base;
    return std::nullopt;
}

std::uint8_t npc_sprite(const ObjectBytes& record) {
    return static_cast<std::uint8_t>(field_value(record, npc_sprites));
}

void set_npc_sprite(ObjectBytes& record, std::uint32_t sprite) {
    set_field(record, npc_sprites, sprite);
}

void set_npc_palette(ObjectBytes& record, std::uint32_t palette) {
    set_field(record, npc_palette, palette);
}

} // namespace veldrune
