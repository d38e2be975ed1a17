#include "demo/drawing/random.h"
#include "demo/places/outdoor_art.h"

namespace veldrune::demo::outdoor {
namespace {

constexpr int house_height = 112;
constexpr int eave = 62; // where the roof ends
constexpr int foot = house_height - 2;

struct HouseInks {
    Ramp tiles, timber, wall;
    Pixel glass_dark, glass_light;
    explicit HouseInks(int row)
        : tiles{ink(row, 1), 5}, timber{ink(row, 6), 4}, wall{ink(row, 10), 4},
          glass_dark(ink(row, 14)), glass_light(ink(row, 15)) {}
};

/// Tiles in rows of 6 pixels, each 8 wide with a round lower edge, rows shifted by half a tile.
int tile_shade(int x, int y, int width) {
    const int row = y / 6;
    const int lx = (x + (row & 1) * 4) & 7;
    const int ly = y % 6;
    if (ly == 5 || (ly == 4 && (lx == 0 || lx == 7)))
        return 0;
    if (lx == 7)
        return 1;
    const int side = x < 24 ? 1 : x >= width - 16 ? -1 : 0;
    const int worn = scatter((x + (row & 1) * 4) / 8 % 2, row % 4, 11, 4) == 0 ? -1 : 0;
    return 2 + (ly < 2) + (ly == 0 && lx < 4) + side + worn - (ly == 4);
}

void draw_roof(Picture& p, int width, const HouseInks& inks) {
    p.fill(0, 4, width, eave - 4, [&](int x, int y) -> Pixel {
        const int inset = 9 * (eave - y) / eave;
        if (x < inset || x >= width - inset)
            return 0;
        if (x < inset + 3 || x >= width - inset - 3) // barge boards
            return inks
                .timber[x < width / 2 ? (x == inset ? 1 : 3) : (x == width - inset - 1 ? 0 : 2)];
        return inks.tiles[tile_shade(x, y - 4, width)];
    });
    p.rect(8, 3, width - 16, 1, inks.tiles[0]); // ridge
    p.rect(8, 4, width - 16, 2, inks.tiles[4]);
    p.rect(8, 6, width - 16, 1, inks.tiles[2]);
    p.rect(8, 7, width - 16, 1, inks.tiles[0]);
    p.rect(1, eave - 3, width - 2, 1, inks.timber[3]);
    p.rect(1, eave - 2, width - 2, 1, inks.timber[2]);
    p.rect(1, eave - 1, width - 2, 1, inks.timber[0]);
}

void draw_wall(Picture& p, int x, int y, int w, int h, const HouseInks& inks, bool timbered) {
    p.fill(x, y, w, h, [&](int i, int j) {
        const int shade = j < y + 3 ? 0 : j < y + 6 ? 1 : i > x + w - 5 ? 2 : 3;
        const bool speck = scatter(i % 16, j % 16, 2, 40) == 0;
        return inks.wall[shade - (speck ? 1 : 0)];
    });
    const auto beam = [&](int bx, int by, int bw, int bh) {
        p.rect(bx, by, bw, bh, inks.timber[1]);
        p.rect(bx, by, bw > bh ? bw : 1, bw > bh ? 1 : bh, inks.timber[2]);
        p.rect(bw > bh ? bx : bx + bw - 1, bw > bh ? by + bh - 1 : by, bw > bh ? bw : 1,
               bw > bh ? 1 : bh, inks.timber[0]);
    };
    if (timbered) {
        beam(x, y + h / 2 - 2, w, 3);
        for (int post = x + 16; post < x + w - 8; post += 16)
            beam(post - 1, y, 3, h);
    }
    beam(x, y, 4, h);
    beam(x + w - 4, y, 4, h);
    p.fill(x, y + h - 4, w, 4, [&](int i, int j) { // plinth
        return inks.wall[(i % 6 == 0 || j == y + h - 1) ? 0 : j == y + h - 4 ? 2 : 1];
    });
}

void draw_window(Picture& p, int x, int y, const HouseInks& inks) {
    p.rect(x - 1, y - 1, 14, 16, inks.timber[0]);
    p.bevel(x, y, 12, 13, inks.timber[3], inks.timber[2], inks.timber[1]);
    p.fill(x + 2, y + 2, 8, 9, [&](int i, int j) {
        const int slant = (i - x) + (j - y);
        return slant > 6 && slant < 10 ? inks.glass_light : inks.glass_dark;
    });
    p.rect(x + 5, y + 2, 1, 9, inks.timber[1]);
    p.rect(x + 2, y + 6, 8, 1, inks.timber[1]);
    p.rect(x - 2, y + 13, 16, 2, inks.timber[3]); // sill
    p.rect(x - 2, y + 15, 16, 1, inks.timber[0]);
}

void draw_door(Picture& p, int x, const HouseInks& inks) {
    const int top = foot - 29;
    p.fill(x - 2, top - 2, 20, 31, [&](int i, int j) -> Pixel {
        const int round = std::max(0, top + 3 - j);
        if (i < x - 2 + round || i > x + 17 - round)
            return 0;
        const bool frame =
            i < x || i > x + 15 || j < top || (round > 0 && (i < x + round || i > x + 15 - round));
        if (frame)
            return inks.timber[i < x + 8 ? 3 : 1];
        const int plank = (i - x) % 4;
        return inks.timber[j < top + 2 ? 0 : plank == 3 ? 0 : plank == 0 ? 2 : 1];
    });
    for (const int y : {top + 7, top + 21})
        p.rect(x + 1, y, 14, 1, inks.timber[0]);
    p.rect(x + 11, top + 14, 2, 2, inks.wall[3]);
    p.rect(x - 3, foot - 1, 22, 2, inks.wall[1]); // step
    p.rect(x - 3, foot - 1, 22, 1, inks.wall[3]);
}

void draw_gable(Picture& p, int cx, const HouseInks& inks) {
    constexpr int half = 22;
    p.fill(cx - half, eave - 34, 2 * half, 34, [&](int x, int y) -> Pixel {
        const int reach = (y - eave + 34) * 2 / 3;
        const int dx = x < cx ? cx - 1 - x : x - cx;
        if (dx > reach)
            return 0;
        if (dx > reach - 5)
            return dx == reach       ? inks.tiles[0]
                   : dx == reach - 4 ? inks.timber[0]
                                     : inks.tiles[x < cx ? 4 : 2];
        return inks.wall[dx > reach - 8 ? 1 : x < cx ? 3 : 2];
    });
    draw_window(p, cx - 6, eave - 18, inks);
}

void draw_chimney(Picture& p, int x, const HouseInks& inks) {
    p.fill(x, 0, 12, 20, [&](int i, int j) {
        const bool joint = j % 4 == 3 || (i + (j / 4 & 1) * 3) % 6 == 5;
        return inks.wall[joint ? 0 : i < x + 4 ? 3 : i < x + 9 ? 2 : 1];
    });
    p.rect(x - 1, 0, 14, 3, inks.wall[2]);
    p.rect(x - 1, 3, 14, 1, inks.wall[0]);
    p.rect(x + 3, 0, 6, 1, inks.timber[0]);
}

} // namespace

Picture draw_house(const HouseStyle& style) {
    const HouseInks inks(style.row);
    const int w = style.width;
    Picture p(w, house_height);
    draw_wall(p, 5, eave - 1, w - 10, foot - eave + 1, inks, style.timbered);
    draw_roof(p, w, inks);
    if (style.gable)
        draw_gable(p, w / 2, inks);
    draw_chimney(p, w - 28, inks);
    const int door = w / 2 - 8;
    for (const int x : {11, 30, w - 42, w - 23})
        if (x + 20 < door || x > door + 20)
            draw_window(p, x, eave + 14, inks);
    draw_door(p, door, inks);
    return p;
}

Picture draw_fence(Shape shape, int) {
    Picture p(16, 16);
    for (const int y : {4, 9}) {
        const int left = shape.mask & 8 ? 0 : 7, right = shape.mask & 2 ? 16 : 8;
        p.rect(left, y, right - left, 1, wood[3]);
        p.rect(left, y + 1, right - left, 1, wood[1]);
        p.rect(left, y + 2, right - left, 1, wood[0]);
    }
    const int top = shape.mask & 1 ? 0 : 4, bottom = shape.mask & 4 ? 16 : 8;
    p.rect(6, top, 1, bottom - top, wood[2]);
    p.rect(7, top, 2, bottom - top, wood[0]);
    p.bevel(5, 2, 5, 12, wood[3], wood[2], wood[0]);
    p.rect(6, 1, 3, 1, wood[3]);
    return p;
}

} // namespace veldrune::demo::outdoor
