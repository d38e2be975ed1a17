#include "demo/places/outdoor_art.h"

namespace veldrune::demo::outdoor {
namespace {

Ramp leaves(int row) {
    return {ink(row, 1), 6};
}
Ramp bark(int row) {
    return {ink(row, 7), 4};
}
Ramp lawn(int row) {
    return {ink(row, 11), 5};
}

/// A flat shadow on grass, its rim dithered.
void draw_shadow(Picture& picture, int cx, int cy, int rx, int ry, int row) {
    picture.fill(cx - rx, cy - ry, 2 * rx + 1, 2 * ry + 1, [=](int x, int y) -> Pixel {
        const int d = (x - cx) * (x - cx) * 100 / (rx * rx) + (y - cy) * (y - cy) * 100 / (ry * ry);
        if (d > 100 || (d > 70 && (x + y) % 2 == 0))
            return 0;
        return lawn(row)[d > 45 ? 1 : 0];
    });
}

/// A trunk with roots, from top to foot.
void draw_trunk(Picture& picture, int cx, int top, int foot, int half, int row) {
    const Ramp ramp = bark(row);
    picture.fill(cx - half - 4, top, 2 * half + 9, foot - top + 1, [=](int x, int y) -> Pixel {
        const int flare = std::max(0, y - foot + 4) + (y == foot ? -2 : 0);
        const int left = cx - half - flare, right = cx + half + flare;
        if (x < left || x > right)
            return 0;
        if (x == left || x == right || y == foot)
            return ramp[0];
        const int across = (x - left) * 4 / (right - left);
        const bool groove = (x * 2 + (y / 3 & 1)) % 5 == 0;
        return ramp[3 - across - (groove ? 1 : 0) - (y < top + 6 ? 1 : 0)];
    });
}

} // namespace

Picture draw_tree(int row, int variant) {
    // clang-format off
    static constexpr std::array<Puff, 9> crowns[2] = {
        {{{24,13,12}, {11,18,9}, {37,18,9}, {8,29,8}, {40,29,8}, {17,25,11}, {32,25,11}, {15,37,9}, {33,37,9}}},
        {{{20,12,11}, {31,14,11}, {9,22,8}, {39,23,8}, {13,33,10}, {36,33,10}, {24,24,12}, {24,38,9}, {20,20,8}}},
    };
    // clang-format on
    Picture picture(48, 64);
    draw_shadow(picture, 25, 55, 20, 8, row);
    draw_trunk(picture, 24, 38, 61, 5, row);
    Picture crown(48, 64);
    draw_foliage(crown, crowns[variant], leaves(row));
    // A dark rim away from the light.
    picture.draw(crown, 0, 0);
    picture.fill(0, 0, 48, 48, [&](int x, int y) {
        const bool rim = crown.at(x + 1, y) == 0 || crown.at(x, y + 1) == 0 ||
                         (x + y > 78 && (crown.at(x - 1, y) == 0 || crown.at(x, y - 1) == 0));
        return rim && crown.at(x, y) != 0 ? leaves(row)[0] : Pixel{0};
    });
    return picture;
}

Picture draw_conifer(int row) {
    Picture picture(48, 64);
    draw_shadow(picture, 25, 56, 15, 6, row);
    draw_trunk(picture, 24, 46, 61, 3, row);
    // Four skirts; each ends in drooping tips and shades the one below.
    static constexpr std::array<int, 3> skirts[] = {
        {32, 52, 18}, {21, 41, 15}, {11, 30, 12}, {1, 19, 8}};
    const Ramp ramp = leaves(row);
    for (const auto& [top, foot, half] : skirts)
        picture.fill(
            0, top, 48, foot - top + 4, [&, t = top, f = foot, h = half](int x, int y) -> Pixel {
                const int dx = x - 24;
                const int reach = 1 + h * (y - t) / (f - t);
                const int tip = (x + 60) % 5 == 0 ? 3 : (x + 60) % 5 == 2 ? -1 : 1;
                if (dx < -reach || dx > reach || y > f + tip - dx * dx / 40)
                    return 0;
                const int from_side = (dx + reach) * 5 / (2 * reach + 1);
                const int needle = (x + 2 * y + (dx > 0 ? y : 0)) % 4 == 0;
                int shade = 4 - from_side + needle;
                shade -= y > f - 2 ? 2 : 0;
                shade += y < t + 4 ? -1 : 0;
                return ramp[std::max(shade, dx == reach || y >= f + tip - dx * dx / 40 ? 0 : 1)];
            });
    return picture;
}

Picture draw_bush() {
    static constexpr Puff puffs[] = {{5, 9, 4}, {11, 9, 4}, {8, 6, 5}};
    Picture picture(16, 16);
    draw_shadow(picture, 8, 13, 7, 3, tree_row);
    draw_foliage(picture, puffs, leaves(tree_row));
    return picture;
}

Picture draw_stump() {
    Picture picture(16, 16);
    draw_shadow(picture, 9, 12, 7, 3, tree_row);
    draw_trunk(picture, 7, 5, 13, 4, tree_row);
    picture.draw(
        sprite(tree_row, {"..7777..", ".7aaaa7.", "7a9889a7", "7a8998a7", ".7aaaa7.", "..7777.."}),
        3, 2);
    return picture;
}

Picture draw_rock(bool large) {
    const int r = large ? 7 : 5;
    Picture picture(16, 16);
    draw_shadow(picture, 9, 13, r, 3, stone_row);
    // Three facets: a top that catches the light, a front and a shaded side.
    picture.fill(0, 0, 16, 14, [=](int x, int y) -> Pixel {
        const int dx = x - 8, up = 13 - y;
        const int side = dx < 0 ? -dx : dx;
        if (side > r || up > 2 * r - 3 || side + up > 2 * r + (dx < 0 ? -2 : -3) ||
            (up == 0 && side > r - 2))
            return 0;
        if (up == 0 || side == r || side + up == 2 * r + (dx < 0 ? -2 : -3))
            return cobble[dx < 1 && up > 3 ? 3 : 0];
        const bool top = up > r - 1 + dx / 3, shaded = dx > r / 3 - (up - r) / 3;
        return cobble[top ? (dx < 0 ? 5 : 4) : shaded ? 1 + (up > 3) : (x + y) % 6 == 0 ? 2 : 3];
    });
    return picture;
}

} // namespace veldrune::demo::outdoor
