#include "demo/worlds/world_roads.h"

#include <queue>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <optional>

namespace veldrune::demo {
namespace {

constexpr Place ways[4] = {{0, -1}, {1, 0}, {0, 1}, {-1, 0}};

/// A step of a search: where it leads and what it costs.
struct Step {
    Place to;
    int cost;
};

/// The cheapest way from a place to one that is_goal accepts, or an empty one where none is cheaper
/// than dearest: the ends of its steps, the last first. for_steps(place, yield) yields the steps
/// that lead on.
std::vector<Place> find_way(Place from, int dearest, auto&& is_goal, auto&& for_steps) {
    using Entry = std::pair<int, std::size_t>;
    std::priority_queue<Entry, std::vector<Entry>, std::greater<>> open;
    std::vector<int> cost(world_tiles * world_tiles, dearest);
    std::vector<Place> before(world_tiles * world_tiles);
    cost[Land::index(from.x, from.y)] = 0;
    open.push({0, Land::index(from.x, from.y)});
    while (!open.empty()) {
        const auto [spent, at] = open.top();
        open.pop();
        Place here{static_cast<int>(at) % world_tiles, static_cast<int>(at) / world_tiles};
        if (is_goal(here)) {
            std::vector<Place> way{here};
            for (; here.x != from.x || here.y != from.y; way.push_back(here))
                here = before[Land::index(here.x, here.y)];
            return way;
        }
        if (spent > cost[at])
            continue;
        for_steps(here, [&, spent = spent](const Step& step) {
            if (!Land::contains(step.to.x, step.to.y))
                return;
            const std::size_t to = Land::index(step.to.x, step.to.y);
            if (spent + step.cost < cost[to]) {
                cost[to] = spent + step.cost;
                before[to] = here;
                open.push({cost[to], to});
            }
        });
    }
    return {};
}

bool is_mountain_foot(const Land& land, int x, int y) {
    return land.ground(x, y) == Ground::grass &&
           (land.ground(x - 1, y) == Ground::mountain ||
            land.ground(x + 1, y) == Ground::mountain || land.ground(x, y - 1) == Ground::mountain);
}

std::vector<Place> river_from(const Land& land, Place source) {
    return find_way(
        source, 1400, [&](Place at) { return land.ground(at.x, at.y) <= Ground::shallow; },
        [&](Place at, auto&& yield) {
            for (const Place& way : ways) {
                const Place to{at.x + way.x, at.y + way.y};
                if (land.ground(to.x, to.y) != Ground::mountain) // rivers wind
                    yield(Step{to, 2 + std::abs(wave(to.x, to.y, 9, 61) - 512) / 12});
            }
        });
}

int count_corners(const Land& land, int x, int y, auto&& wanted) {
    int count = 0;
    for (const Ground ground : land.corners(x, y))
        count += wanted(ground);
    return count;
}

/// What a road through a tile costs, or nothing where none can be built.
std::optional<int> road_cost(const Land& land, int x, int y) {
    if (land.sight(x, y) == Sight::road)
        return 1;
    if (land.sight(x, y) != Sight::none)
        return std::nullopt;
    const auto blocks = [](Ground g) { return g <= Ground::shallow || g == Ground::mountain; };
    const auto slows = [](Ground g) { return g != Ground::grass; };
    if (count_corners(land, x, y, blocks) > 0)
        return std::nullopt;
    return 4 + 5 * count_corners(land, x, y, slows) + wave(x, y, 11, 63) / 90;
}

bool is_bank(const Land& land, Place at, Place way) {
    constexpr Ground g = Ground::grass, s = Ground::shallow;
    const auto corners = land.corners(at.x, at.y);
    if (way.x == 0)
        return corners == (way.y > 0 ? std::array{g, g, s, s} : std::array{s, s, g, g});
    return corners == (way.x > 0 ? std::array{g, s, g, s} : std::array{s, g, s, g});
}

/// Whether a bridge of two tiles leads on from a tile: over a river that runs straight across.
bool bridge_leads(const Land& land, Place from, Place way) {
    const Place near{from.x + way.x, from.y + way.y};
    const Place far{near.x + way.x, near.y + way.y};
    return is_bank(land, near, way) && is_bank(land, far, {-way.x, -way.y}) &&
           land.sight(near.x, near.y) == Sight::none && land.sight(far.x, far.y) == Sight::none &&
           road_cost(land, far.x + way.x, far.y + way.y).has_value();
}

/// Where the road to a place ends: below its gate.
Place gate(const Land& land, Place place) {
    return {place.x, place.y + (land.sight(place.x, place.y) == Sight::castle ? 2 : 1)};
}

std::vector<Place> road_between(const Land& land, Place from, Place to) {
    return find_way(
        from, 700, [&](Place at) { return at.x == to.x && at.y == to.y; },
        [&](Place at, auto&& yield) {
            for (const Place& way : ways) {
                const Place next{at.x + way.x, at.y + way.y};
                if (const auto cost = road_cost(land, next.x, next.y))
                    yield(Step{next, *cost});
                else if (bridge_leads(land, at, way))
                    yield(Step{{at.x + 3 * way.x, at.y + 3 * way.y}, 24});
            }
        });
}

void clear_tile(Land& land, int x, int y) {
    for (const auto& [i, j] : {Place{0, 0}, {1, 0}, {0, 1}, {1, 1}})
        land.set(x + i, y + j, Ground::grass);
}

void build_bridge(Land& land, Place from, Place to) {
    const bool across = from.y == to.y;
    const Place first{std::min(from.x, to.x) + across, std::min(from.y, to.y) + !across};
    land.set(first.x, first.y, across ? Sight::bridge_left : Sight::bridge_top);
    land.set(first.x + across, first.y + !across,
             across ? Sight::bridge_right : Sight::bridge_bottom);
}

void build_road(Land& land, const std::vector<Place>& way) {
    for (std::size_t i = 0; i < way.size(); ++i) {
        const Place here = way[i];
        if (i > 0 && std::abs(here.x - way[i - 1].x) + std::abs(here.y - way[i - 1].y) == 3)
            build_bridge(land, way[i - 1], here);
        if (land.sight(here.x, here.y) == Sight::road)
            continue;
        clear_tile(land, here.x, here.y);
        land.set(here.x, here.y, Sight::road);
        land.roads.push_back(here);
    }
}

} // namespace

void dig_rivers(Land& land, int count, Random& random) {
    for (int tries = 0; tries < 40000 && count > 0; ++tries) {
        const int x = random.between(8, world_tiles - 9);
        const int y = random.between(8, world_tiles - 9);
        if (!is_mountain_foot(land, x, y))
            continue;
        const std::vector<Place> river = river_from(land, {x, y});
        if (river.size() < 14)
            continue;
        for (const Place& at : river)
            if (land.ground(at.x, at.y) != Ground::deep)
                land.set(at.x, at.y, Ground::shallow);
        --count;
    }
}

void build_roads(Land& land) {
    for (std::size_t i = 1; i < land.places.size(); ++i) {
        std::vector<Place> near = land.places;
        near.erase(near.begin() + static_cast<std::ptrdiff_t>(i), near.end());
        const Place from = land.places[i];
        std::ranges::stable_sort(near, {}, [from](const Place& place) {
            return std::abs(place.x - from.x) + std::abs(place.y - from.y);
        });
        for (std::size_t k = 0; k < std::min<std::size_t>(near.size(), 2); ++k)
            build_road(land, road_between(land, gate(land, from), gate(land, near[k])));
    }
}

void wear_roads(Land& land) {
    std::erase_if(land.roads, [&](const Place& at) {
        const bool lost = scatter(at.x / 3, at.y / 3, 64, 5) < 2;
        if (lost)
            land.set(at.x, at.y, Sight::none);
        return lost;
    });
}

} // namespace veldrune::demo
