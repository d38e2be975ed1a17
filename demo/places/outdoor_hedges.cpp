#include "demo/drawing/random.h"
#include "demo/places/outdoor_art.h"

namespace veldrune::demo::outdoor {
namespace {

const Puff* puff_at(std::span<const Puff> puffs, int x, int y) {
    const Puff* found = nullptr;
    for (const Puff& puff : puffs) {
        const int dx = x - puff.x;
        const int dy = y - puff.y;
        if (dx * dx + dy * dy <= puff.radius * puff.radius)
            found = &puff;
    }
    return found;
}

/// Leaves in clusters, lit from the upper left; later puffs lie before earlier ones.
void draw_foliage(Picture& picture, std::span<const Puff> puffs, Ramp ramp) {
    // One leaf, 4 by 3 pixels: what it adds to the shade of its cluster; 9 is the gap between.
    static constexpr int leaf[3][4] = {{9, 1, 1, 9}, {1, 0, 0, -1}, {0, 0, -1, 9}};
    int low = 1000, high = -1000;
    for (const Puff& puff : puffs) {
        low = std::min(low, puff.x + puff.y - puff.radius);
        high = std::max(high, puff.x + puff.y + puff.radius);
    }
    picture.fill(0, 0, picture.width, picture.height, [&](int x, int y) -> Pixel {
        const int line = y / 3;
        const int shift = (line & 1) * 2;
        const int cell = (x + shift) / 4;
        const int cx = cell * 4 + 1 - shift;
        const int cy = line * 3 + 1;
        const Puff* puff = puff_at(puffs, cx, cy);
        const int part = leaf[y % 3][(x + shift) % 4];
        if (part == 9 || puff == nullptr)
            return puff != nullptr && puff_at(puffs, x, y) == puff ? ramp[1] : Pixel{0};
        const int local = -(2 * (cx - puff->x) + 3 * (cy - puff->y)) * 100 / (3 * puff->radius);
        const int whole = 100 - 200 * (cx + cy - low) / std::max(1, high - low);
        const int stray = scatter(cell, line, 7, 30) - 15;
        const int light = (local * 6 + whole * 5) / 10 + stray + 120;
        return ramp[light * ramp.count / 240 + part];
    });
}

} // namespace

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
