#include "demo/drawing/random.h"
#include "demo/places/outdoor_art.h"

#include <utility>

namespace veldrune::demo::outdoor {
namespace {

constexpr Ramp waves{ink(water_row, 1), 6};
constexpr Ramp bank{ink(water_row, 7), 4};
constexpr Ramp shore_grass{ink(water_row, 11), 5};
constexpr Ramp cobble_grass{ink(stone_row, 11), 5};

// A pixel of grass, in another palette row's ramp.
Pixel grass_pixel(const Picture& tile, int x, int y, Ramp ramp) {
    return ramp[std::min(tile.at(x, y) - grass.darkest, ramp.count - 1)];
}

// A pixel of grass; near the edge to the ground of shape its blades are darker.
Pixel grass_rim(Shape shape, const Picture& tile, int x, int y, Ramp ramp) {
    const bool above = shape.inside(x, y + 1) && y < 15;
    const bool near = above || (y < 14 && shape.inside(x, y + 2)) ||
                      (x < 15 && shape.inside(x + 1, y)) || (x > 0 && shape.inside(x - 1, y)) ||
                      (y > 0 && shape.inside(x, y - 1));
    if (above && x % 3 != 1)
        return ramp[0];
    return near ? ramp[x % 3 == 0 ? 3 : 1] : grass_pixel(tile, x, y, ramp);
}

// The distance, 1 or 2, at which the ground ends to the left of or above (x, y); 3 if further.
int lit_edge(Shape shape, int x, int y) {
    for (int step = 1; step <= 2; ++step)
        if ((x >= step && !shape.inside(x - step, y)) || (y >= step && !shape.inside(x, y - step)))
            return step;
    return 3;
}

bool far_edge(Shape shape, int x, int y) {
    return (x < 15 && !shape.inside(x + 1, y)) || (y < 15 && !shape.inside(x, y + 1));
}

Picture draw_ground(Shape shape, Ramp grass_ramp, auto&& inside) {
    static const Picture plain = meadow[4].draw();
    Picture picture(16, 16);
    picture.fill(0, 0, 16, 16, [&](int x, int y) -> Pixel {
        return shape.inside(x, y) ? inside(x, y) : grass_rim(shape, plain, x, y, grass_ramp);
    });
    return picture;
}

} // namespace

Picture draw_path(Shape shape, int variant) {
    // Each pebble is inside one quadrant.
    struct Pebble {
        std::size_t number;
        int x, y;
    };
    static constexpr std::array pebbles = pictures<3>(assets::outdoors, "pebble");
    static constexpr Pebble places[3][2] = {
        {{0, 2, 3}, {1, 11, 10}}, {{1, 12, 3}, {2, 3, 11}}, {{2, 10, 2}, {2, 2, 13}}};
    Picture picture = draw_ground(shape, grass, [&](int x, int y) {
        const int edge = lit_edge(shape, x, y);
        return soil[edge == 3 && far_edge(shape, x, y) ? 4 : edge];
    });
    const auto whole = [shape](int x, int y) {
        return shape.inside(x, y) && shape.inside(x + 7, y) && shape.inside(x, y + 7) &&
               shape.inside(x + 7, y + 7) && lit_edge(shape, x, y) > 2;
    };
    for (const Pebble& pebble : places[variant % 3])
        if (whole(pebble.x & 8, pebble.y & 8))
            picture.draw(pebbles[pebble.number].draw(), pebble.x, pebble.y);
    return picture;
}

Picture draw_paving(Shape shape, int variant) {
    static constexpr std::array<int, 2> centres[] = {{3, 3},  {9, 2},   {14, 6}, {7, 8},
                                                     {1, 10}, {12, 12}, {6, 14}};
    return draw_ground(shape, cobble_grass, [&](int x, int y) {
        const Stone stone = stone_at(x, y, centres, 16);
        const int worn = scatter(stone.number, variant, 3, 3) - 1;
        if (stone.depth < 10)
            return cobble[lit_edge(shape, x, y) < 2 ? 0 : 1];
        return cobble[3 + (stone.light > 2) - (stone.light < -2) + (worn > 0 && stone.light > 2)];
    });
}

Picture draw_water(Shape shape, int) {
    static const Picture still = water.front().draw();
    return draw_ground(shape, shore_grass, [&](int x, int y) {
        const int t = shape.from_top(x, y, 11);
        if (t <= 7)
            return bank[t == 1 ? 3 : t >= 6 ? 0 : 1 + scatter(x / 2, 0, 5, 2) - (t > 3)];
        if (t <= 10)
            return waves[t == 8 ? 0 : t == 9 ? 4 : 1];
        if (far_edge(shape, x, y))
            return waves[5];
        const int edge = lit_edge(shape, x, y);
        return edge < 3 ? (edge == 1 ? bank[0] : waves[0]) : still.at(x, y);
    });
}

Picture draw_tall_grass(Shape shape, int variant) {
    static const Picture blades = outdoor_picture("blades").draw();
    Picture picture = meadow[4].draw();
    for (int row = 0; row < 4; ++row)
        for (int i = 0; i < 4; ++i) {
            const int x = i * 4 + (row & 1) * 2 + scatter(i, row, variant, 2);
            const int y = row * 4 + 2;
            if (!shape.inside(x, y))
                continue;
            picture.draw(blades, x - 1, y - 2);
        }
    return picture;
}

Picture draw_field(Shape shape, int variant) {
    Picture p = draw_path(shape, 3);
    p.fill(0, 0, 16, 16, [&](int x, int y) -> Pixel {
        return shape.inside(x, y) ? soil[y % 8 == 0   ? 0
                                         : y % 8 < 3  ? 1
                                         : y % 8 == 7 ? 1
                                                      : 2]
                                  : Pixel{0};
    });
    static const Picture plant = outdoor_picture("plant").draw();
    static const Picture sprout = outdoor_picture("sprout").draw();
    for (const int y : {2, 10})
        for (const int x : {1, 9})
            p.draw(variant == 0 ? sprout : plant, x + (variant == 0 ? 1 : 0),
                   y + (variant == 0 ? 2 : 0));
    return p;
}

Picture draw_pit(Shape shape, int) {
    const Ramp rock = soil;
    Picture p = draw_path(shape, 3);
    p.fill(0, 0, 16, 16, [&](int x, int y) -> Pixel {
        if (!shape.inside(x, y))
            return 0;
        const int t = shape.from_top(x, y, 15);
        if (t == 15)
            return ink(ground_row, 15);
        const int shade = t < 3 ? 3 : t < 7 ? 2 : t < 11 ? 1 : 0;
        return dither(x, y, t > 11 ? 16 - 3 * (t - 11) : 16) ? rock[shade - (x % 5 == 0)]
                                                             : ink(ground_row, 15);
    });
    return p;
}

} // namespace veldrune::demo::outdoor
