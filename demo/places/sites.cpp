#include "demo/places/sites.h"

namespace veldrune::demo {
namespace {

constexpr int shown_height = 64; // rows of a map that the game loads

// Sets all floor tiles connected to (x, y) to mark and returns their number.
int flood(Plan& floor, int x, int y, char mark) {
    std::vector<Place> open{{x, y}};
    int count = 0;
    floor.at(x, y) = mark;
    while (!open.empty()) {
        const Place place = open.back();
        open.pop_back();
        ++count;
        for (const auto& [dx, dy] : {std::pair{0, -1}, {1, 0}, {0, 1}, {-1, 0}}) {
            const int i = place.x + dx, j = place.y + dy;
            if (i >= 0 && j >= 0 && i < floor.width && j < floor.height && floor.is(i, j, ".")) {
                floor.at(i, j) = mark;
                open.push_back({i, j});
            }
        }
    }
    return count;
}

Plan largest_ground(Plan floor) {
    floor.rect(0, shown_height, floor.width, floor.height, '#');
    Place best{0, 0};
    int most = 0;
    Plan marked = floor;
    for (int y = 0; y < floor.height; ++y)
        for (int x = 0; x < floor.width; ++x)
            if (marked.is(x, y, "."))
                if (const int count = flood(marked, x, y, '#'); count > most) {
                    most = count;
                    best = {x, y};
                }
    flood(floor, best.x, best.y, '+');
    for (char& letter : floor.letters)
        letter = letter == '+' ? '.' : '#';
    return floor;
}

} // namespace

Site::Site(Plan layout, const Plan& walkable, bool is_outdoors)
    : plan(std::move(layout)), floor(largest_ground(walkable)), outdoors(is_outdoors) {
    if (outdoors)
        find_house_doors();
    if (doors.empty())
        find_thresholds();
}

void Site::find_house_doors() {
    for (int y = 0; y < plan.height; ++y)
        for (int x = 0; x < plan.width; ++x) {
            const int door = x + (plan.is(x, y, "I") ? 3 : 2);
            if (plan.is(x, y, "HIJ") && open(door, y + 1))
                doors.push_back({{door, y}, 0, false, {door, y + 1}});
        }
}

void Site::find_thresholds() {
    constexpr int apart = 7;
    for (int y = floor.height - 1; y > 0; --y)
        for (int x = 0; x < floor.width; ++x) {
            const bool sill = open(x, y) && open(x, y - 1) && open(x - 1, y) && open(x + 1, y) &&
                              (plan.is(x, y + 1, "#") || (outdoors && !open(x, y + 1)));
            const bool alone = std::ranges::all_of(doors, [&](const Gate& door) {
                return std::abs(door.first.x - x) + std::abs(door.first.y - y) >= apart;
            });
            if (sill && alone)
                doors.push_back({{x, y}, 0, false, {x, y - 1}});
        }
}

std::optional<Gate> Site::way_out(Facing side, int lines, std::string_view letters) const {
    constexpr int longest = 7;
    const bool down = side == Facing::left || side == Facing::right;
    const bool from_end = side == Facing::right || side == Facing::down;
    const int rows = std::min(floor.height, shown_height);
    const int depth = down ? floor.width : rows, across = down ? rows : floor.width;
    const auto place = [&](int in, int along) {
        const int i = from_end ? depth - 1 - in : in;
        return down ? Place{i, along} : Place{along, i};
    };
    const auto leads_out = [&](int in, int along) {
        const Place at = place(in, along), inner = place(in + 1, along);
        return open(at.x, at.y) && open(inner.x, inner.y) &&
               (letters.empty() || plan.is(at.x, at.y, letters));
    };
    for (int in = 0; in < std::min(lines, depth - 1); ++in)
        for (int along = 0; along < across; ++along) {
            int length = 0;
            while (length <= longest && along + length < across && leads_out(in, along + length))
                ++length;
            if (length > 1)
                return Gate{place(in, along), length - 1, down, place(in + 1, along + length / 2)};
        }
    return std::nullopt;
}

Gate Site::edge(Facing side) const {
    std::optional<Gate> way = way_out(side, outdoors ? 3 : 1, ":ck=");
    if (!way && outdoors)
        way = way_out(side, shown_height, "");
    return way.value_or(doors.front());
}

} // namespace veldrune::demo
