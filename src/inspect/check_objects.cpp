#include "inspect/check_ground.h"
#include "inspect/field_names.h"
#include "map/chosen_map.h"
#include "rom/number_text.h"

#include <algorithm>

namespace veldrune::inspect {
namespace {

// The two pointers of a list, and what they bound.
struct ListPlace {
    ObjectKind kind;
    int first;
    int end;

    int bytes() const { return end - first; }
    int record_size() const { return object_kind_row(kind).record_size; }
    std::int64_t begin_offset() const { return std::int64_t{object_kind_row(kind).base} + first; }
    std::int64_t end_offset() const { return std::int64_t{object_kind_row(kind).base} + end; }
};

// Each says why the list is at fault, or nothing. Where one speaks, those after it are not asked.
using Judge = std::string (*)(const CheckGround&, const ListPlace&);

std::string falls(const CheckGround&, const ListPlace& list) {
    return list.bytes() >= 0 ? ""
                             : "its pointer is " + format_hex(list.first) + " and the next one " +
                                   format_hex(list.end);
}
std::string is_long(const CheckGround&, const ListPlace& list) {
    const int count = list.bytes() / list.record_size();
    return count <= max_object_count ? "" : std::to_string(count) + " records, more than 255";
}
std::string has_part(const CheckGround&, const ListPlace& list) {
    const int rest = list.bytes() % list.record_size();
    return rest == 0 ? ""
                     : std::to_string(list.bytes()) + " bytes are no records of " +
                           std::to_string(list.record_size());
}
std::string is_elsewhere(const CheckGround& ground, const ListPlace& list) {
    if (list.bytes() == 0)
        return "";
    if (!ground.reading.image.holds(list.begin_offset(), list.bytes()))
        return "goes beyond the end of the file";
    for (const OwnedRange& owner :
         ground.ownership.owners_in(list.begin_offset(), list.end_offset()))
        if (owner.kind == OwnerKind::structure ||
            (is_list(owner.kind) && owner.kind != list_owner(list.kind)))
            return "reaches into the " + owner_name(owner);
    return "";
}
constexpr Judge judges[] = {falls, is_long, has_part, is_elsewhere};

template <std::size_t judge>
void find_lists(const CheckGround& ground, FoundList& found) {
    for (int map = 0; map < rom_layout::map_count; ++map)
        for (const ObjectKind kind : map_object_kinds) {
            const ObjectListExtent& extent =
                ground.reading.lists[static_cast<std::size_t>(map)][static_cast<std::size_t>(kind)];
            const ListPlace list{kind, extent.first_pointer, extent.end_pointer};
            const auto speaks = [&](Judge other) { return !other(ground, list).empty(); };
            if (std::any_of(judges, judges + judge, speaks))
                continue;
            if (std::string why = judges[judge](ground, list); !why.empty())
                found.push_back({"map " + std::to_string(map) + ' ' + kind_name(kind) + " list",
                                 std::move(why), ground.objects_count(map)});
        }
}

// Numbers of objects that lead into tables.
struct NumberRange {
    ObjectField field;
    int count;
};
constexpr NumberRange number_ranges[] = {
    {ObjectField::sprite, (rom_layout::sprite_banks - rom_layout::sprite_addresses) / 2},
    {ObjectField::target_map, rom_layout::map_count},
};

void find_numbers(const CheckGround& ground, FoundList& found) {
    for (const ObjectAt& object : ground.reading.objects)
        for (const auto& [field, count] : number_ranges) {
            const auto value = object_value(object.kind, object.bytes, field);
            if (value && *value >= count)
                found.push_back(
                    {object_place(object), field_name(field) + (' ' + format_hex(*value)) +
                                               " is above the last, " + format_hex(count - 1)});
        }
}

void find_targets(const CheckGround& ground, FoundList& found) {
    for (const ObjectAt& object : ground.reading.objects) {
        const auto value = [&](ObjectField field) {
            return object_value(object.kind, object.bytes, field);
        };
        const auto map = value(ObjectField::target_map);
        if (!map)
            continue;
        const std::string why = beyond_map(ground.reading, *map, *value(ObjectField::target_x),
                                           *value(ObjectField::target_y));
        if (!why.empty())
            found.push_back({object_place(object), why});
    }
}

constexpr const char* no_list = "the map shows none of these objects";
constexpr Check checks[] = {
    {"list-falls", Grade::fault, find_lists<0>, no_list},
    {"list-long", Grade::fault, find_lists<1>, no_list},
    {"list-part", Grade::fault, find_lists<2>, "the last object may be part of another map's"},
    {"list-elsewhere", Grade::fault, find_lists<3>, "a save of an object overwrites it"},
    {"object-number", Grade::unusual, find_numbers, "shown as it is"},
    {"target-place", Grade::unusual, find_targets, "shown as it is"},
};

} // namespace

std::span<const Check> object_checks() {
    return checks;
}

std::string beyond_map(const ImageReading& reading, std::int64_t map, std::int64_t column,
                       std::int64_t row) {
    if (map < std::ssize(world_rows) || map >= rom_layout::map_count)
        return "";
    LayerSize largest;
    for (int layer = 0; layer < layer_count; ++layer) {
        const LayerSize size = layer_size(reading.records[static_cast<std::size_t>(map)], layer);
        largest = {std::max(largest.width, size.width), std::max(largest.height, size.height)};
    }
    if (column < largest.width && row < largest.height)
        return "";
    return "leads to " + format_hex(column) + ", " + format_hex(row) + " of map " +
           std::to_string(map) + ", which has " + std::to_string(largest.width) + " times " +
           std::to_string(largest.height) + " tiles";
}

} // namespace veldrune::inspect
