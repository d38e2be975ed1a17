#include "editor/shared_data.h"

#include "rom/rom_layout.h"

#include <algorithm>
#include <vector>

namespace veldrune {
namespace {

bool has_data(const MapProperties& record, int number) {
    for (int layer = 0; layer < layer_count; ++layer)
        if (layer_data_number(record, layer) == number)
            return true;
    return false;
}

std::vector<int> maps_with_data(const RomImage& rom, int number) {
    std::vector<MapProperties> records(rom_layout::map_count);
    rom.read(record_offset(0), {records[0].data(), sizeof(MapProperties) * records.size()});
    std::vector<int> maps;
    for (int map = 0; map < rom_layout::map_count; ++map)
        if (has_data(records[static_cast<std::size_t>(map)], number))
            maps.push_back(map);
    return maps;
}

} // namespace

std::string sharing_maps(const RomImage& rom, const ChosenMap& map, int layer) {
    constexpr std::size_t most_named = 8;
    if (!map.source)
        return "";
    std::vector<int> maps = maps_with_data(rom, layer_data_number(map.map_properties, layer));
    std::erase(maps, map.map_index);
    if (maps.empty())
        return "";
    std::string text = maps.size() == 1 ? "Also map " : "Also maps ";
    const std::size_t named = std::min(maps.size(), most_named);
    const std::size_t others = maps.size() - named;
    for (std::size_t i = 0; i < named; ++i) {
        const bool last = i > 0 && i + 1 == maps.size();
        text += (last ? " and " : i > 0 ? ", " : "") + std::to_string(maps[i]);
    }
    if (others > 0)
        text += " and " + std::to_string(others) + " more";
    return text + (maps.size() == 1 ? " has this data." : " have this data.");
}

} // namespace veldrune
