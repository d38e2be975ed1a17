#include "inspect/map_reports.h"

#include "inspect/field_names.h"
#include "inspect/script_ways.h"
#include "map/chosen_map.h"
#include "rom/number_text.h"

#include <algorithm>
#include <optional>

namespace veldrune::inspect {
namespace {

using enum RecordField;

constexpr RecordField tilesets[] = {tileset1, tileset2, tileset3, tileset4};

const LayerStream& stream_of(const ImageReading& reading, int map, int layer) {
    const MapProperties& record = reading.records[static_cast<std::size_t>(map)];
    return *reading.stream(layer_data_number(record, layer)); // a named stream is always there
}

std::int64_t number(const MapProperties& record, RecordField field) {
    return record_value(record, field);
}

std::vector<Cell> map_row(const ImageReading& reading, int map) {
    const MapProperties& record = reading.records[static_cast<std::size_t>(map)];
    std::vector<Cell> row{map};
    for (int layer = 0; layer < layer_count; ++layer) {
        const LayerSize size = layer_size(record, layer);
        row.push_back(std::vector<std::int64_t>{size.width, size.height});
    }
    std::vector<std::int64_t> sets;
    for (const RecordField tileset : tilesets)
        sets.push_back(number(record, tileset));
    row.push_back(std::move(sets));
    row.push_back(number(record, palette));
    for (int layer = 0; layer < layer_count; ++layer) {
        const PackedStream& packed = stream_of(reading, map, layer).packed;
        row.push_back(packed.offset);
        row.push_back(packed.packed_size);
    }
    row.push_back(number(record, song));
    for (const ObjectKind kind : map_object_kinds)
        row.push_back(reading.objects_of(map, kind).size());
    return row;
}

// The rows about one map: what is said, and its value.
class MapRows {
  public:
    MapRows(const ImageReading& reading, int map)
        : reading_(reading), map_(map), record_(reading.records[static_cast<std::size_t>(map)]) {}

    Listing listing() {
        using enum CellForm;
        listing_.columns = {{"what", "What", words},
                            {"value", "Value or map", decimal},
                            {"place", "Column, row", hexadecimal},
                            {"target", "Target column, row", hexadecimal}};
        add_values();
        for (int layer = 0; layer < layer_count; ++layer)
            add_stream(layer);
        for (const ObjectKind kind : map_object_kinds)
            add(std::string(kind_name(kind)) + " count", reading_.objects_of(map_, kind).size());
        for (const ObjectAt& object : reading_.objects)
            add_way(object);
        add_script_ways();
        return std::move(listing_);
    }

  private:
    void add(std::string what, Cell value) {
        listing_.rows.push_back({std::move(what), std::move(value), {}, {}});
    }

    void add_values() {
        for (int field = 0; field < static_cast<int>(RecordField::count); ++field) {
            const auto row = static_cast<RecordField>(field);
            add(field_name(row), record_cell(record_, row));
        }
        add("monster-set", HexNumber{reading_.monster_sets[static_cast<std::size_t>(map_)]});
    }

    void add_stream(int layer) {
        const LayerStream& stream = stream_of(reading_, map_, layer);
        const std::string name = "layer" + std::to_string(layer + 1);
        add(name + " location", HexNumber{stream.packed.offset});
        add(name + " packed size", stream.packed.packed_size);
        add(name + " tiles", stream.packed.bytes.size());
        std::vector<std::int64_t> others;
        for (const StreamUser& user : stream.users)
            if (user.map != map_ && (others.empty() || others.back() != user.map))
                others.push_back(user.map);
        add(name + " shared with maps", std::move(others));
    }

    // An entrance of this map to another one, or of another one to this.
    void add_way(const ObjectAt& object) {
        const auto value = [&](ObjectField field) {
            return object_value(object.kind, object.bytes, field).value_or(0);
        };
        if (!object_value(object.kind, object.bytes, ObjectField::target_map))
            return;
        const std::int64_t target = value(ObjectField::target_map);
        const std::vector<std::int64_t> place{value(ObjectField::map_x), value(ObjectField::map_y)};
        const std::vector<std::int64_t> goal{value(ObjectField::target_x),
                                             value(ObjectField::target_y)};
        const std::string name = std::string(kind_name(object.kind)) + ' ';
        if (object.map == map_)
            listing_.rows.push_back(
                {"exit: " + name + std::to_string(object.index), target, place, goal});
        else if (target == map_)
            listing_.rows.push_back(
                {"from: " + name + std::to_string(object.index), object.map, place, goal});
    }

    // The commands by which an object of this map leads out, and those that lead here.
    void add_script_ways() {
        const ScriptWays ways(reading_);
        ScriptWays::Commands loads;
        std::vector<ScriptWays::Commands> loads_here; // each alone
        for (const WalkedCommand& command : reading_.scripts.commands)
            if (loads_map(command.code)) {
                loads.push_back(command.offset);
                if (read_load(command).items[1].value == static_cast<std::uint32_t>(map_))
                    loads_here.push_back({command.offset});
            }
        for (const std::int64_t offset : ways.met_from(map_, loads))
            add_load(ways, offset, "exit: ", std::nullopt);
        std::vector<MapSet> maps(loads_here.size());
        ways.visit_objects(loads_here, [&](std::size_t load, const ObjectAt& object) {
            maps[load].set(static_cast<std::size_t>(object.map));
        });
        for (std::size_t i = 0; i < maps.size(); ++i)
            add_load(ways, loads_here[i].front(), "from: ", map_numbers(maps[i]));
    }

    CommandItems read_load(const WalkedCommand& command) const {
        CommandItems items;
        read_items(reading_.image, command, items);
        return items;
    }

    // maps are those that it leads from; of an exit it is the target that is shown.
    void add_load(const ScriptWays& ways, std::int64_t offset, std::string what,
                  std::optional<std::vector<std::int64_t>> maps) {
        const WalkedCommand& command = *ways.command_at(offset);
        const std::vector<ScriptItem> items = read_load(command).items;
        what.append(command.sure ? "" : "perhaps ").append("script ");
        what.append(format_hex(ways.script_of(offset))).append(" at ").append(format_hex(offset));
        listing_.rows.push_back({what,
                                 maps ? Cell(*maps) : Cell(items[1].value),
                                 {},
                                 std::vector<std::int64_t>{items[2].value, items[3].value}});
    }

    const ImageReading& reading_;
    int map_;
    const MapProperties& record_;
    Listing listing_;
};

} // namespace

Listing list_maps(const ImageReading& reading, const std::vector<std::string>& names) {
    using enum CellForm;
    Listing listing{{{"map", "Map", decimal},
                     {"size1", "Layer1", size},
                     {"size2", "Layer2", size},
                     {"size3", "Layer3", size},
                     {"tilesets", "Tilesets", decimal},
                     {"palette", "Palette", decimal},
                     {"location1", "At1", hexadecimal},
                     {"packed1", "Bytes1", decimal},
                     {"location2", "At2", hexadecimal},
                     {"packed2", "Bytes2", decimal},
                     {"location3", "At3", hexadecimal},
                     {"packed3", "Bytes3", decimal},
                     {"song", "Song", decimal},
                     {"npcs", "NPCs", decimal},
                     {"chests", "Chests", decimal},
                     {"triggers", "Events", decimal},
                     {"entrances", "Short", decimal},
                     {"long_entrances", "Long", decimal}},
                    {}};
    for (int map = 0; map < rom_layout::map_count; ++map)
        listing.rows.push_back(map_row(reading, map));
    if (names.empty())
        return listing;
    listing.columns.push_back({"name", "Name", words});
    for (std::size_t map = 0; map < listing.rows.size(); ++map)
        listing.rows[map].push_back(map < names.size() ? names[map] : std::string());
    return listing;
}

Listing list_map(const ImageReading& reading, int map) {
    return MapRows(reading, map).listing();
}

} // namespace veldrune::inspect
