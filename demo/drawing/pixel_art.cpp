#include "demo/drawing/pixel_art.h"

#include "demo/drawing/random.h"

namespace veldrune::demo {
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

} // namespace

void Picture::rect(int x, int y, int w, int h, Pixel pixel) {
    fill(x, y, w, h, [pixel](int, int) { return pixel; });
}

void Picture::bevel(int x, int y, int w, int h, Pixel light, Pixel face, Pixel dark) {
    rect(x, y, w, h, dark);
    rect(x, y, w - 1, h - 1, light);
    rect(x + 1, y + 1, w - 2, h - 2, face);
}

void Picture::draw(const Picture& top, int x, int y) {
    fill(x, y, top.width, top.height, [&](int i, int j) { return top.at(i - x, j - y); });
}

Picture part(const Picture& picture, int top, int height) {
    Picture result(picture.width, height);
    result.draw(picture, 0, -top);
    return result;
}

Picture mirrored(const Picture& picture, bool across, bool upside_down) {
    Picture result(picture.width, picture.height);
    result.fill(0, 0, picture.width, picture.height, [&](int x, int y) {
        return picture.at(across ? picture.width - 1 - x : x,
                          upside_down ? picture.height - 1 - y : y);
    });
    return result;
}

Picture sprite(int row, std::initializer_list<std::string_view> lines) {
    Picture picture(static_cast<int>(lines.begin()->size()), static_cast<int>(lines.size()));
    int y = 0;
    for (const std::string_view line : lines) {
        for (int x = 0; x < picture.width; ++x) {
            const char digit = line[static_cast<std::size_t>(x)];
            if (digit != '.')
                picture.set(x, y, ink(row, digit <= '9' ? digit - '0' : digit - 'a' + 10));
        }
        ++y;
    }
    return picture;
}

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

Stone stone_at(int x, int y, std::span<const std::array<int, 2>> centres, int size) {
    int nearest = 1 << 20, second = 1 << 20;
    Stone stone{};
    for (std::size_t i = 0; i < centres.size(); ++i) {
        const int dx = wrapped(x - centres[i][0], size);
        const int dy = wrapped(y - centres[i][1], size);
        const int distance = dx * dx + dy * dy;
        if (distance < nearest) {
            second = nearest;
            nearest = distance;
            stone.light = std::clamp(-(dx + dy), -8, 8);
            stone.number = static_cast<int>(i);
        } else {
            second = std::min(second, distance);
        }
    }
    stone.depth = second - nearest;
    return stone;
}

int wobble(int along) {
    static constexpr std::array<int, 16> wave{1, 1, 2, 2, 3, 2, 1, 1, 0, 0, 1, 2, 2, 1, 0, 0};
    return wave[static_cast<std::size_t>(along & 15)];
}

} // namespace veldrune::demo
