#include "inspect/object_listing.h"

#include "forms/object_names.h"
#include "inspect/field_names.h"

#include <bit>

namespace veldrune::inspect {
namespace {

using enum ObjectField;

// What both listings begin with.
std::vector<Column> first_columns() {
    using enum CellForm;
    return {{"map", "Map", decimal},           {"kind", "Kind", words},
            {"number", "Number", decimal},     {"at", "At", hexadecimal},
            {"column", "Column", hexadecimal}, {"row", "Row", hexadecimal}};
}

std::vector<Cell> first_cells(const ObjectAt& object) {
    return {object.map,
            kind_name(object.kind),
            object.index,
            object.offset,
            *object_value(object.kind, object.bytes, map_x),
            *object_value(object.kind, object.bytes, map_y)};
}

// Calls visit with each value that the first columns do not have.
void visit_fields(const auto& visit) {
    for (int i = 0; i < static_cast<int>(ObjectField::count); ++i)
        if (const auto field = static_cast<ObjectField>(i); field != map_x && field != map_y)
            visit(field);
}

Cell number_cell(const ObjectAt& object, ObjectField field) {
    const auto value = object_value(object.kind, object.bytes, field);
    if (!value)
        return {};
    if (field == turn_to_talk) // 1 where the box is ticked, as in all others
        return 1 - *value;
    return *value;
}

// A value as the window shows it; empty for a box that is not ticked.
std::string shown(const ObjectAt& object, ObjectField field,
                  const std::vector<std::string>& item_names) {
    const std::string name = field_name(field);
    const auto value =
        static_cast<std::size_t>(object_value(object.kind, object.bytes, field).value_or(0));
    switch (field) {
    case facing:
        return name + ' ' + facing_names[value];
    case speed:
        return name + ' ' + speed_names[value];
    case vehicle:
        return name + ' ' + vehicle_names[value];
    case contents_kind:
        return value == 0 ? "" : contents_kind_names[std::countr_zero(value)];
    case contents:
        return name + ' ' + item_names[value];
    case turn_to_talk:
        return value == 0 ? name : "";
    case walk_over:
    case walk_under:
    case byte_flag:
    case chest_bit1:
    case chest_bit2:
        return value == 0 ? "" : name;
    default:
        return name + ' ' + object_text(object.kind, object.bytes, field);
    }
}

std::string words_of(const ObjectAt& object, const std::vector<std::string>& item_names) {
    std::string all;
    visit_fields([&](ObjectField field) {
        if (!object_value(object.kind, object.bytes, field))
            return;
        const std::string words = shown(object, field, item_names);
        all.append(all.empty() || words.empty() ? "" : ", ").append(words);
    });
    return all;
}

} // namespace

Listing object_table(const ImageReading& reading, std::optional<int> map) {
    Listing listing{first_columns(), {}};
    visit_fields([&](ObjectField field) {
        listing.columns.push_back({field_name(field), field_name(field), CellForm::decimal});
    });
    for (const ObjectAt& object : reading.objects) {
        if (map && object.map != *map)
            continue;
        listing.rows.push_back(first_cells(object));
        visit_fields(
            [&](ObjectField field) { listing.rows.back().push_back(number_cell(object, field)); });
    }
    return listing;
}

Listing object_lines(const ImageReading& reading, std::optional<int> map) {
    Listing listing{first_columns(), {}};
    listing.columns.push_back({"values", "Values", CellForm::words});
    const std::vector<std::string> item_names = load_item_names(MemoryRom(reading.image).rom());
    for (const ObjectAt& object : reading.objects) {
        if (map && object.map != *map)
            continue;
        listing.rows.push_back(first_cells(object));
        listing.rows.back().push_back(words_of(object, item_names));
    }
    return listing;
}

} // namespace veldrune::inspect
