#include "inspect/dump.h"

#include "dialogue/dialogue_text.h"
#include "inspect/all_streams.h"
#include "inspect/field_names.h"
#include "rom/number_text.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace veldrune::inspect {
namespace {

using namespace rom_layout;
using Bytes = std::span<const std::uint8_t>;

// Entries of a fixed size, each a line of bytes.
struct EntryTable {
    const char* key;
    std::int64_t offset;
    int entry_size;
    int count;
};

// clang-format off
constexpr EntryTable entry_tables[] = {
    {"dialogue-routine",   dialogue_routine,     29, 1},
    {"animated-offset",    animated_set_offsets, 2,  (animated_sets - animated_set_offsets) / 2},
    {"animated-tile",      animated_sets,        10, (animated_sets - animated_set_offsets) / 2 * 16},
    {"sprite-address",     sprite_addresses,     2,  (sprite_banks - sprite_addresses) / 2},
    {"sprite-bank",        sprite_banks,         2,  (sprite_banks - sprite_addresses) / 2},
    {"layer-priority",     layer_priorities,     1,  256},
    {"world-palette-row",  dawn_palette,         32, (dusk_palette + 512 - dawn_palette) / 32},
    {"tileset-pointer",    tileset_pointers,     3,  tileset_count},
    {"character",          tileset_graphics,     32, (animated_graphics - tileset_graphics) / 32},
    {"animated-character", animated_graphics,    32, (sprite_palettes - animated_graphics) / 32},
    {"sprite-palette-row", sprite_palettes,      32, 16},
    {"map-palette-row",    map_palettes,         32, (long_entrances - map_palettes) / 32},
    {"patch-marks",        patch_marks,          2,  1},
};
// clang-format on

std::string padded_number(std::int64_t number, std::size_t width) {
    const std::string digits = std::to_string(number);
    return std::string(width - std::min(width, digits.size()), '0').append(digits);
}
std::string hex_digits(std::int64_t number, std::size_t width) {
    const std::string digits = format_hex(number);
    return std::string(width - std::min(width, digits.size()), '0').append(digits);
}

// A dialogue in one line: bytes that break lines or show nothing stand as "\01".
std::string quoted(Bytes bytes) {
    std::string text = "\"";
    for (const std::uint8_t byte : bytes) {
        const std::string_view piece = decode_dialogue_byte(byte);
        if (piece.empty() || piece[0] == '\r')
            text.append("\\").append(hex_text({&byte, 1}));
        else
            text += piece;
    }
    return text += '"';
}

class Dumper {
  public:
    explicit Dumper(const ImageReading& reading) : reading_(reading), image_(reading.image) {}

    void dump_values(int part) {
        if (part == 0)
            add_tables();
        else if (part <= map_count)
            add_map(part - 1);
        else
            add_dialogue(part - 1 - map_count);
    }
    void dump_stream(const AnyStream& stream) {
        add(stream.key + " location", format_hex(stream.packed->offset));
        add(stream.key + " packed-size", std::to_string(stream.packed->packed_size));
        add_rows(stream.key + " row", stream.packed->bytes, stream.width, 3);
    }
    void dump_script(const WalkedScript& script) {
        const std::string key = "script " + hex_digits(script.offset, 6) + ' ';
        for (const WalkedCommand& command : reading_.scripts.commands_of(script))
            add(key + "at " + hex_digits(command.offset, 6),
                (command.sure ? "" : "perhaps ") +
                    hex_text(image_.at(command.offset, command.size)));
        if (script.goes_on_at)
            add(key + "goes-on-at", format_hex(*script.goes_on_at));
        else if (!script.length)
            add(key + "end", "none");
    }
    // Those that have been added since the last time.
    std::vector<Fact> take_facts() { return std::exchange(facts_, {}); }

  private:
    void add(std::string key, std::string value) {
        facts_.push_back({std::move(key), std::move(value)});
    }

    void add_rows(const std::string& key, Bytes bytes, int width, std::size_t digits) {
        const auto row_size = static_cast<std::size_t>(width);
        for (std::size_t at = 0; at < bytes.size(); at += row_size)
            add(key + ' ' + padded_number(static_cast<std::int64_t>(at / row_size), digits),
                hex_text(bytes.subspan(at, std::min(row_size, bytes.size() - at))));
    }

    void add_tables() {
        add("image size", std::to_string(image_.size()));
        for (const EntryTable& table : entry_tables)
            add_rows(table.key,
                     image_.at(table.offset, std::int64_t{table.entry_size} * table.count),
                     table.entry_size, 5);
        add_items();
    }

    // Bytes that are no letters leave no trace in the name.
    void add_items() {
        const MemoryRom rom(image_);
        const std::vector<std::string> names = load_item_names(rom.rom());
        for (std::size_t i = 0; i < names.size(); ++i) {
            const auto at = item_names + static_cast<std::int64_t>(i) * item_name_size;
            const std::string key = "item " + hex_digits(static_cast<std::int64_t>(i), 2);
            add(key + " name", '"' + names[i].substr(names[i].find(' ') + 1) + '"');
            add(key + " bytes", hex_text(image_.at(at, item_name_size)));
        }
    }

    void add_map(int map) {
        const auto index = static_cast<std::size_t>(map);
        const std::string key = "map " + padded_number(map, 3) + ' ';
        MapProperties rest = reading_.records[index];
        for (int i = 0; i < static_cast<int>(RecordField::count); ++i) {
            const auto field = static_cast<RecordField>(i);
            add(key + field_name(field),
                cell_text(record_cell(reading_.records[index], field), CellForm::decimal));
            set_record_value(rest, field, 0);
        }
        add(key + "other-bits", hex_text(rest));
        add(key + "monster-set", format_hex(reading_.monster_sets[index]));
        for (const ObjectKind kind : map_object_kinds) {
            const ObjectListExtent& list = reading_.lists[index][static_cast<std::size_t>(kind)];
            const std::string list_key = key + kind_name(kind) + ' ';
            add(list_key + "pointer", format_hex(list.first_pointer));
            if (map == map_count - 1)
                add(list_key + "end-pointer", format_hex(list.end_pointer));
            for (const ObjectAt& object : reading_.objects_of(map, kind))
                add_object(list_key + padded_number(object.index, 3) + ' ', object);
        }
    }

    void add_object(const std::string& key, const ObjectAt& object) {
        for (int i = 0; i < static_cast<int>(ObjectField::count); ++i) {
            const auto field = static_cast<ObjectField>(i);
            if (object_value(object.kind, object.bytes, field))
                add(key + field_name(field), object_text(object.kind, object.bytes, field));
        }
        if (object.kind == ObjectKind::npc)
            add(key + "other-bits", hex_text(unshown_bits(object.kind, object.bytes)));
    }

    void add_dialogue(int number) {
        const std::string key = "dialogue " + hex_digits(number, 3);
        const DialogueAt& dialogue = reading_.dialogues[static_cast<std::size_t>(number)];
        add(key + " location", dialogue.offset < 0 ? "none" : format_hex(dialogue.offset));
        add(key + " text", quoted(image_.at(dialogue.offset, dialogue.size - dialogue.whole)));
        if (!dialogue.whole)
            add(key + " end", "none");
    }

    const ImageReading& reading_;
    const MemoryImage& image_;
    std::vector<Fact> facts_;
};

} // namespace

std::string hex_text(std::span<const std::uint8_t> bytes) {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string text(bytes.size() * 3 - !bytes.empty(), ' ');
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        text[3 * i] = digits[bytes[i] >> 4];
        text[3 * i + 1] = digits[bytes[i] & 0xF];
    }
    return text;
}

std::vector<Fact> dump_values(const ImageReading& reading, int part) {
    Dumper dumper(reading);
    dumper.dump_values(part);
    return dumper.take_facts();
}

void dump_image(const ImageReading& reading,
                const std::function<void(const std::vector<Fact>&)>& take) {
    Dumper dumper(reading);
    for (int part = 0; part < value_part_count; ++part)
        take(dump_values(reading, part));
    for (const AnyStream& stream : all_streams(reading)) {
        dumper.dump_stream(stream);
        take(dumper.take_facts());
    }
    for (const WalkedScript& script : reading.scripts.scripts) {
        dumper.dump_script(script);
        take(dumper.take_facts());
    }
}

} // namespace veldrune::inspect
