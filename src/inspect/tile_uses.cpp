#include "inspect/tile_uses.h"

#include "inspect/field_names.h"
#include "map/chosen_map.h"

#include <algorithm>
#include <array>

namespace veldrune::inspect {
namespace {

using TileBytes = std::span<const std::uint8_t>;

// Layer 1 or 2 of a map: its tiles row by row, as many as the stream has.
struct LayerTiles {
    int map;
    int layer; // 0 or 1
    int width;
    TileBytes tiles;
};

// Those that show a formation set.
std::vector<LayerTiles> layers_with(const ImageReading& reading, int formation_set) {
    std::vector<LayerTiles> layers;
    for (int map = 0; map < rom_layout::map_count; ++map)
        for (const int layer : {0, 1}) {
            const MapProperties& record = reading.records[static_cast<std::size_t>(map)];
            const auto set = record_value(record, layer_fields[layer].formation);
            if (static_cast<int>(set) != formation_set)
                continue;
            const LayerSize size = layer_size(record, layer);
            const TileBytes all = reading.stream(layer_data_number(record, layer))->packed.bytes;
            const auto count = static_cast<std::size_t>(size.width * size.height);
            layers.push_back({map, layer, size.width, all.first(std::min(all.size(), count))});
        }
    return layers;
}

// Calls visit for each command that changes layer 1 of a map, with its tiles.
void visit_changes(const ImageReading& reading, const auto& visit) {
    CommandItems items;
    for (const WalkedScript& script : reading.scripts.scripts)
        for (const WalkedCommand& command : reading.scripts.commands_of(script)) {
            if (command.code != 0x73 && command.code != 0x74)
                continue;
            read_items(reading.image, command, items);
            const ScriptItem& data = items.items.back();
            visit(script, command, reading.image.at(command.offset + data.at, data.size));
        }
}

} // namespace

Listing list_tile_uses(const ImageReading& reading, std::uint8_t tile, int formation_set) {
    using enum CellForm;
    Listing listing{{{"what", "What", words},
                     {"map", "Map", decimal},
                     {"layer", "Layer", decimal},
                     {"cells", "Cells", decimal},
                     {"column", "Column", hexadecimal},
                     {"row", "Row", hexadecimal},
                     {"script", "Script", hexadecimal},
                     {"at", "At", hexadecimal},
                     certainty_column},
                    {}};
    for (const LayerTiles& layer : layers_with(reading, formation_set)) {
        const auto cells = std::ranges::count(layer.tiles, tile);
        const auto first = std::ranges::find(layer.tiles, tile) - layer.tiles.begin();
        if (cells != 0)
            listing.rows.push_back({"map",
                                    layer.map,
                                    layer.layer + 1,
                                    cells,
                                    first % layer.width,
                                    first / layer.width,
                                    {},
                                    {},
                                    certainty(true)});
    }
    visit_changes(reading, [&](const WalkedScript& script, const WalkedCommand& command,
                               TileBytes tiles) {
        if (const auto cells = std::ranges::count(tiles, tile); cells != 0)
            listing.rows.push_back(
                {"command", {}, 1, cells, {}, {}, script.offset, command.offset, certainty(false)});
    });
    return listing;
}

Listing list_tiles(const ImageReading& reading, int formation_set, bool unused) {
    using enum CellForm;
    using Counts = std::array<std::int64_t, 256>;
    Counts cells{}, maps{}, commands{};
    std::array<int, 256> last_map;
    last_map.fill(-1);
    for (const LayerTiles& layer : layers_with(reading, formation_set))
        for (const std::uint8_t tile : layer.tiles) {
            ++cells[tile];
            maps[tile] += last_map[tile] != layer.map;
            last_map[tile] = layer.map;
        }
    visit_changes(reading, [&](const WalkedScript&, const WalkedCommand&, TileBytes tiles) {
        for (std::size_t tile = 0; tile < commands.size(); ++tile)
            commands[tile] += std::ranges::count(tiles, tile) != 0;
    });
    Listing listing{{{"tile", "Tile", hexadecimal},
                     {"cells", "Cells", decimal},
                     {"maps", "Maps", decimal},
                     {"commands", "Commands, perhaps", decimal}},
                    {}};
    for (std::size_t tile = 0; tile < cells.size(); ++tile)
        if (!unused || cells[tile] == 0)
            listing.rows.push_back({tile, cells[tile], maps[tile], commands[tile]});
    return listing;
}

} // namespace veldrune::inspect
