#include "objects/object_tables.h"

#include "rom/number_text.h"
#include "rom/snes_address.h"

namespace veldrune {
namespace {

namespace at = rom_layout;
using F = Form1;

// clang-format off
constexpr ObjectKindRow kind_rows[object_kind_count] = {
    // pointers          base                 size  x  y  row bits  box         count        colour
    {at::npcs,           at::npcs,            9,    4, 5, 0x3F,     &F::Check1, &F::Label27, 0xFF0000},
    {at::chest_pointers, at::chests,          5,    0, 1, 0xFF,     &F::Check2, &F::Label28, 0xFFFF00},
    {at::event_triggers, at::event_triggers,  5,    0, 1, 0xFF,     &F::Check3, &F::Label29, 0x0000FF},
    {at::entrances,      at::entrances,       6,    0, 1, 0xFF,     &F::Check4, &F::Label30, 0x00FF00},
    {at::long_entrances, at::long_entrances,  7,    0, 1, 0xFF,     &F::Check4, &F::Label30, 0x00FF00},
};

// Runs of letters in the character code of the item names; a byte outside all of them is no letter.
struct LetterRun { std::size_t first; const char* letters; };
constexpr LetterRun letter_runs[] = {
    {128, "ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
    {154, "abcdefghijklmnopqrstuvwxyz"},
    {180, "0123456789!?"},
    {193, ":\"'-.,_"},
    {211, "\""},
    {255, " "},
};
// clang-format on

constexpr std::array<char, 256> make_letters() {
    std::array<char, 256> letters{};
    for (const LetterRun& run : letter_runs)
        for (std::size_t i = 0; run.letters[i] != '\0'; ++i)
            letters[run.first + i] = run.letters[i];
    return letters;
}
constexpr std::array<char, 256> letter_code = make_letters();
using rom_layout::item_name_size;

// Rounded to the nearest whole number, a tie to the even one.
constexpr int rounded_quotient(int dividend, int divisor) {
    const int quotient = dividend / divisor;
    const int twice_rest = dividend % divisor * 2;
    return quotient + (twice_rest > divisor || (twice_rest == divisor && quotient % 2 != 0));
}

} // namespace

const ObjectKindRow& object_kind_row(ObjectKind kind) {
    return kind_rows[static_cast<std::size_t>(kind)];
}

ObjectExtent read_object_extent(const RomImage& rom, ObjectKind kind, int map_index) {
    const ObjectKindRow& row = object_kind_row(kind);
    std::array<std::uint8_t, 4> pointers;
    rom.read(std::int64_t{row.pointers} + std::int64_t{2} * map_index, pointers);
    const int first = pointers[0] | pointers[1] << 8;
    const int end = pointers[2] | pointers[3] << 8;
    const int count = end < first ? 0 : rounded_quotient(end - first, row.record_size);
    return {first, count > max_object_count ? 0 : count};
}

void load_object_list(const RomImage& rom, ObjectKind kind, int map_index, ObjectList& list) {
    const ObjectExtent extent = read_object_extent(rom, kind, map_index);
    list.count = list.row_count = extent.count;
    list.first_offset = extent.first_offset;
    list.markers_drawn = false;
    const auto size = static_cast<std::size_t>(extent.count * object_kind_row(kind).record_size);
    if (size != 0)
        rom.read(object_offset(kind, list, 0), std::span(list.bytes).first(size));
}

bool load_object_lists(const RomImage& rom, ObjectKinds kinds, int map_index, ObjectLists& lists) {
    const bool same = lists.map == map_index && is_from(lists.source, rom);
    lists.map = map_index;
    lists.source = source_of(rom);
    for (ObjectList& list : lists.lists)
        list.row_count = same ? list.row_count : 0;
    for (const ObjectKind kind : kinds)
        load_object_list(rom, kind, map_index, lists[kind]);
    return same;
}

std::span<const std::uint8_t> object_row(ObjectKind kind, const ObjectList& list, int index) {
    const auto size = static_cast<std::size_t>(object_kind_row(kind).record_size);
    return std::span(list.bytes).subspan(static_cast<std::size_t>(index) * size, size);
}

std::int64_t object_offset(ObjectKind kind, const ObjectList& list, int index) {
    const ObjectKindRow& row = object_kind_row(kind);
    return std::int64_t{row.base} + list.first_offset + std::int64_t{index} * row.record_size;
}

std::vector<std::string> load_item_names(const RomImage& rom) {
    std::array<std::uint8_t, rom_layout::item_count * item_name_size> bytes;
    rom.read(rom_layout::item_names, bytes);
    std::vector<std::string> names(rom_layout::item_count);
    for (std::size_t item = 0; item < names.size(); ++item) {
        names[item] = format_hex(static_cast<std::int64_t>(item)) + ' ';
        for (const std::uint8_t byte :
             std::span(bytes).subspan(item * item_name_size, item_name_size))
            if (letter_code[byte] != '\0')
                names[item] += letter_code[byte];
    }
    return names;
}

std::int64_t sprite_graphics_offset(const RomImage& rom, std::uint8_t sprite) {
    const int bank = rom.read_byte(rom_layout::sprite_banks + 2 * sprite);
    const int address = rom.read_word(rom_layout::sprite_addresses + 2 * sprite);
    return offset_of_address(bank << 16 | address);
}

} // namespace veldrune
