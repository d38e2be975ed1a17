#include "demo/drawing/random.h"
#include "demo/places/outdoor_art.h"

namespace veldrune::demo::outdoor {
namespace {

// The row of blue houses has all that water works need: water, wood, stone.
constexpr Ramp basin_water{ink(blue_house_row, 1), 5};
constexpr Ramp beam{ink(blue_house_row, 6), 4};
constexpr Ramp masonry{ink(blue_house_row, 10), 4};

/// A round wall seen from above its front: half axes rx and ry, front pixels high.
void draw_basin(Picture& p, int cx, int cy, int rx, int ry, int front) {
    const auto within = [=](int x, int y, int less) {
        const int a = rx - less, b = ry - less;
        return (x - cx) * (x - cx) * b * b + (y - cy) * (y - cy) * a * a <= a * a * b * b;
    };
    p.fill(0, 0, p.width, p.height, [&](int x, int y) -> Pixel {
        if (within(x, y, 4))
            return basin_water[y < cy - ry / 3 ? 0 : (x + 2 * y) % 9 < 3 && y % 3 == 0 ? 4 : 2];
        if (within(x, y, 0))
            return masonry[within(x, y, 3) ? 1 : (x + y < cx + cy) ? 3 : 2];
        for (int step = 1; step <= front; ++step)
            if (y > cy && within(x, y - step, 0)) {
                const bool joint = step % 4 == 0 || (x + (step / 4 & 1) * 4) % 8 == 0;
                return masonry[joint || step == front ? 0 : x < cx - rx / 2 ? 2 : 1];
            }
        return 0;
    });
}

} // namespace

Picture draw_fountain() {
    Picture p(48, 48);
    draw_basin(p, 24, 30, 23, 11, 6);
    p.bevel(20, 14, 8, 18, masonry[3], masonry[2], masonry[0]);
    draw_basin(p, 24, 13, 11, 5, 3);
    p.bevel(22, 4, 5, 8, masonry[3], masonry[2], masonry[0]);
    // Jets: out of the top and over the rim of the bowl.
    for (int i = 0; i < 9; ++i)
        for (const int side : {-1, 1})
            p.set(24 + side * (2 + i), 3 + i * i / 7, basin_water[i % 3 == 2 ? 3 : 4]);
    for (const int x : {14, 18, 30, 34})
        p.fill(x, 17, 1, 12, [x](int, int y) { return basin_water[(y + x) % 4 == 0 ? 3 : 4]; });
    p.rect(23, 2, 3, 3, basin_water[4]);
    return p;
}

Picture draw_well() {
    Picture p(32, 48);
    draw_basin(p, 16, 33, 13, 7, 7);
    for (const int x : {4, 25}) {
        p.rect(x, 12, 3, 24, beam[2]);
        p.rect(x, 12, 1, 24, beam[3]);
        p.rect(x + 2, 12, 1, 24, beam[0]);
    }
    p.rect(15, 16, 1, 15, beam[3]); // rope and bucket
    p.bevel(13, 26, 6, 6, beam[3], beam[2], beam[0]);
    p.fill(0, 2, 32, 15, [](int x, int y) -> Pixel { // roof
        const int inset = (16 - y) / 2;
        if (x < inset || x >= 32 - inset)
            return 0;
        return y == 16 ? beam[0]
                       : beam[y % 5 == 1                 ? 0
                              : (x + y / 5 * 3) % 6 == 0 ? 1
                              : y % 5 == 2               ? 3
                                                         : 2];
    });
    return p;
}

Picture draw_stall() {
    const Ramp cloth{ink(red_house_row, 1), 5}, post{ink(red_house_row, 6), 4},
        white{ink(red_house_row, 10), 4};
    Picture p(48, 48);
    for (const int x : {3, 42})
        p.bevel(x, 14, 3, 32, post[3], post[2], post[0]);
    p.bevel(2, 30, 44, 16, post[3], post[1], post[0]);
    p.rect(2, 30, 44, 4, post[3]);
    for (int x = 6; x < 44; x += 7)
        p.rect(x, 35, 1, 10, post[0]);
    for (int i = 0; i < 9; ++i) { // fruit in two rows
        const Ramp& fruit = i % 3 == 1 ? white : cloth;
        p.bevel(5 + i * 9 / 2, 26 + i % 2, 4, 4, fruit[4], fruit[3], fruit[1]);
    }
    p.fill(0, 4, 48, 18, [&](int x, int y) -> Pixel { // awning with a scalloped hem
        const int stripe = x / 6 % 2, in = x % 6;
        if (y > 19 - (in == 0 || in == 5) * 2 - (in == 1 || in == 4))
            return 0;
        const int shade = (y < 6) + (y > 15 ? -1 : 0) - (y > 18);
        return stripe ? white[2 + shade] : cloth[3 + shade];
    });
    p.rect(0, 3, 48, 1, post[0]);
    return p;
}

Picture draw_lamp() {
    Picture p(16, 32);
    p.rect(7, 10, 3, 18, ink(item_row, 1));
    p.rect(8, 10, 1, 18, ink(item_row, 13));
    p.bevel(5, 27, 7, 4, ink(item_row, 13), ink(item_row, 13), ink(item_row, 1));
    p.draw(sprite(item_row,
                  {".....11.....", "....1881.....", "...111111...", "..19aaaa91..", "..1aaeea91..",
                   "..1aaeea91..", "...19aa91...", "...111111...", "....1dd1...."}),
           2, 1);
    return p;
}

Picture draw_sign() {
    Picture p(16, 16);
    p.bevel(7, 8, 3, 8, wood[3], wood[2], wood[0]);
    p.bevel(1, 1, 14, 9, wood[3], wood[2], wood[0]);
    p.rect(3, 4, 9, 1, wood[0]);
    p.rect(3, 6, 7, 1, wood[0]);
    return p;
}

Picture draw_flower_bed() {
    static const Picture heads[3] = {sprite(ground_row, {".e.", "ede", ".e."}),
                                     sprite(ground_row, {".d.", "dcd", ".d."}),
                                     sprite(ground_row, {".f.", "fcf", ".f."})};
    Picture p(16, 16);
    p.bevel(0, 3, 16, 13, soil[3], soil[1], soil[0]);
    p.fill(1, 4, 14, 11,
           [](int x, int y) { return (x * 3 + y * 5) % 7 < 3 ? grass[1] : grass[0]; });
    for (int i = 0; i < 6; ++i) {
        const int x = 1 + i % 3 * 5 + i / 3, y = 3 + i / 3 * 6;
        p.rect(x + 1, y + 2, 1, 3, grass[4]);
        p.draw(heads[(i * 2 + i / 3) % 3], x, y);
    }
    return p;
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
    static const Picture plant =
        sprite(ground_row, {".44.4.", "454454", "245542", "124421", ".1221."});
    static const Picture sprout = sprite(ground_row, {"4..4", ".45.", ".22."});
    for (const int y : {2, 10})
        for (const int x : {1, 9})
            p.draw(variant == 0 ? sprout : plant, x + (variant == 0 ? 1 : 0),
                   y + (variant == 0 ? 2 : 0));
    return p;
}

Picture draw_hedge(Shape shape, int) {
    std::vector<Puff> puffs{{8, 8, 7}};
    const std::array<Puff, 4> arms{{{8, 1, 6}, {15, 8, 6}, {8, 14, 6}, {1, 8, 6}}};
    for (std::size_t i = 0; i < arms.size(); ++i)
        if (shape.mask >> i & 1)
            puffs.insert(i == 2 ? puffs.end() : puffs.begin(), arms[i]);
    Picture p(16, 16);
    draw_foliage(p, puffs, {ink(tree_row, 1), 6});
    p.fill(0, 12, 16, 4, [&](int x, int y) -> Pixel {
        return p.at(x, y) == 0 || (shape.mask & 4) ? Pixel{0} : ink(tree_row, y > 13 ? 1 : 2);
    });
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
