#include "inspect/all_streams.h"

#include "world_map/world_map.h"

#include <algorithm>

namespace veldrune::inspect {
namespace {

std::string padded(const char* word, int number, std::size_t width) {
    const std::string digits = std::to_string(number);
    return word + std::string(width - std::min(width, digits.size()), '0').append(digits);
}

} // namespace

std::vector<AnyStream> all_streams(const ImageReading& reading) {
    constexpr int shortest_row = 16;
    std::vector<AnyStream> all;
    for (const LayerStream& stream : reading.streams)
        all.push_back({OwnerKind::layer_stream, stream.number, padded("data ", stream.number, 3),
                       std::max(stream.size.width, shortest_row), &stream.packed, stream.users,
                       stream.size.width * stream.size.height});
    const auto add = [&](OwnerKind kind, const std::vector<PackedStream>& streams, const char* word,
                         int width) {
        for (int i = 0; i < std::ssize(streams); ++i)
            all.push_back({kind, i, padded(word, i, 2), width, &streams[static_cast<unsigned>(i)]});
    };
    add(OwnerKind::formation_set, reading.formation_sets, "formation-set ", 32);
    add(OwnerKind::layer3_graphics, reading.layer3_graphics, "layer3-graphics ", 16);
    for (const WorldReading& world : reading.worlds) {
        const int number = static_cast<int>(world.world);
        const std::string key = world.world == World::dawn ? "world dawn" : "world dusk";
        all.push_back({OwnerKind::world_map, number, key + " map", world_side, &world.map});
        all.push_back({OwnerKind::world_graphics, number, key + " graphics", 32, &world.graphics});
    }
    return all;
}

} // namespace veldrune::inspect
