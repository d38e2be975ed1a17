#include "inspect/all_streams.h"
#include "inspect/diff_parts.h"
#include "rom/number_text.h"

#include <algorithm>
#include <climits>
#include <map>

namespace veldrune::inspect {
namespace {

// "data 12, layer 1 of maps 5, 9, layer 2 of map 7".
std::string thing_of(const AnyStream& stream) {
    std::string name = plain(stream.key);
    for (int layer = 0; layer < layer_count; ++layer) {
        std::vector<int> maps;
        for (const StreamUser& user : stream.users)
            if (user.layer == layer)
                maps.push_back(user.map);
        if (!maps.empty())
            name += ", layer " + std::to_string(layer + 1) + " of " + number_list("map", maps);
    }
    return stream.kind == OwnerKind::layer_stream && stream.users.empty() ? name + ", of no map"
                                                                          : name;
}

// Where two grids of bytes differ, as far as both reach.
struct Differences {
    int count = 0;
    int left = INT_MAX, right = 0, top = INT_MAX, bottom = 0;

    void add(int column, int row) {
        ++count;
        left = std::min(left, column);
        right = std::max(right, column);
        top = std::min(top, row);
        bottom = std::max(bottom, row);
    }
};
// A stream's contents as rows. A layer is as long as a load takes it: what its stream does not make
// is 0, and what it makes beyond that means nothing.
struct Grid {
    explicit Grid(const AnyStream& stream) : width(stream.width), bytes(stream.packed->bytes) {
        if (stream.tiles != 0)
            bytes.resize(static_cast<std::size_t>(stream.tiles));
    }
    bool operator==(const Grid&) const = default;

    int width;
    std::vector<std::uint8_t> bytes;
};

Differences differences(const Grid& a, const Grid& b) {
    Differences found;
    for (int i = 0; i < std::ssize(a.bytes); ++i) {
        const int column = i % a.width;
        const int row = i / a.width;
        const int j = row * b.width + column;
        if (column < b.width && j < std::ssize(b.bytes) &&
            a.bytes[static_cast<std::size_t>(i)] != b.bytes[static_cast<std::size_t>(j)])
            found.add(column, row);
    }
    return found;
}

std::string byte_count(const PackedStream& stream) {
    return counted(stream.packed_size, "byte");
}

std::string unit_of(OwnerKind kind) {
    return kind == OwnerKind::layer_stream || kind == OwnerKind::world_map ? "tile" : "byte";
}

void compare_contents(Comparison& c, const std::string& thing, const std::string& unit,
                      const Grid& a, const Grid& b) {
    if (a.width != b.width)
        c.add(thing, unit + "s in a row", std::to_string(a.width), std::to_string(b.width));
    if (a.bytes.size() != b.bytes.size())
        c.add(thing, unit + "s", std::to_string(a.bytes.size()), std::to_string(b.bytes.size()));
    if (const Differences found = differences(a, b); found.count > 0)
        c.add(thing, counted(found.count, unit) + " in " +
                         spread("column", found.left, found.right) + ", " +
                         spread("row", found.top, found.bottom));
}

void compare_stream(Comparison& c, const AnyStream& a, const AnyStream& b) {
    const PackedStream& before = *a.packed;
    const PackedStream& after = *b.packed;
    const auto packed = [](const ImageReading& reading, const PackedStream& stream) {
        return reading.image.at(stream.offset, stream.packed_size);
    };
    const bool same_packed = std::ranges::equal(packed(c.a, before), packed(c.b, after));
    if (before.offset == after.offset && same_packed)
        return;
    c.named.emplace(a.kind, a.number);
    const std::string thing = thing_of(b.users.empty() ? a : b);
    if (before.offset != after.offset)
        c.add(thing, "moved", format_hex(before.offset), format_hex(after.offset));
    if (const Grid grid_a(a), grid_b(b); grid_a != grid_b)
        compare_contents(c, thing, unit_of(a.kind), grid_a, grid_b);
    else if (!same_packed)
        c.add(thing, "packed anew, the same " + unit_of(a.kind) + "s", byte_count(before),
              byte_count(after));
}

} // namespace

void compare_streams(Comparison& comparison) {
    std::map<std::pair<OwnerKind, int>, AnyStream> before;
    for (AnyStream& stream : all_streams(comparison.a))
        before.emplace(std::pair(stream.kind, stream.number), std::move(stream));
    for (const AnyStream& stream : all_streams(comparison.b))
        if (const auto found = before.find({stream.kind, stream.number}); found != before.end())
            compare_stream(comparison, found->second, stream);
}

} // namespace veldrune::inspect
