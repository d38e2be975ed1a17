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

// "3, 7, 12 to 40"
std::string ranges_of(const std::vector<int>& maps) {
    std::string text;
    for (std::size_t first = 0, end; first < maps.size(); first = end) {
        end = first + 1;
        while (end < maps.size() && maps[end] == maps[end - 1] + 1)
            ++end;
        text += (first > 0 ? ", " : "") + std::to_string(maps[first]);
        if (end - first > 1)
            text += (end - first > 2 ? " to " : ", ") + std::to_string(maps[end - 1]);
    }
    return text;
}

} // namespace

std::string sharing_maps(const RomImage& rom, const ChosenMap& map, int layer) {
    if (!map.source)
        return "";
    std::vector<int> maps = maps_with_data(rom, layer_data_number(map.map_properties, layer));
    std::erase(maps, map.map_index);
    if (maps.empty())
        return "";
    const bool one = maps.size() == 1;
    return (one ? "Also map " : "Also maps ") + ranges_of(maps) +
           (one ? " has this data." : " have this data.");
}

} // namespace veldrune
