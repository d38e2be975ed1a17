#include "demo/assets/pictures/indoors.h"
#include "demo/assets/plans/cottage.h"
#include "demo/assets/plans/hall.h"
#include "demo/places/scenery.h"

namespace veldrune::demo {
namespace {

constexpr Ramp wall{ink(1, 6), 5}, carpet{ink(2, 1), 5}, gold{ink(2, 6), 4};

consteval DrawnPicture indoor(std::string_view name) {
    return picture(assets::indoors, name);
}

Picture dark_top(Shape shape, int) {
    Picture p(16, 16);
    p.fill(0, 0, 16, 16, [&](int x, int y) {
        const auto off = [&](int dx, int dy) {
            static constexpr int sides[2][2] = {{8, 2}, {1, 4}};
            const bool out_x = x + dx < 0 || x + dx > 15, out_y = y + dy < 0 || y + dy > 15;
            const bool gone_x = out_x && (shape.mask & sides[0][dx > 0]) == 0;
            const bool gone_y = out_y && (shape.mask & sides[1][dy > 0]) == 0;
            const int corner = dx > 0 ? (dy > 0 ? 32 : 16) : (dy > 0 ? 64 : 128);
            return gone_x || gone_y || (out_x && out_y && (shape.mask & corner) == 0);
        };
        for (int step = 1; step <= 4; ++step)
            for (const int dx : {-step, 0, step})
                for (const int dy : {-step, 0, step})
                    if ((dx != 0 || dy != 0) && off(dx, dy))
                        return step == 1 ? wall[4] : step < 4 ? wall[2] : wall[0];
        return Pixel{0}; // empty: a layer 3 below may be visible
    });
    return p;
}

// A carpet with a golden border.
Picture draw_carpet(Shape shape, int) {
    Picture p(16, 16);
    p.fill(0, 0, 16, 16, [&](int x, int y) {
        int edge = 9;
        const auto side = [&](int bit, int distance) {
            if ((shape.mask & bit) == 0)
                edge = std::min(edge, distance);
        };
        side(8, x), side(2, 15 - x), side(1, y), side(4, 15 - y);
        side(128, std::max(x, y)), side(16, std::max(15 - x, y));
        side(64, std::max(x, 15 - y)), side(32, std::max(15 - x, 15 - y));
        if (edge < 1)
            return carpet[0];
        if (edge < 4)
            return gold[edge == 1 ? 3 : edge == 2 ? 2 : 0];
        const int diamond = std::abs(x - 8) + std::abs(y - 8);
        return carpet[edge == 4 ? 1 : diamond == 4 ? 3 : diamond < 2 ? 4 : 2];
    });
    return p;
}

// clang-format off
constexpr GroundArt grounds[] = {{"kXUj", "kXUj", draw_carpet}};
constexpr PropArt props[] = {
    {'t', indoor("torch")},           {'g', indoor("banner")},        {'v', indoor("stained_window")},
    {'S', indoor("steps")},           {'C', indoor("column"), 56},    {'X', indoor("throne"), 24},
    {'K', indoor("armour"), 16},      {'L', indoor("candelabrum"), 16},
    {'T', indoor("table")},           {'U', indoor("table")},         {'h', indoor("chair")},
    {'j', indoor("chair")},           {'d', indoor("bed")},           {'B', indoor("bookshelf"), 16},
    {'J', indoor("jar_shelf"), 16},   {'w', indoor("window")},        {'a', indoor("painting")},
    {'H', indoor("hearth")},          {'q', indoor("clock"), 16},     {'c', indoor("chest")},
    {'P', indoor("potted_plant"), 16}, {'o', indoor("barrel"), 8},    {'x', indoor("crate"), 8},
};
constexpr Furnishing hall_furniture[] = {
    {'t', 1, true},  {'v', 2, true},  {'g', 1, true},  {'g', 1, true},  {'C', 2, false},
    {'C', 2, false}, {'K', 1, false}, {'L', 1, false}, {'T', 3, false}};
constexpr Furnishing house_furniture[] = {
    {'w', 2, true},  {'B', 2, true},  {'H', 3, true},  {'q', 1, true},  {'J', 2, true},  {'T', 3, false},
    {'h', 1, false}, {'d', 2, false}, {'o', 1, false}, {'x', 1, false}, {'P', 1, false}, {'c', 1, false}};

constexpr std::array flames = pictures<4>(assets::indoors, "flame");
constexpr WallArt hall_walls{3, indoor("castle_wall"), indoor("marble"), 4, dark_top};
constexpr WallArt house_walls{3, indoor("house_wall"), indoor("planks"), 1, dark_top};
// clang-format on

Plan castle_plan(int layout, int width, int height, Random& random) {
    return layout == 0 ? Plan(assets::hall)
                       : rooms_plan(width, height, hall_walls.height, hall_furniture, random);
}

Plan interior_plan(int layout, int width, int height, Random& random) {
    return layout == 0 ? Plan(assets::cottage)
                       : rooms_plan(width, height, house_walls.height, house_furniture, random);
}

} // namespace

const PlaceArt castle_art{flames, castle_plan, &hall_walls, grounds, props};
const PlaceArt interior_art{flames, interior_plan, &house_walls, grounds, props};

} // namespace veldrune::demo
