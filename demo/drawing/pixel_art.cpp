#include "demo/drawing/pixel_art.h"

namespace veldrune::demo {
void Picture::rect(int x, int y, int w, int h, Pixel pixel) {
    fill(x, y, w, h, [pixel](int, int) { return pixel; });
}

void Picture::draw(const Picture& top, int x, int y) {
    fill(x, y, top.width, top.height, [&](int i, int j) { return top.at(i - x, j - y); });
}

Picture tile_of(const Picture& picture, int column, int row) {
    Picture tile(16, 16);
    tile.draw(picture, -16 * column, -16 * row);
    return tile;
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
