#include "demo/image/map_objects.h"

#include "rom/rom_layout.h"

#include <stdexcept>

namespace veldrune::demo {
namespace {

using namespace rom_layout;

constexpr std::int32_t npc_area_end = 0x50200; // end of its bank
constexpr std::int32_t long_entrance_area_end = 0x2E0200;

Bytes bytes_of(std::initializer_list<int> values) {
    Bytes bytes;
    for (const int value : values)
        bytes.push_back(static_cast<std::uint8_t>(value));
    return bytes;
}

Bytes record(const Npc& npc) {
    return bytes_of({npc.script, npc.script >> 8,
                     npc.script >> 16 | npc.palette << 2 | npc.flag << 6, npc.flag >> 2, npc.x,
                     npc.y | npc.speed << 6, npc.sprite,
                     npc.movement | npc.walk_over << 4 | npc.walk_under << 5 | npc.vehicle << 6,
                     static_cast<int>(npc.facing) | !npc.turns_to_talk << 2});
}

Bytes record(const Chest& chest) {
    return bytes_of({chest.x, chest.y, chest.flag,
                     chest.flag >> 8 | 1 << static_cast<int>(chest.contents), chest.value});
}

Bytes record(const Trigger& trigger) {
    return bytes_of(
        {trigger.x, trigger.y, trigger.script, trigger.script >> 8, trigger.script >> 16});
}

Bytes record(const Entrance& entrance) {
    return bytes_of(
        {entrance.x, entrance.y, entrance.map, entrance.map >> 8, entrance.to_x, entrance.to_y});
}

Bytes record(const LongEntrance& entrance) {
    Bytes bytes = record(entrance.first);
    bytes.insert(bytes.begin() + 2,
                 static_cast<std::uint8_t>(entrance.length | entrance.down << 7));
    return bytes;
}

// Writes a table of pointers, relative to base, and after it the records of every map's list.
template <class Object>
void write_table(ImageWriter& writer, std::span<const MapObjects> maps,
                 std::vector<Object> MapObjects::*list, std::int32_t table, std::int32_t base,
                 std::int32_t end) {
    std::int32_t next = table + 2 * (static_cast<std::int32_t>(maps.size()) + 1);
    next = std::max(next, base);
    for (std::size_t map = 0; map <= maps.size(); ++map) {
        writer.put_word(table + 2 * static_cast<std::int32_t>(map), next - base);
        if (map == maps.size())
            break;
        for (const Object& object : maps[map].*list) {
            const Bytes bytes = record(object);
            if (next + static_cast<std::int32_t>(bytes.size()) > end)
                throw std::length_error("an object table of the demo image is full");
            writer.put(next, bytes);
            next += static_cast<std::int32_t>(bytes.size());
        }
    }
}

} // namespace

void write_objects(ImageWriter& writer, std::span<const MapObjects> maps) {
    write_table(writer, maps, &MapObjects::npcs, npcs, npcs, npc_area_end);
    write_table(writer, maps, &MapObjects::chests, chest_pointers, chests, map_properties);
    write_table(writer, maps, &MapObjects::triggers, event_triggers, event_triggers, npcs);
    write_table(writer, maps, &MapObjects::entrances, entrances, entrances, tileset_pointers);
    write_table(writer, maps, &MapObjects::long_entrances, long_entrances, long_entrances,
                long_entrance_area_end);
}

} // namespace veldrune::demo
