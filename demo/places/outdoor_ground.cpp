#include "demo/drawing/random.h"
#include "demo/places/outdoor_art.h"

#include <utility>

namespace veldrune::demo::outdoor {
namespace {

constexpr Ramp water{ink(water_row, 1), 6};
constexpr Ramp bank{ink(water_row, 7), 4};
constexpr Ramp shore_grass{ink(water_row, 11), 5};
constexpr Ramp cobble_grass{ink(stone_row, 11), 5};

// Marks on grass, by value in the ground row: blades, tufts and flowers.
const Picture& mark(int number) {
    static const std::array<Picture, 10> marks{
        sprite(ground_row, {"4.", "2."}),
        sprite(ground_row, {".4.", "4.4", ".2."}),
        sprite(ground_row, {"5..4", ".44.", ".22."}),
        sprite(ground_row, {"2.2", ".2."}),
        sprite(ground_row, {".c.", "cdc", ".c.", ".2."}),
        sprite(ground_row, {"d.", "2d", ".2"}),
        sprite(ground_row, {".e.", "ede", ".e.", ".2."}),
        sprite(ground_row, {".f.", "fcf", ".f.", ".2."}),
        sprite(ground_row, {"22"}),
        sprite(ground_row, {"4"}),
    };
    return marks[static_cast<std::size_t>(number)];
}

struct Mark {
    int number, x, y;
};
// clang-format off
constexpr Mark grass_marks[12][6] = {
    {{1,2,3}, {3,9,8}, {0,13,2}, {3,4,12}},
    {{0,3,2}, {1,10,5}, {3,2,10}, {0,12,13}},
    {{2,9,3}, {2,2,9}, {1,11,10}, {3,6,13}},
    {{1,6,2}, {0,2,8}, {3,10,12}, {1,12,7}},
    {{8,3,3}, {8,11,6}, {9,6,10}, {8,5,13}, {9,13,2}}, {}, {}, {}, // 5 to 7 mirror 4
    {{4,2,3}, {4,9,8}, {5,12,2}, {1,4,11}},
    {{5,3,4}, {5,10,3}, {5,7,10}, {0,12,12}, {1,2,11}},
    {{6,10,2}, {6,3,8}, {1,4,2}, {0,11,12}},
    {{7,3,2}, {7,10,9}, {4,4,10}, {1,11,3}},
};
// clang-format on

/// Grass as it looks in the palette row of grass.
Pixel grass_pixel(const Picture& tile, int x, int y, Ramp ramp) {
    return ramp[std::min(tile.at(x, y) - grass.darkest, ramp.count - 1)];
}

/// The rim where grass hangs over lower ground: darker blades just before the edge.
Pixel grass_rim(Shape shape, const Picture& tile, int x, int y, Ramp ramp) {
    const bool above = shape.inside(x, y + 1) && y < 15;
    const bool near = above || (y < 14 && shape.inside(x, y + 2)) ||
                      (x < 15 && shape.inside(x + 1, y)) || (x > 0 && shape.inside(x - 1, y)) ||
                      (y > 0 && shape.inside(x, y - 1));
    if (above && x % 3 != 1)
        return ramp[0];
    return near ? ramp[x % 3 == 0 ? 3 : 1] : grass_pixel(tile, x, y, ramp);
}

/// The step from the ground at (x, y) towards the upper left that leaves it, at most 2; else 3.
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
    static const Picture plain = draw_grass(plain_grass);
    Picture picture(16, 16);
    picture.fill(0, 0, 16, 16, [&](int x, int y) -> Pixel {
        return shape.inside(x, y) ? inside(x, y) : grass_rim(shape, plain, x, y, grass_ramp);
    });
    return picture;
}

} // namespace

Picture draw_grass(int variant) {
    if (variant > plain_grass && variant < 8)
        return mirrored(draw_grass(plain_grass), variant & 1, variant & 2);
    Picture picture(16, 16, grass[2]);
    for (const Mark& m : grass_marks[variant])
        if (m.x != 0)
            picture.draw(mark(m.number), m.x, m.y);
    return picture;
}

Picture draw_path(Shape shape, int variant) {
    // Each lies within one quadrant.
    static constexpr Mark pebbles[3][2] = {
        {{0, 2, 3}, {1, 11, 10}}, {{1, 12, 3}, {2, 3, 11}}, {{2, 10, 2}, {2, 2, 13}}};
    static const Picture pebble[3] = {sprite(ground_row, {".aa.", "a998", ".77."}),
                                      sprite(ground_row, {"aa", "87"}),
                                      sprite(ground_row, {"8..", ".88"})};
    Picture picture = draw_ground(shape, grass, [&](int x, int y) {
        const int edge = lit_edge(shape, x, y);
        return soil[edge == 3 && far_edge(shape, x, y) ? 4 : edge];
    });
    const auto whole = [shape](int x, int y) {
        return shape.inside(x, y) && shape.inside(x + 7, y) && shape.inside(x, y + 7) &&
               shape.inside(x + 7, y + 7) && lit_edge(shape, x, y) > 2;
    };
    for (const Mark& m : pebbles[variant % 3])
        if (whole(m.x & 8, m.y & 8))
            picture.draw(pebble[m.number], m.x, m.y);
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

std::array<Picture, 4> water_frames() {
    // Crests: place, length and height of the light; they drift from frame to frame.
    static constexpr std::array<int, 4> crests[] = {
        {1, 2, 5, 4}, {9, 5, 4, 3}, {4, 9, 6, 4}, {12, 12, 4, 3}, {0, 14, 3, 3}};
    std::array<Picture, 4> frames{Picture(16, 16, water[2]), Picture(16, 16, water[2]),
                                  Picture(16, 16, water[2]), Picture(16, 16, water[2])};
    for (int f = 0; f < 4; ++f)
        for (const auto& [x, y, length, light] : crests)
            for (int i = 0; i < length; ++i) {
                Picture& frame = frames[static_cast<std::size_t>(f)];
                const int bend = i == 0 || i == length - 1 ? 1 : 0;
                frame.set((x + i + 2 * f) & 15, y + bend, water[light]);
                frame.set((x + i + 2 * f) & 15, (y + bend + 1) & 15, water[1]);
            }
    return frames;
}

Picture draw_water(Shape shape, int) {
    static const Picture still = water_frames()[0];
    return draw_ground(shape, shore_grass, [&](int x, int y) {
        const int t = shape.from_top(x, y, 11);
        if (t <= 7)
            return bank[t == 1 ? 3 : t >= 6 ? 0 : 1 + scatter(x / 2, 0, 5, 2) - (t > 3)];
        if (t <= 10)
            return water[t == 8 ? 0 : t == 9 ? 4 : 1];
        if (far_edge(shape, x, y))
            return water[5];
        const int edge = lit_edge(shape, x, y);
        return edge < 3 ? (edge == 1 ? bank[0] : water[0]) : still.at(x, y);
    });
}

Picture draw_tall_grass(Shape shape, int variant) {
    Picture picture = draw_grass(plain_grass);
    for (int row = 0; row < 4; ++row)
        for (int i = 0; i < 4; ++i) {
            const int x = i * 4 + (row & 1) * 2 + scatter(i, row, variant, 2);
            const int y = row * 4 + 2;
            if (!shape.inside(x, y))
                continue;
            picture.draw(sprite(ground_row, {"5..4", "4.4.", "2442", ".22."}), x - 1, y - 2);
        }
    return picture;
}

Picture draw_bridge() {
    Picture p(16, 16);
    p.fill(0, 0, 16, 16, [&](int x, int y) {
        const int shade = x % 5 == 4 ? 0 : x % 5 == 0 ? 3 : 2;
        return wood[y < 2 || y > 13 ? (y == 0 || y == 13 || y == 14 ? 3 : 0)
                                    : shade - (y == 2 || scatter(x / 5, y, 4, 9) == 0)];
    });
    return p;
}

} // namespace veldrune::demo::outdoor
