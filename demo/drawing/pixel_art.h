#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string_view>
#include <vector>

namespace veldrune::demo {

/// A colour of a map palette: 16 * palette row + value. 0 is no pixel.
using Pixel = std::uint8_t;

constexpr Pixel ink(int row, int value) {
    return static_cast<Pixel>(16 * row + value);
}

/// Neighbouring colours of one palette row, from dark to light.
struct Ramp {
    Pixel darkest;
    int count;
    constexpr Pixel operator[](int shade) const {
        return static_cast<Pixel>(darkest + std::clamp(shade, 0, count - 1));
    }
};

struct Picture {
    int width;
    int height;
    std::vector<Pixel> pixels;

    Picture(int w, int h, Pixel fill = 0)
        : width(w), height(h), pixels(static_cast<std::size_t>(w * h), fill) {}
    bool contains(int x, int y) const { return x >= 0 && x < width && y >= 0 && y < height; }
    /// 0 outside the picture.
    Pixel at(int x, int y) const {
        return contains(x, y) ? pixels[static_cast<std::size_t>(y * width + x)] : Pixel{0};
    }
    /// Does nothing outside the picture.
    void set(int x, int y, Pixel pixel) {
        if (contains(x, y))
            pixels[static_cast<std::size_t>(y * width + x)] = pixel;
    }
    void rect(int x, int y, int w, int h, Pixel pixel);
    void draw(const Picture& top, int x, int y);
    /// Sets every pixel for which shade(x, y) is not 0.
    template <class Shade>
    void fill(int x, int y, int w, int h, Shade shade) {
        for (int j = y; j < y + h; ++j)
            for (int i = x; i < x + w; ++i)
                if (const Pixel pixel = shade(i, j); pixel != 0)
                    set(i, j, pixel);
    }
};

/// A tile of 16 by 16 pixels out of a picture.
Picture tile_of(const Picture& picture, int column, int row);

/// A pixel of a pattern of round stones.
struct Stone {
    int depth;  // 0 at the joint between two stones, growing inwards
    int light;  // shade, -8 to 8
    int number; // of the stone
};
/// The pixel at (x, y) of stones around centres that repeat every size pixels.
Stone stone_at(int x, int y, std::span<const std::array<int, 2>> centres, int size);

/// A signed distance in a pattern that repeats every period pixels, in the shorter direction.
constexpr int wrapped(int distance, int period) {
    return ((distance % period) + period + period / 2) % period - period / 2;
}

/// The offset that makes edges look hand-drawn: 0 to 3 pixels, repeating every 16.
int wobble(int along);

/// Whether ordered dithering sets the pixel at a level from 0 (none) to 16 (all).
constexpr bool dither(int x, int y, int level) {
    constexpr std::array<int, 16> order{0, 8, 2, 10, 12, 4, 14, 6, 3, 11, 1, 9, 15, 7, 13, 5};
    return order[static_cast<std::size_t>((y & 3) * 4 + (x & 3))] < level;
}

} // namespace veldrune::demo
