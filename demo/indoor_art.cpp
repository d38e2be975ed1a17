#include "demo/indoor_art.h"

#include "demo/random.h"

namespace veldrune::demo::indoor {

void box(Picture& p, int x, int y, int w, int top, int front, Ramp ramp) {
    const int light = ramp.count - 1;
    p.rect(x, y, w, top + front, ramp[0]);
    p.rect(x + 1, y + 1, w - 2, top - 1, ramp[light - 1]);
    p.rect(x + 1, y + 1, w - 2, 1, ramp[light]);
    p.rect(x + 1, y + top, w - 2, 1, ramp[light]);
    p.rect(x + 1, y + top + 1, w - 2, front - 2, ramp[light - 2]);
    p.rect(x + w - 2, y + top + 1, 1, front - 2, ramp[light - 3]);
}

std::array<Picture, 4> flame_frames() {
    std::array<Picture, 4> frames{Picture(16, 16), Picture(16, 16), Picture(16, 16),
                                  Picture(16, 16)};
    for (int f = 0; f < 4; ++f)
        frames[static_cast<std::size_t>(f)].fill(0, 0, 16, 16, [f](int x, int y) -> Pixel {
            static constexpr int sway[4] = {0, 1, 0, -1};
            const int dx = x - 8 - sway[(y / 3 + f) & 3];
            const int reach = y < 11 ? y / 2 - (y > 8) : 15 - y;
            const int inner = reach - (dx < 0 ? -dx : dx);
            return y < 2 || inner < 0 ? Pixel{0} : flame[std::min(5, 1 + inner + (y > 8))];
        });
    return frames;
}

Picture draw_torch() {
    Picture p(16, 32);
    p.draw(flame_frames()[0], 0, 0);
    p.rect(5, 16, 6, 2, iron[2]);
    p.rect(6, 18, 4, 7, iron[1]);
    p.rect(6, 18, 1, 7, iron[3]);
    p.rect(9, 18, 1, 7, iron[0]);
    p.rect(7, 25, 2, 3, iron[0]);
    return p;
}

Picture draw_hearth() {
    Picture p(48, 48);
    p.fill(0, 0, 48, 48, [](int x, int y) {
        const int row = y / 6, lx = (x + (row & 1) * 5) % 10;
        if (y % 6 == 5 || lx == 9)
            return stone[0];
        return stone[2 + (y % 6 == 0) + (lx == 0) - (x > 40) +
                     (scatter((x + (row & 1) * 5) / 10, row, 1, 4) == 0)];
    });
    p.bevel(0, 8, 48, 5, stone[5], stone[4], stone[1]);
    p.rect(11, 20, 26, 28, stone[0]);
    p.fill(13, 22, 22, 26, [](int x, int y) { return (y + x / 5) % 6 == 0 ? iron[1] : iron[0]; });
    p.draw(flame_frames()[0], 16, 28);
    for (const int x : {15, 23}) {
        p.rect(x, 43, 10, 3, wood[1]);
        p.rect(x, 43, 10, 1, wood[3]);
        p.rect(x, 45, 10, 1, wood[0]);
    }
    return p;
}

Picture draw_column() {
    Picture p(32, 80);
    p.fill(7, 10, 18, 60, [](int x, int y) {
        static constexpr int flutes[18] = {1, 3, 4, 5, 4, 5, 5, 3, 5, 4, 3, 4, 2, 3, 2, 1, 2, 0};
        return stone[flutes[x - 7] - (y < 14 ? 1 : 0)];
    });
    p.bevel(3, 2, 26, 5, stone[5], stone[4], stone[1]);
    p.bevel(5, 7, 22, 3, stone[4], stone[3], stone[0]);
    p.bevel(5, 66, 22, 4, stone[5], stone[3], stone[1]);
    p.bevel(3, 70, 26, 8, stone[5], stone[3], stone[0]);
    return p;
}

Picture draw_banner() {
    Picture p(16, 48);
    p.rect(0, 2, 16, 3, timber[1]);
    p.rect(0, 2, 16, 1, timber[3]);
    p.fill(2, 5, 12, 40, [](int x, int y) -> Pixel {
        const int point = y - 37;
        if (point > 0 && (x < 8 ? x - 2 : 13 - x) < point)
            return 0;
        static constexpr int folds[12] = {1, 3, 4, 3, 2, 2, 3, 4, 3, 2, 1, 0};
        if (x == 3 || x == 12 || y == 6)
            return timber[x == 12 ? 1 : 2];
        return cloth[folds[x - 2]];
    });
    p.draw(sprite(cloth_row, {"...88...", "..8998..", ".8.99.8.", "89999998", "8.9999.8",
                              "..9889..", "..8..8.."}),
           4, 16);
    return p;
}

Picture draw_stained_window() {
    Picture p(32, 48);
    p.fill(3, 2, 26, 46, [](int x, int y) -> Pixel {
        const int dx = x < 16 ? 15 - x : x - 16;
        const int round = y < 15 ? (15 - y) * (15 - y) + dx * dx : dx * dx;
        if (round > 169)
            return 0;
        if (round > 121 || y > 44)
            return stone[x + y < 24 ? 5 : x < 16 ? 4 : y > 46 ? 1 : 2];
        const bool lead = dx == 0 || y % 10 == 4 || (dx + y) % 10 == 0 || (dx - y + 100) % 10 == 0;
        const int pane = (y / 10 + (dx + y) / 10 + (dx - y + 100) / 10) % 3;
        return lead ? ink(plant_row, 10) : ink(plant_row, 1 + 3 * pane + (x + y) % 3);
    });
    return p;
}

Picture draw_throne() {
    Picture p(32, 48);
    p.bevel(4, 2, 24, 34, gold[3], gold[2], gold[0]);
    p.rect(7, 5, 18, 30, carpet[0]);
    p.fill(8, 6, 16, 22, [](int x, int y) {
        const bool tuft = (x % 5 == 0) && (y % 6 == 2);
        return tuft ? gold[2] : carpet[3 - (x > 19) - (y > 24) + (x < 11)];
    });
    p.draw(sprite(carpet_row, {"..9..", ".989.", "98889", ".797."}), 13, 0);
    box(p, 6, 28, 20, 7, 11, carpet);
    for (const int x : {3, 24}) {
        p.bevel(x, 24, 5, 20, gold[3], gold[2], gold[0]);
        p.bevel(x - 1, 22, 7, 5, gold[3], gold[3], gold[1]);
    }
    p.rect(4, 44, 24, 2, gold[0]);
    return p;
}

Picture draw_armour() {
    Picture p =
        sprite(stone_row,
               {"................", "......2442......", ".....246552.....", ".....245542.....",
                ".....211112.....", ".....245542.....", "......2442......", "..2222344322222.",
                ".25424566542452.", ".25524555542552.", ".24424554442442.", ".12212455421221.",
                ".24422344322442.", ".2542.2222.2452.", ".2542.2442.2452.", ".122..2442..221.",
                ".....245542.....", ".....245542.....", ".....24.442.....", ".....24.442.....",
                ".....24.442.....", "....2442.442....", "....2552.552....", "...11111111111..",
                "..1333333333331.", "..1222222222221.", "..1111111111111.", "................"});
    Picture whole(16, 32);
    whole.draw(p, 0, 3);
    return whole;
}

Picture draw_candelabrum() {
    Picture p(16, 32);
    for (const int x : {2, 7, 12}) {
        p.rect(x, x == 7 ? 5 : 8, 2, 5, ink(fire_row, 6));
        p.rect(x, x == 7 ? 2 : 5, 2, 3, flame[4]);
        p.set(x, x == 7 ? 1 : 4, flame[3]);
        p.rect(x - 1, x == 7 ? 10 : 13, 4, 1, flame[3]);
    }
    p.rect(2, 14, 12, 2, flame[3]);
    p.rect(2, 15, 12, 1, flame[1]);
    p.rect(7, 10, 2, 18, flame[3]);
    p.rect(8, 10, 1, 18, flame[2]);
    p.rect(4, 28, 8, 2, flame[2]);
    p.rect(4, 28, 8, 1, flame[4]);
    p.rect(4, 30, 8, 1, iron[0]);
    return p;
}

Picture draw_steps() {
    Picture p(16, 16);
    p.fill(0, 0, 16, 16, [](int, int y) {
        return floor[y % 5 == 0 ? 4 : y % 5 < 3 ? 3 : y % 5 == 3 ? 1 : 0];
    });
    return p;
}

Picture draw_table() {
    Picture p(48, 32);
    for (const int x : {4, 40})
        p.bevel(x, 20, 4, 11, wood[3], wood[1], wood[0]);
    box(p, 1, 2, 46, 18, 6, wood);
    for (int y = 7; y < 20; y += 5)
        p.rect(2, y, 44, 1, wood[1]);
    p.fill(14, 2, 20, 22, [](int x, int y) { // runner
        const bool hem = x == 14 || x == 33 || y > 21;
        return linen[hem ? 1 : y > 19 ? 2 : (x + y) % 7 == 0 ? 2 : 3];
    });
    p.draw(sprite(item_row, {"..ee..", ".eeee.", "edddde", ".eeee."}), 5, 8);
    p.draw(sprite(item_row, {".22.", "2342", "2332", ".22."}), 38, 7);
    p.draw(sprite(item_row, {".aa.", "a99a", "9889", ".88."}), 22, 9);
    return p;
}

Picture draw_chair() {
    Picture p(16, 24);
    p.bevel(3, 1, 10, 12, wood[3], wood[2], wood[0]);
    p.rect(5, 4, 2, 7, wood[0]);
    p.rect(9, 4, 2, 7, wood[0]);
    box(p, 2, 11, 12, 5, 4, wood);
    for (const int x : {2, 11})
        p.bevel(x, 19, 3, 4, wood[2], wood[1], wood[0]);
    return p;
}

Picture draw_bed() {
    Picture p(32, 48);
    p.bevel(1, 1, 30, 12, timber[3], timber[2], timber[0]);
    p.rect(3, 3, 26, 2, timber[3]);
    p.rect(2, 11, 28, 33, timber[0]);
    p.bevel(3, 11, 26, 9, linen[3], linen[2], linen[1]);
    p.bevel(6, 10, 20, 8, linen[3], linen[3], linen[1]); // pillow
    p.fill(3, 20, 26, 20, [](int x, int y) {
        if (y < 23)
            return linen[y == 22 ? 1 : 3];
        const bool seam = (x + y) % 8 == 0 || (x - y + 80) % 8 == 0;
        return cloth[seam ? 1 : 2 + (x < 9) + (x < 22) - (y > 37)];
    });
    p.bevel(1, 38, 30, 9, timber[3], timber[2], timber[0]);
    return p;
}

Picture draw_shelf(bool books) {
    Picture p(32, 48);
    p.bevel(0, 2, 32, 45, wood[3], wood[2], wood[0]);
    p.rect(0, 45, 32, 2, wood[0]);
    for (int level = 0; level < 3; ++level) {
        const int y = 6 + 13 * level;
        p.rect(3, y, 26, 11, wood[0]);
        for (int x = 4; books && x < 28;) {
            const int width = 2 + scatter(x, level, 4, 2), tall = 7 + scatter(x, level, 5, 3);
            const Pixel cover = ink(plant_row, 11 + scatter(x, level, 6, 5));
            p.rect(x, y + 11 - tall, std::min(width, 28 - x), tall, cover);
            p.rect(x, y + 13 - tall, std::min(width, 28 - x), 1, ink(plant_row, 10));
            x += width + (scatter(x, level, 8, 6) == 0 ? 3 : 0);
        }
        for (int x = 5; !books && x < 26; x += 8) {
            p.draw(sprite(plant_row,
                          {"..89..", ".7..7.", "..99..", ".8999.", "789997", "788997", ".7887."}),
                   x, y + 4);
        }
        p.rect(3, y + 11, 26, 1, wood[3]);
    }
    return p;
}

Picture draw_barrel() {
    Picture p(16, 24);
    p.fill(1, 1, 14, 22, [](int x, int y) -> Pixel {
        const int bulge = (y > 5 && y < 18) ? 0 : 1;
        if (x < 1 + bulge || x > 14 - bulge)
            return 0;
        if (y < 6) { // lid
            const int dx = x - 8, dy = (y - 3) * 2;
            return dx * dx + dy * dy * 2 > 44 ? Pixel{0}
                                              : wood[(x % 4 == 0)   ? 1
                                                     : dx + dy < -3 ? 3
                                                                    : 2];
        }
        if (y == 8 || y == 9 || y == 17 || y == 18)
            return stone[x < 5 ? 4 : x < 11 ? 2 : 0];
        return wood[x < 3 ? 2 : x < 6 ? 3 : x % 4 == 2 ? 0 : x < 11 ? 2 : 1];
    });
    p.rect(3, 22, 10, 1, wood[0]);
    return p;
}

Picture draw_crate() {
    Picture p(16, 24);
    box(p, 1, 3, 14, 7, 13, wood);
    for (int i = 0; i < 9; ++i)
        p.rect(3 + i, 11 + i, 2, 1, wood[3]);
    p.rect(2, 20, 12, 1, wood[3]);
    return p;
}

Picture draw_potted_plant() {
    static constexpr Puff puffs[] = {{8, 7, 5}, {4, 11, 4}, {12, 11, 4}, {8, 13, 4}};
    Picture p(16, 32);
    p.fill(4, 18, 9, 12, [](int x, int y) -> Pixel {
        const int taper = (y - 18) / 4;
        if (x < 4 + taper || x > 12 - taper)
            return 0;
        return clay[y < 21 ? (y == 20 ? 0 : 3) : x < 7 ? 2 : x < 10 ? 1 : 0];
    });
    draw_foliage(p, puffs, leaf);
    return p;
}

Picture draw_window() {
    Picture p(32, 32);
    p.bevel(4, 3, 24, 25, timber[3], timber[2], timber[0]);
    p.fill(7, 6, 18, 19, [](int x, int y) {
        const int slant = (x + y) % 16;
        return slant > 3 && slant < 7 ? ink(cloth_row, 15) : ink(cloth_row, 14);
    });
    p.rect(15, 6, 2, 19, timber[2]);
    p.rect(7, 14, 18, 2, timber[2]);
    p.bevel(2, 27, 28, 4, timber[3], timber[2], timber[0]);
    for (const int x : {3, 23})
        p.fill(x, 4, 7, 19, [x](int i, int y) {
            return cloth[(i - x) % 3 == 2 ? 1 : (i - x) % 3 + 2 - (y > 20)];
        });
    p.rect(2, 2, 28, 2, timber[1]);
    return p;
}

Picture draw_painting() {
    Picture p(32, 32);
    p.bevel(4, 4, 24, 18, ink(item_row, 10), ink(item_row, 9), ink(item_row, 8));
    p.fill(7, 7, 18, 12, [](int x, int y) {
        const int hill = 13 + ((x - 11) * (x - 11)) / 12;
        return ink(item_row, y > hill ? (y > hill + 2 ? 15 : 10) : y > 10 ? 7 : 6);
    });
    return p;
}

Picture draw_clock() {
    Picture p(16, 48);
    p.bevel(2, 4, 12, 42, wood[3], wood[2], wood[0]);
    p.rect(1, 3, 14, 3, wood[3]);
    p.rect(1, 44, 14, 3, wood[1]);
    p.draw(sprite(stone_row, {".5666.", "566165", "666166", "666116", "566665", ".5555."}), 5, 8);
    p.rect(5, 18, 6, 20, wood[0]);
    p.rect(7, 18, 1, 14, stone[3]);
    p.draw(sprite(stone_row, {".44.", "4554", ".44."}), 6, 31);
    return p;
}

Picture draw_chest() {
    Picture p(16, 16);
    box(p, 1, 2, 14, 5, 9, wood);
    p.rect(1, 7, 14, 1, wood[0]);
    for (const int x : {3, 11})
        p.rect(x, 3, 2, 12, stone[4]);
    p.rect(7, 6, 3, 4, stone[5]);
    p.set(8, 8, stone[0]);
    return p;
}

} // namespace veldrune::demo::indoor
