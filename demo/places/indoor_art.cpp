#include "demo/places/indoor_art.h"

#include "demo/drawing/random.h"

namespace veldrune::demo::indoor {
namespace {

/// A rectangle with a light upper left, a face and a dark lower right.
struct Part {
    int x, y, w, h;
    Ramp ramp;
    int light, face, dark;
};
constexpr Part flat(int x, int y, int w, int h, Ramp ramp, int shade) {
    return {x, y, w, h, ramp, shade, shade, shade};
}

void add(Picture& p, std::initializer_list<Part> parts) {
    for (const Part& q : parts)
        p.bevel(q.x, q.y, q.w, q.h, q.ramp[q.light], q.ramp[q.face], q.ramp[q.dark]);
}

/// A box seen from above its front: its top is top pixels deep, its front front pixels high.
void box(Picture& p, int x, int y, int w, int top, int front, Ramp ramp) {
    const int light = ramp.count - 1;
    add(p, {flat(x, y, w, top + front, ramp, 0),
            {x + 1, y + 1, w - 2, top - 1, ramp, light, light - 1, light - 1},
            {x + 1, y + top, w - 2, front - 1, ramp, light, light - 2, light - 3}});
}

/// Stones or bricks in courses, light on their upper left.
int masonry(int x, int y, int width, int height) {
    const int course = y / height, shifted = x + (course & 1) * (width / 2);
    if (y % height == height - 1 || shifted % width == width - 1)
        return 0;
    const int own = scatter(shifted / width, course, 1, 4) == 0;
    return 2 + (y % height == 0) + (shifted % width == 0) + own;
}

Picture shelf(auto&& fill_level) {
    Picture p(32, 48);
    add(p, {{0, 2, 32, 45, wood, 3, 2, 0}, flat(0, 45, 32, 2, wood, 0)});
    for (const int y : {6, 19, 32}) {
        add(p, {flat(3, y, 26, 11, wood, 0), flat(3, y + 11, 26, 1, wood, 3)});
        fill_level(p, y);
    }
    return p;
}

} // namespace

std::array<Picture, 4> flame_frames() {
    const auto frame = [](int number) {
        Picture p(16, 16);
        p.fill(0, 2, 16, 14, [number](int x, int y) -> Pixel {
            static constexpr int sway[4] = {0, 1, 0, -1};
            const int reach = y < 11 ? y / 2 - (y > 8) : 15 - y;
            const int inner = reach - std::abs(x - 8 - sway[(y / 3 + number) & 3]);
            return inner < 0 ? Pixel{0} : flame[1 + inner + (y > 8)];
        });
        return p;
    };
    return {frame(0), frame(1), frame(2), frame(3)};
}

// clang-format off
Picture draw_torch() {
    Picture p(16, 32);
    p.draw(flame_frames()[0], 0, 0);
    add(p, {flat(5, 16, 6, 2, iron, 2), {6, 18, 4, 7, iron, 3, 1, 0}, flat(7, 25, 2, 3, iron, 0)});
    return p;
}

Picture draw_hearth() {
    Picture p(48, 48);
    p.fill(0, 0, 48, 48, [](int x, int y) { return stone[masonry(x, y, 10, 6) - (x > 40)]; });
    add(p, {{0, 8, 48, 5, stone, 5, 4, 1}, flat(11, 20, 26, 28, stone, 0)});
    p.fill(13, 22, 22, 26, [](int x, int y) { return iron[(y + x / 5) % 6 == 0]; });
    p.draw(flame_frames()[0], 16, 28);
    add(p, {{15, 43, 10, 3, wood, 3, 1, 0}, {23, 43, 10, 3, wood, 3, 1, 0}});
    return p;
}

Picture draw_column() {
    Picture p(32, 80);
    p.fill(7, 10, 18, 60, [](int x, int y) {
        static constexpr int flutes[18] = {1, 3, 4, 5, 4, 5, 5, 3, 5, 4, 3, 4, 2, 3, 2, 1, 2, 0};
        return stone[flutes[x - 7] - (y < 14)];
    });
    add(p, {{3, 2, 26, 5, stone, 5, 4, 1}, {5, 7, 22, 3, stone, 4, 3, 0},
            {5, 66, 22, 4, stone, 5, 3, 1}, {3, 70, 26, 8, stone, 5, 3, 0}});
    return p;
}

Picture draw_banner() {
    Picture p(16, 48);
    add(p, {{0, 2, 16, 3, timber, 3, 1, 1}});
    p.fill(2, 5, 12, 40, [](int x, int y) -> Pixel {
        static constexpr int folds[12] = {1, 3, 4, 3, 2, 2, 3, 4, 3, 2, 1, 0};
        if (std::min(x - 2, 13 - x) < y - 37)
            return 0;
        return x == 3 || x == 12 || y == 6 ? timber[x == 12 ? 1 : 2] : cloth[folds[x - 2]];
    });
    p.draw(sprite(3, {"...88...", "..8998..", ".8.99.8.", "89999998", "8.9999.8", "..9889..", "..8..8.."}), 4, 16);
    return p;
}

Picture draw_stained_window() {
    Picture p(32, 48);
    p.fill(3, 2, 26, 46, [](int x, int y) -> Pixel {
        const int dx = x < 16 ? 15 - x : x - 16;
        const int round = (y < 15 ? (15 - y) * (15 - y) : 0) + dx * dx;
        if (round > 169)
            return 0;
        if (round > 121 || y > 44)
            return stone[x + y < 24 ? 5 : x < 16 ? 4 : y > 46 ? 1 : 2];
        const int up = dx + y, down = dx - y + 100;
        if (dx == 0 || y % 10 == 4 || up % 10 == 0 || down % 10 == 0)
            return ink(plant_row, 10); // lead
        return ink(plant_row, 1 + 3 * ((y / 10 + up / 10 + down / 10) % 3) + (x + y) % 3);
    });
    return p;
}

Picture draw_throne() {
    Picture p(32, 48);
    add(p, {{4, 2, 24, 34, gold, 3, 2, 0}, flat(7, 5, 18, 30, carpet, 0)});
    p.fill(8, 6, 16, 22, [](int x, int y) {
        const bool tuft = x % 5 == 0 && y % 6 == 2;
        return tuft ? gold[2] : carpet[3 - (x > 19) - (y > 24) + (x < 11)];
    });
    p.draw(sprite(2, {"..9..", ".989.", "98889", ".797."}), 13, 0);
    box(p, 6, 28, 20, 7, 11, carpet);
    add(p, {{3, 24, 5, 20, gold, 3, 2, 0}, {2, 22, 7, 5, gold, 3, 3, 1}, {24, 24, 5, 20, gold, 3, 2, 0},
            {23, 22, 7, 5, gold, 3, 3, 1}, flat(4, 44, 24, 2, gold, 0)});
    return p;
}

Picture draw_armour() {
    const Picture half = sprite(4, {
        ".......2", "......24", ".....246", ".....245", ".....211", ".....245", "......24", "..222234",
        ".2542456", ".2542455", ".2442455", ".1221245", ".2442234", ".2542.22", ".2542.24", ".122..24",
        ".....245", ".....245", ".....24.", ".....24.", ".....24.", "....2442", "....2552", "...11111",
        "..133333", "..122222", "..111111"});
    Picture p(16, 32);
    p.draw(mirrored(half, true, false), 8, 4);
    p.fill(8, 4, 8, 27, [&](int x, int y) -> Pixel { // the shaded side
        return p.at(x, y) > ink(4, 2) ? static_cast<Pixel>(p.at(x, y) - 1) : Pixel{0};
    });
    p.draw(half, 0, 4);
    return p;
}

Picture draw_candelabrum() {
    Picture p(16, 32);
    for (const auto& [x, y] : {std::pair{2, 4}, {7, 1}, {12, 4}})
        add(p, {flat(x, y + 4, 2, 5, flame, 5), flat(x, y + 1, 2, 3, flame, 4), flat(x, y, 1, 1, flame, 3),
                flat(x - 1, y + 9, 4, 1, flame, 3)});
    add(p, {{2, 14, 12, 2, flame, 3, 3, 1}, {7, 10, 2, 18, flame, 3, 3, 2}, {4, 28, 8, 2, flame, 4, 2, 2},
            flat(4, 30, 8, 1, iron, 0)});
    return p;
}

Picture draw_table() {
    Picture p(48, 32);
    add(p, {{4, 20, 4, 11, wood, 3, 1, 0}, {40, 20, 4, 11, wood, 3, 1, 0}});
    box(p, 1, 2, 46, 18, 6, wood);
    add(p, {flat(2, 7, 44, 1, wood, 1), flat(2, 12, 44, 1, wood, 1), flat(2, 17, 44, 1, wood, 1)});
    p.fill(14, 2, 20, 22, [](int x, int y) { // runner
        const bool hem = x == 14 || x == 33 || y > 21;
        return linen[hem ? 1 : y > 19 || (x + y) % 7 == 0 ? 2 : 3];
    });
    p.draw(sprite(item_row, {"..ee..", ".eeee.", "edddde", ".eeee."}), 5, 8);
    p.draw(sprite(item_row, {".22.", "2342", "2332", ".22."}), 38, 7);
    p.draw(sprite(item_row, {".aa.", "a99a", "9889", ".88."}), 22, 9);
    return p;
}

Picture draw_chair() {
    Picture p(16, 24);
    add(p, {{3, 1, 10, 12, wood, 3, 2, 0}, flat(5, 4, 2, 7, wood, 0), flat(9, 4, 2, 7, wood, 0),
            {2, 19, 3, 4, wood, 2, 1, 0}, {11, 19, 3, 4, wood, 2, 1, 0}});
    box(p, 2, 11, 12, 5, 4, wood);
    return p;
}

Picture draw_bed() {
    Picture p(32, 48);
    add(p, {{1, 1, 30, 12, timber, 3, 2, 0}, flat(3, 3, 26, 2, timber, 3), flat(2, 11, 28, 33, timber, 0),
            {3, 11, 26, 12, linen, 3, 2, 1}, {6, 10, 20, 8, linen, 3, 3, 1}});
    p.fill(3, 23, 26, 17, [](int x, int y) {
        const bool seam = (x + y) % 8 == 0 || (x - y + 80) % 8 == 0;
        return cloth[seam ? 1 : 2 + (x < 9) + (x < 22) - (y > 37)];
    });
    add(p, {{1, 38, 30, 9, timber, 3, 2, 0}});
    return p;
}

Picture draw_bookshelf() {
    return shelf([](Picture& p, int y) {
        for (int x = 4; x < 28;) {
            const int width = std::min(2 + scatter(x, y, 4, 2), 28 - x), tall = 7 + scatter(x, y, 5, 3);
            p.rect(x, y + 11 - tall, width, tall, ink(plant_row, 11 + scatter(x, y, 6, 5)));
            p.rect(x, y + 13 - tall, width, 1, ink(plant_row, 10));
            x += width + (scatter(x, y, 8, 6) == 0 ? 3 : 0);
        }
    });
}

Picture draw_jar_shelf() {
    return shelf([](Picture& p, int y) {
        for (int x = 5; x < 26; x += 8)
            p.draw(sprite(plant_row, {"..89..", ".7..7.", "..99..", ".8999.", "789997", "788997", ".7887."}), x, y + 4);
    });
}

Picture draw_barrel() {
    Picture p(16, 24);
    p.fill(1, 1, 14, 21, [](int x, int y) -> Pixel {
        const int bulge = y > 5 && y < 18 ? 0 : 1;
        if (x < 1 + bulge || x > 14 - bulge)
            return 0;
        if (y < 6) { // lid
            const int dx = x - 8, dy = (y - 3) * 2;
            return dx * dx + dy * dy * 2 > 44 ? Pixel{0} : wood[x % 4 == 0 ? 1 : dx + dy < -3 ? 3 : 2];
        }
        if (y % 9 == 8 || y % 9 == 0)
            return stone[x < 5 ? 4 : x < 11 ? 2 : 0]; // hoops
        return wood[x < 3 ? 2 : x < 6 ? 3 : x % 4 == 2 ? 0 : x < 11 ? 2 : 1];
    });
    add(p, {flat(3, 22, 10, 1, wood, 0)});
    return p;
}

Picture draw_crate() {
    Picture p(16, 24);
    box(p, 1, 3, 14, 7, 13, wood);
    for (int i = 0; i < 9; ++i)
        p.rect(3 + i, 11 + i, 2, 1, wood[3]);
    add(p, {flat(2, 20, 12, 1, wood, 3)});
    return p;
}

Picture draw_potted_plant() {
    static constexpr Puff puffs[] = {{8, 7, 5}, {4, 11, 4}, {12, 11, 4}, {8, 13, 4}};
    constexpr Ramp clay{ink(plant_row, 7), 4};
    Picture p(16, 32);
    p.fill(4, 18, 9, 12, [=](int x, int y) -> Pixel {
        const int taper = (y - 18) / 4;
        if (x < 4 + taper || x > 12 - taper)
            return 0;
        return clay[y < 20 ? 3 : y == 20 ? 0 : x < 7 ? 2 : x < 10 ? 1 : 0];
    });
    draw_foliage(p, puffs, {ink(plant_row, 1), 6});
    return p;
}

Picture draw_window() {
    Picture p(32, 32);
    add(p, {{4, 3, 24, 25, timber, 3, 2, 0}});
    p.fill(7, 6, 18, 19, [](int x, int y) { return ink(3, (x + y) % 16 > 3 && (x + y) % 16 < 7 ? 15 : 14); });
    add(p, {flat(15, 6, 2, 19, timber, 2), flat(7, 14, 18, 2, timber, 2), {2, 27, 28, 4, timber, 3, 2, 0}});
    for (const int x : {3, 23}) // curtains
        p.fill(x, 4, 7, 19, [x](int i, int y) { return cloth[(i - x) % 3 == 2 ? 1 : (i - x) % 3 + 2 - (y > 20)]; });
    add(p, {flat(2, 2, 28, 2, timber, 1)});
    return p;
}

Picture draw_painting() {
    Picture p(32, 32);
    p.bevel(4, 4, 24, 18, ink(item_row, 10), ink(item_row, 9), ink(item_row, 8));
    p.fill(7, 7, 18, 12, [](int x, int y) {
        const int hill = 13 + (x - 11) * (x - 11) / 12;
        return ink(item_row, y > hill + 2 ? 15 : y > hill ? 10 : y > 10 ? 7 : 6);
    });
    return p;
}

Picture draw_clock() {
    Picture p(16, 48);
    add(p, {{2, 4, 12, 42, wood, 3, 2, 0}, flat(1, 3, 14, 3, wood, 3), flat(1, 44, 14, 3, wood, 1),
            flat(5, 18, 6, 20, wood, 0), flat(7, 18, 1, 14, stone, 3)});
    p.draw(sprite(4, {".5666.", "566165", "666166", "666116", "566665", ".5555."}), 5, 8);
    p.draw(sprite(4, {".44.", "4554", ".44."}), 6, 31);
    return p;
}

Picture draw_chest() {
    Picture p(16, 16);
    box(p, 1, 2, 14, 5, 9, wood);
    add(p, {flat(1, 7, 14, 1, wood, 0), flat(3, 3, 2, 12, stone, 4), flat(11, 3, 2, 12, stone, 4),
            flat(7, 6, 3, 4, stone, 5), flat(8, 8, 1, 1, stone, 0)});
    return p;
}
// clang-format on

} // namespace veldrune::demo::indoor
