#include "demo/worlds/enlarge_sketch.h"

#include "demo/drawing/random.h"
#include "demo/worlds/world_sketch.h"

#include <algorithm>

namespace veldrune::demo {
namespace {

void for_all(int side, auto&& step) {
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            step(x, y);
}

// The ground of the sketch at or near (x, y): noise shifts the edges by up to three tiles.
Ground ground_near(const Sketch& sketch, int x, int y, std::uint32_t seed) {
    constexpr int unit = 16; // of a tile
    const auto wander = [&](std::uint32_t purpose) {
        return (wave(x, y, 9, seed + purpose) - noise_range / 2) / 12 +
               (wave(x, y, 4, seed + purpose) - noise_range / 2) / 32;
    };
    return sketch.ground((unit * x + wander(1)) / (unit * Sketch::cell),
                         (unit * y + wander(2)) / (unit * Sketch::cell));
}

int neighbours_like(const Land& land, int x, int y, auto&& wanted) {
    int count = 0;
    for (int j = -1; j <= 1; ++j)
        for (int i = -1; i <= 1; ++i)
            count += (i != 0 || j != 0) && wanted(land.ground(x + i, y + j));
    return count;
}

// Replaces areas of the grounds first to last that are too small or thin for edge tiles by other.
void smooth(Land& land, Ground first, Ground last, Ground other) {
    const auto is_kind = [&](Ground g) { return g >= first && g <= last; };
    for (int round = 0; round < 3; ++round) {
        const Land before = land;
        for_all(world_tiles, [&](int x, int y) {
            if (is_kind(before.ground(x, y)) && neighbours_like(before, x, y, is_kind) < 4)
                land.set(x, y, other);
        });
    }
}

// Separates grounds that no tile can mix: by grass on land, by shallow water at the coast.
void separate_grounds(Land& land) {
    for_all(world_tiles, [&](int x, int y) {
        const Ground here = land.ground(x, y);
        const auto clashes = [&](Ground g) {
            return here == Ground::deep ? g >= Ground::grass : g != here && g != Ground::grass;
        };
        if (here != Ground::shallow && here != Ground::grass &&
            neighbours_like(land, x, y, clashes) > 0)
            land.set(x, y, here == Ground::deep ? Ground::shallow : Ground::grass);
    });
}

void lay_grounds(Land& land, const Sketch& sketch, std::uint32_t seed) {
    using enum Ground;
    for_all(world_tiles, [&](int x, int y) { land.set(x, y, ground_near(sketch, x, y, seed)); });
    smooth(land, grass, mountain, shallow);
    smooth(land, deep, shallow, grass);
    for (const Ground kind : {forest, desert, mountain})
        smooth(land, kind, kind, grass);
    smooth(land, deep, deep, shallow);
}

// Calls step along a path to a place to the right (across) or below: straight from both ends, with
// the bend halfway.
void walk(Place from, Place to, bool across, auto&& step) {
    const int turn = across ? (from.x + to.x) / 2 : (from.y + to.y) / 2;
    int& along = across ? from.x : from.y;
    int& off = across ? from.y : from.x;
    const int last = across ? to.x : to.y, level = across ? to.y : to.x;
    for (step(from); along != last || off != level; step(from)) {
        if (along == turn && off != level)
            off += off < level ? 1 : -1;
        else
            ++along;
    }
}

// Calls step along the paths between all neighbouring cells that are joined. end(cell) is the
// path's end in a cell.
void for_links(auto&& is_joined, auto&& end, auto&& step) {
    for_all(Sketch::side, [&](int column, int row) {
        for (const Place& way : {Place{1, 0}, {0, 1}}) {
            const Place from{column, row}, to{column + way.x, row + way.y};
            if (is_joined(from, to))
                walk(end(from), end(to), way.x == 1, step);
        }
    });
}

// The middle of a cell. Where a road or river goes straight through, it may be one tile off.
Place middle(const Sketch& sketch, Place at, auto&& has_way) {
    const bool winds = sketch.at(at.x, at.y) == '+' || sketch.at(at.x, at.y) == 'r';
    const bool across = has_way(at.x - 1, at.y) || has_way(at.x + 1, at.y);
    const bool down = has_way(at.x, at.y - 1) || has_way(at.x, at.y + 1);
    return {Sketch::cell * at.x + 1 + (winds && !across ? scatter(at.x, at.y, 63, 2) : 0),
            Sketch::cell * at.y + 1 + (winds && !down ? scatter(at.x, at.y, 64, 2) : 0)};
}

// Rivers are one corner wide and flow into adjacent sea.
void dig_rivers(Land& land, const Sketch& sketch) {
    const auto has_river = [&](int x, int y) { return sketch.has_river(x, y); };
    const auto is_joined = [&](Place a, Place b) {
        return (has_river(a.x, a.y) && (has_river(b.x, b.y) || sketch.is_sea(b.x, b.y))) ||
               (has_river(b.x, b.y) && sketch.is_sea(a.x, a.y));
    };
    const auto end = [&](Place at) {
        const Place tile = middle(sketch, at, has_river);
        return Place{tile.x + 1, tile.y + 1};
    };
    for_links(is_joined, end, [&](Place at) {
        if (land.ground(at.x, at.y) != Ground::deep)
            land.set(at.x, at.y, Ground::shallow);
    });
}

void cover(Land& land, Place from, Place to, Ground ground) {
    for (int y = from.y; y <= to.y; ++y)
        for (int x = from.x; x <= to.x; ++x)
            land.set(x, y, ground);
}

void build_bridge(Land& land, Place at, bool across) {
    land.set(at.x, at.y, across ? Feature::bridge_left : Feature::bridge_top);
    land.set(at.x + across, at.y + !across,
             across ? Feature::bridge_right : Feature::bridge_bottom);
}

// The ground of a place is grass; a cave has mountains to the north.
void build_place(Land& land, Place at, Feature feature) {
    const int side = feature == Feature::castle ? 2 : 1;
    cover(land, {at.x - 1, at.y - 1}, {at.x + side + 1, at.y + side + 1}, Ground::grass);
    if (feature == Feature::cave)
        cover(land, {at.x - 1, at.y - 1}, {at.x + 2, at.y}, Ground::mountain);
    if (feature == Feature::castle)
        for (const auto& [i, j] : {Place{1, 0}, {0, 1}, {1, 1}})
            land.set(at.x + i, at.y + j, Feature::occupied);
    land.set(at.x, at.y, feature);
    land.places.push_back(at);
}

void build_places(Land& land, const Sketch& sketch) {
    for_all(Sketch::side, [&](int column, int row) {
        const Feature feature = sketch.feature(column, row);
        const Place corner{Sketch::cell * column + 1, Sketch::cell * row};
        if (feature == Feature::bridge_top)
            build_bridge(land, {corner.x, corner.y + 1}, sketch.has_road(column - 1, row));
        else if (feature >= Feature::village)
            build_place(land, corner, feature);
    });
}

// Roads connect neighbouring cells. They reach a place from its sides or below, not from above.
void build_roads(Land& land, const Sketch& sketch) {
    const auto has_road = [&](int x, int y) { return sketch.has_road(x, y); };
    const auto is_joined = [&](Place a, Place b) {
        const bool down_to_place = a.y < b.y && sketch.feature(b.x, b.y) >= Feature::village;
        return has_road(a.x, a.y) && has_road(b.x, b.y) && !down_to_place;
    };
    const auto end = [&](Place at) {
        const Place tile = middle(sketch, at, has_road);
        return Place{tile.x, tile.y + (sketch.feature(at.x, at.y) == Feature::castle)};
    };
    for_links(is_joined, end, [&](Place at) {
        if (land.feature(at.x, at.y) != Feature::none)
            return;
        cover(land, at, {at.x + 1, at.y + 1}, Ground::grass);
        land.set(at.x, at.y, Feature::road);
        land.roads.push_back(at);
    });
}

// Puts peaks of two by two tiles into wide mountain areas.
void place_peaks(Land& land) {
    for_all(world_tiles, [&](int x, int y) {
        bool room = scatter(x, y, 71, 3) != 0;
        for (int j = 0; room && j <= 2; ++j)
            for (int i = 0; i <= 2; ++i)
                room = room && land.ground(x + i, y + j) == Ground::mountain &&
                       land.feature(x + i, y + j) == Feature::none;
        if (!room)
            return;
        for (const auto& [i, j] : {Place{0, 0}, {1, 0}, {0, 1}, {1, 1}})
            land.set(x + i, y + j, i + j == 0 ? Feature::peak : Feature::occupied);
    });
}

} // namespace

int wave(int x, int y, int size, std::uint32_t seed) {
    const auto ease = [size](int f) {
        return f * f * (3 * size - 2 * f) * noise_range / (size * size * size);
    };
    const auto at = [&](int i, int j) {
        return scatter(i, j, static_cast<int>(seed * 31 + static_cast<std::uint32_t>(size)),
                       noise_range);
    };
    const int i = x / size, j = y / size, s = ease(x % size), t = ease(y % size);
    const int upper = at(i, j) * (noise_range - s) + at(i + 1, j) * s;
    const int lower = at(i, j + 1) * (noise_range - s) + at(i + 1, j + 1) * s;
    return (upper / noise_range * (noise_range - t) + lower / noise_range * t) / noise_range;
}

Land enlarge(AssetText text, std::uint32_t seed) {
    const Sketch sketch{Plan(text)};
    Land land;
    lay_grounds(land, sketch, seed);
    dig_rivers(land, sketch);
    build_places(land, sketch);
    build_roads(land, sketch);
    separate_grounds(land);
    place_peaks(land);
    return land;
}

} // namespace veldrune::demo
