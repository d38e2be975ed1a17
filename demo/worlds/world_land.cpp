#include "demo/worlds/world_land.h"

#include "demo/drawing/random.h"
#include "demo/worlds/world_roads.h"

#include <algorithm>
#include <cstdlib>
#include <span>

namespace veldrune::demo {
namespace {

constexpr int one = noise_range; // of everything that noise and heights count

/// Waves of size, half of it, and so on, each half as high.
int noise(int x, int y, int size, std::uint32_t seed) {
    int sum = 0, weights = 0;
    for (int weight = 16; size >= 3; size /= 2, weight = weight * 5 / 8) {
        sum += weight * wave(x, y, size, seed);
        weights += weight;
    }
    return sum / weights;
}

struct Blob {
    int x, y, width, height;
};
// clang-format off
/// Continents and islands, roughly; noise draws their coasts.
constexpr Blob blobs[] = {
    {74, 78, 60, 52}, {100, 112, 44, 34}, {48, 112, 30, 26},       // the west
    {184, 60, 50, 36}, {214, 84, 30, 34},                          // the north-east
    {186, 176, 54, 50}, {150, 204, 34, 22}, {214, 146, 26, 30},    // the south-east
    {64, 200, 42, 30}, {40, 184, 22, 18},                          // the south-west
    {132, 28, 18, 12}, {128, 150, 16, 14}, {236, 206, 12, 14}, {22, 42, 14, 12}, {116, 238, 16, 8},
};
constexpr Blob desert_blobs[] = {{196, 186, 40, 30}, {226, 84, 24, 20}, {60, 206, 22, 12}};
// clang-format on

/// 0 at the rim of the nearest blob and beyond, rising to one in its middle.
int inside_blobs(std::span<const Blob> all, int x, int y) {
    int best = 0;
    for (const Blob& blob : all) {
        const int dx = (x - blob.x) * one / blob.width;
        const int dy = (y - blob.y) * one / blob.height;
        best = std::max(best, one - (dx * dx / one + dy * dy / one));
    }
    return best;
}

/// Above 0 on land.
int height(int x, int y, std::uint32_t seed) {
    const int rim = std::min(std::min(x, world_tiles - 1 - x), std::min(y, world_tiles - 1 - y));
    const int shelf = std::min(inside_blobs(blobs, x, y), 640);
    return shelf + noise(x, y, 44, seed) * 5 / 2 - 1590 - std::max(0, 12 - rim) * 60;
}

/// How a world differs from the first one.
struct Climate {
    int wood;  // the more, the fewer woods
    int waste; // the more, the more deserts
    int ridge; // the more, the wider the mountains
};
constexpr Climate dawn_climate{560, 0, 46};
constexpr Climate dusk_climate{640, 330, 52};

Ground ground_at(int x, int y, std::uint32_t seed, const Climate& climate) {
    const int level = height(x, y, seed);
    if (level <= 0)
        return level < -150 ? Ground::deep : Ground::shallow;
    const int ridge = std::abs(noise(x, y, 48, seed + 1) - one / 2);
    if (level > 130 && ridge < climate.ridge && noise(x, y, 24, seed + 2) > 400)
        return Ground::mountain;
    const int dry = inside_blobs(desert_blobs, x, y) + climate.waste;
    if (dry > 120 && dry + noise(x, y, 24, seed + 3) > 1010)
        return Ground::desert;
    return noise(x, y, 20, seed + 4) > climate.wood ? Ground::forest : Ground::grass;
}

template <class Step>
void for_all(Step step) {
    for (int y = 0; y < world_tiles; ++y)
        for (int x = 0; x < world_tiles; ++x)
            step(x, y);
}

int neighbours_like(const Land& land, int x, int y, auto&& wanted) {
    int count = 0;
    for (int j = -1; j <= 1; ++j)
        for (int i = -1; i <= 1; ++i)
            count += (i != 0 || j != 0) && wanted(land.ground(x + i, y + j));
    return count;
}

bool is_sea(Ground ground) {
    return ground <= Ground::shallow;
}

/// Takes away what is too small or too thin for its edges to be drawn well.
void smooth(Land& land, auto&& is_kind, Ground other) {
    for (int round = 0; round < 3; ++round) {
        const Land before = land;
        for_all([&](int x, int y) {
            if (is_kind(before.ground(x, y)) && neighbours_like(before, x, y, is_kind) < 4)
                land.set(x, y, other);
        });
    }
}

/// Parts what can't be drawn on one tile: by grass on land, by shallows at the coast.
void part_grounds(Land& land) {
    for_all([&](int x, int y) {
        const Ground here = land.ground(x, y);
        const auto clashes = [&](Ground g) {
            return here == Ground::deep ? g >= Ground::grass : g != here && g != Ground::grass;
        };
        if (here != Ground::shallow && here != Ground::grass &&
            neighbours_like(land, x, y, clashes) > 0)
            land.set(x, y, here == Ground::deep ? Ground::shallow : Ground::grass);
    });
}

void tidy(Land& land) {
    smooth(
        land, [](Ground g) { return !is_sea(g); }, Ground::shallow);
    smooth(land, is_sea, Ground::grass);
    for (const Ground kind : {Ground::forest, Ground::desert, Ground::mountain})
        smooth(
            land, [kind](Ground g) { return g == kind; }, Ground::grass);
    smooth(
        land, [](Ground g) { return g == Ground::deep; }, Ground::shallow);
    part_grounds(land);
}

/// Puts big peaks into wide ranges.
void place_peaks(Land& land) {
    for_all([&](int x, int y) {
        bool room = scatter(x, y, 71, 3) != 0;
        for (int j = 0; room && j <= 2; ++j)
            for (int i = 0; i <= 2; ++i)
                room = room && land.ground(x + i, y + j) == Ground::mountain &&
                       land.sight(x + i, y + j) == Sight::none;
        if (!room)
            return;
        for (const auto& [i, j] : {Place{0, 0}, {1, 0}, {0, 1}, {1, 1}})
            land.set(x + i, y + j, i + j == 0 ? Sight::peak : Sight::taken);
    });
}

/// Whether a corner of side by side tiles from (x, y) on has such a ground.
bool any_corner(const Land& land, int x, int y, int side, auto&& is_such) {
    for (int j = 0; j <= side; ++j)
        for (int i = 0; i <= side; ++i)
            if (is_such(land.ground(x + i, y + j)))
                return true;
    return false;
}

/// How many tiles a place takes across and down, with one to spare on all sides.
int side_of(Sight sight) {
    return sight == Sight::castle ? 4 : 3;
}

bool is_far_from_all(const Land& land, int x, int y, int distance) {
    return std::ranges::none_of(land.places, [&](const Place& place) {
        return std::max(std::abs(place.x - x), std::abs(place.y - y)) < distance;
    });
}

void build(Land& land, Sight sight, int x, int y) {
    if (sight == Sight::castle)
        for (const auto& [i, j] : {Place{1, 0}, {0, 1}, {1, 1}})
            land.set(x + i, y + j, Sight::taken);
    land.set(x, y, sight);
    land.places.push_back({x, y});
}

/// Settlements stand on meadows, harbours at the sea.
void settle(Land& land, Sight sight, int count, int distance, Random& random) {
    const auto is_wild = [](Ground g) { return g != Ground::grass; };
    for (int tries = 0; tries < 20000 && count > 0; ++tries) {
        const int x = random.between(8, world_tiles - 9);
        const int y = random.between(8, world_tiles - 9);
        const bool at_sea = neighbours_like(land, x - 1, y + 1, is_sea) +
                                neighbours_like(land, x + 2, y + 1, is_sea) >
                            0;
        if (any_corner(land, x - 1, y - 1, side_of(sight), is_wild) ||
            !is_far_from_all(land, x, y, distance) || (sight == Sight::harbour) != at_sea)
            continue;
        build(land, sight, x, y);
        --count;
    }
}

/// Caves open to the south at the foot of a range.
void dig_caves(Land& land, int count, Random& random) {
    constexpr std::array<Ground, 4> foot{Ground::mountain, Ground::mountain, Ground::grass,
                                         Ground::grass};
    for (int tries = 0; tries < 40000 && count > 0; ++tries) {
        const int x = random.between(8, world_tiles - 9);
        const int y = random.between(8, world_tiles - 9);
        if (land.corners(x, y) != foot || !is_far_from_all(land, x, y, 10))
            continue;
        build(land, Sight::cave, x, y);
        --count;
    }
}

// clang-format off
/// Which part of the old world lies where: the middle of a plate in the new world, and the way from
/// there to where it lay.
struct Plate { int x, y, dx, dy; };
constexpr Plate plates[] = {
    {50, 60, 7, 6}, {104, 70, -8, 5}, {76, 118, 4, -8}, {30, 126, 9, -3}, {164, 44, 8, 7},
    {216, 50, -7, 8}, {222, 112, -6, -7}, {150, 150, 7, 7}, {206, 168, -9, 5}, {176, 214, 5, -9},
    {234, 216, -8, -6}, {72, 196, -6, -7}, {28, 214, 7, -5}, {124, 226, 4, -6}, {130, 24, 2, 5}};
// clang-format on

struct PlateAt {
    const Plate* plate;
    int rift; // small between two plates
};

PlateAt plate_at(int x, int y, std::uint32_t seed) {
    x += (noise(x, y, 24, seed + 8) - one / 2) / 18; // plates break along crooked lines
    y += (noise(x, y, 24, seed + 9) - one / 2) / 18;
    PlateAt found{nullptr, 0};
    int nearest = 1 << 20, second = 1 << 20;
    for (const Plate& plate : plates) {
        const int distance = (x - plate.x) * (x - plate.x) + (y - plate.y) * (y - plate.y);
        second = std::min(second, std::max(distance, nearest));
        if (distance < nearest) {
            nearest = distance;
            found.plate = &plate;
        }
    }
    found.rift = second - nearest;
    return found;
}

/// Where a place of the old world has drifted; false where it has sunk.
bool drifted(const Place& old, std::uint32_t seed, Place& now) {
    for (const Plate& plate : plates) {
        now = {old.x - plate.dx, old.y - plate.dy};
        if (plate_at(now.x, now.y, seed).plate == &plate)
            return true;
    }
    return false;
}

constexpr int rift_width = 260;

Ground broken_ground(int x, int y, std::uint32_t seed) {
    const auto [plate, rift] = plate_at(x, y, seed);
    if (rift < rift_width)
        return rift < rift_width / 4 ? Ground::deep : Ground::shallow;
    return ground_at(x + plate->dx, y + plate->dy, seed, dusk_climate);
}

/// What still stands of the old world's places: every other one in ruins.
void inherit_places(Land& land, const Land& dawn, std::uint32_t seed) {
    int number = 0;
    for (const Place& old : dawn.places) {
        Place now;
        const Sight sight = dawn.sight(old.x, old.y);
        const int side = side_of(sight);
        if (sight == Sight::cave || !drifted(old, seed, now) ||
            any_corner(land, now.x - 1, now.y - 1, side, is_sea))
            continue;
        for (int j = -1; j < side; ++j)
            for (int i = -1; i < side; ++i)
                land.set(now.x + i, now.y + j, Ground::grass);
        build(land, number++ % 2 == 0 || sight == Sight::tower ? sight : Sight::ruin, now.x, now.y);
    }
}

} // namespace

int wave(int x, int y, int size, std::uint32_t seed) {
    const auto ease = [size](int f) {
        return f * f * (3 * size - 2 * f) * noise_range / (size * size * size);
    };
    const auto at = [&](int i, int j) {
        return static_cast<int>(mix(static_cast<std::uint32_t>(i), static_cast<std::uint32_t>(j),
                                    seed * 31 + static_cast<std::uint32_t>(size)) %
                                noise_range);
    };
    x += 4096; // plates may look beyond the edge
    y += 4096;
    const int i = x / size, j = y / size, s = ease(x % size), t = ease(y % size);
    const int upper = at(i, j) * (noise_range - s) + at(i + 1, j) * s;
    const int lower = at(i, j + 1) * (noise_range - s) + at(i + 1, j + 1) * s;
    return (upper / noise_range * (noise_range - t) + lower / noise_range * t) / noise_range;
}

Land make_dawn(std::uint32_t seed) {
    Land land;
    Random random(seed + 77);
    for_all([&](int x, int y) { land.set(x, y, ground_at(x, y, seed, dawn_climate)); });
    tidy(land);
    dig_rivers(land, 16, random);
    part_grounds(land);
    settle(land, Sight::castle, 4, 44, random);
    settle(land, Sight::harbour, 4, 20, random);
    settle(land, Sight::town, 8, 20, random);
    settle(land, Sight::village, 12, 12, random);
    settle(land, Sight::tower, 3, 16, random);
    build_roads(land);
    dig_caves(land, 8, random);
    place_peaks(land);
    return land;
}

Land make_dusk(std::uint32_t seed, const Land& dawn) {
    Land land;
    Random random(seed + 78);
    for_all([&](int x, int y) { land.set(x, y, broken_ground(x, y, seed)); });
    tidy(land);
    dig_rivers(land, 5, random);
    part_grounds(land);
    inherit_places(land, dawn, seed);
    part_grounds(land);
    build_roads(land);
    wear_roads(land);
    dig_caves(land, 6, random);
    place_peaks(land);
    return land;
}

} // namespace veldrune::demo
