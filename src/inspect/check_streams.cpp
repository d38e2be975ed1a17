#include "inspect/check_ground.h"
#include "map/chosen_map.h"
#include "rom/number_text.h"
#include "world_map/world_map.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

namespace veldrune::inspect {
namespace {

std::string layer_name(StreamUser user) {
    return "map " + std::to_string(user.map) + " layer " + std::to_string(user.layer + 1);
}

// A stream of the image, under the first name that it has.
struct NamedStream {
    const PackedStream* packed;
    std::string place;
    bool named = false;  // by a map or a world
    bool counts = false; // by one of which faults count
};
using NamedStreams = std::map<std::int64_t, NamedStream>; // by file offset

class StreamNames {
  public:
    explicit StreamNames(const CheckGround& ground) : ground_(ground), reading_(ground.reading) {}

    NamedStreams collect() {
        for (const LayerStream& stream : reading_.streams)
            add_layer(stream);
        for (int map = 0; map < rom_layout::map_count; ++map) {
            add_set(map, RecordField::layer1_formation, reading_.formation_sets, "formation set ");
            add_set(map, RecordField::layer2_formation, reading_.formation_sets, "formation set ");
            add_set(map, RecordField::layer3_graphics, reading_.layer3_graphics,
                    "layer 3 graphics ");
        }
        for (const WorldReading& world : reading_.worlds) {
            const std::string name = world_row(world.world).name;
            add(world.map, name + " map", true, true);
            add(world.graphics, name + " graphics", true, true);
        }
        return std::move(streams_);
    }

  private:
    void add(const PackedStream& packed, const std::string& name, bool named, bool counts) {
        NamedStream& stream = streams_[packed.offset];
        if (!stream.named)
            stream = {&packed, name + " at " + format_hex(packed.offset), named, counts};
        stream.counts |= counts;
    }

    void add_layer(const LayerStream& stream) {
        if (stream.users.empty())
            add(stream.packed, "data " + std::to_string(stream.number), false, false);
        for (const StreamUser& user : stream.users)
            add(stream.packed, layer_name(user), true, ground_.record_counts(user.map));
    }

    void add_set(int map, RecordField field, const std::vector<PackedStream>& sets,
                 const std::string& what) {
        const std::size_t number =
            record_value(reading_.records[static_cast<std::size_t>(map)], field);
        if (number < sets.size())
            add(sets[number], "map " + std::to_string(map) + ' ' + what + std::to_string(number),
                true, ground_.record_counts(map));
    }

    const CheckGround& ground_;
    const ImageReading& reading_;
    NamedStreams streams_;
};

void find_outside(const CheckGround& ground, FoundList& found) {
    for (const auto& [offset, stream] : StreamNames(ground).collect())
        if (stream.named && !stream.packed->in_file)
            found.push_back({stream.place,
                             ground.reading.image.holds(offset, 2)
                                 ? "its " + std::to_string(stream.packed->packed_size) +
                                       " bytes go beyond the end of the file"
                                 : "it begins outside the file",
                             stream.counts});
}

void find_overlaps(const CheckGround& ground, FoundList& found) {
    const NamedStreams streams = StreamNames(ground).collect();
    for (auto first = streams.begin(); first != streams.end(); ++first) {
        const NamedStream& stream = first->second;
        if (!stream.packed->in_file)
            continue;
        for (auto next = std::next(first);
             next != streams.end() && next->first < stream.packed->end(); ++next) {
            const NamedStream& other = next->second;
            const std::int64_t shared =
                std::min(stream.packed->end(), other.packed->end()) - next->first;
            if (!other.packed->in_file || shared < 1 || !(stream.named || other.named))
                continue;
            found.push_back({stream.place,
                             "shares " + std::to_string(shared) +
                                 (shared == 1 ? " byte with " : " bytes with ") + other.place,
                             stream.counts && other.counts && shared > 1});
        }
    }
}

void find_in_structures(const CheckGround& ground, FoundList& found) {
    const auto is_structure = [](const OwnedRange& owner) {
        return owner.kind <= OwnerKind::dialogue_table || is_list(owner.kind);
    };
    for (const auto& [offset, stream] : StreamNames(ground).collect()) {
        if (!stream.named || !stream.packed->in_file)
            continue;
        const auto owners = ground.ownership.owners_in(offset, stream.packed->end());
        const auto owner = std::ranges::find_if(owners, is_structure);
        if (owner != owners.end())
            found.push_back(
                {stream.place, "reaches into the " + owner_name(*owner), stream.counts});
    }
}

// The shared stream of maps without layer 3 may be of any length.
bool may_be_short(const LayerStream& stream, LayerSize size) {
    return stream.packed.offset == rom_layout::layer_data || size.height > max_layer_height;
}

// Of the maps that ask for more tiles than there are, the one that asks for most stands for all,
// before it any that counts.
void find_short_layers(const CheckGround& ground, FoundList& found) {
    for (const LayerStream& stream : ground.reading.streams) {
        const auto wanted = [&](StreamUser user) {
            const LayerSize size =
                layer_size(ground.reading.records[static_cast<std::size_t>(user.map)], user.layer);
            return may_be_short(stream, size) ? 0 : size.width * size.height;
        };
        const auto rank = [&](StreamUser user) {
            const bool short_of = std::cmp_less(stream.packed.bytes.size(), wanted(user));
            return std::tuple(short_of, ground.record_counts(user.map), wanted(user));
        };
        const auto user = std::ranges::max_element(stream.users, {}, rank);
        if (user == stream.users.end() || !std::get<0>(rank(*user)) || !stream.packed.in_file)
            continue;
        found.push_back({layer_name(*user) + " at " + format_hex(stream.packed.offset),
                         "holds " + std::to_string(stream.packed.bytes.size()) + " of its " +
                             std::to_string(wanted(*user)) + " tiles",
                         ground.record_counts(user->map)});
    }
}

std::string world_place(const WorldReading& world, const char* what, const PackedStream& stream) {
    return world_row(world.world).name + std::string(what) + " at " + format_hex(stream.offset);
}

void find_long_worlds(const CheckGround& ground, FoundList& found) {
    const auto look = [&](const WorldReading& world, const char* what, const PackedStream& stream) {
        if (stream.in_file && stream.packed_size > max_world_stream_bytes)
            found.push_back({world_place(world, what, stream),
                             "has " + std::to_string(stream.packed_size) + " bytes, more than " +
                                 std::to_string(max_world_stream_bytes)});
    };
    for (const WorldReading& world : ground.reading.worlds) {
        look(world, " map", world.map);
        look(world, " graphics", world.graphics);
    }
}

void find_short_worlds(const CheckGround& ground, FoundList& found) {
    constexpr std::size_t tiles = world_side * world_side;
    for (const WorldReading& world : ground.reading.worlds)
        if (world.map.in_file && world.map.packed_size <= max_world_stream_bytes &&
            world.map.bytes.size() < tiles)
            found.push_back({world_place(world, " map", world.map),
                             "holds " + std::to_string(world.map.bytes.size()) + " of " +
                                 std::to_string(tiles) + " tiles"});
}

constexpr Check checks[] = {
    {"stream-outside", Grade::fault, find_outside, "wrong tiles; a save makes the file longer"},
    {"stream-overlap", Grade::fault, find_overlaps, "a save of one changes the other"},
    {"stream-structure", Grade::fault, find_in_structures, "a save overwrites it"},
    {"stream-short", Grade::fault, find_short_layers, "the tiles that are missing are tile 0"},
    {"world-long", Grade::fault, find_long_worlds, "the world is not unpacked"},
    {"world-short", Grade::fault, find_short_worlds, "the tiles that are missing are tile 0"},
};

} // namespace

std::span<const Check> stream_checks() {
    return checks;
}

} // namespace veldrune::inspect
