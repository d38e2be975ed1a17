#include "sample_maps.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <random>

namespace veldrune::bench {

namespace {

using Bytes = std::vector<std::uint8_t>;

// The tiles of a map, or the kinds of ground that they are chosen from.
struct Field {
    int width;
    int height;
    Bytes cells = Bytes(static_cast<std::size_t>(width * height));

    bool contains(int x, int y) const { return x >= 0 && x < width && y >= 0 && y < height; }
    // A place outside counts as the nearest one inside.
    std::uint8_t& at(int x, int y) {
        const int column = std::clamp(x, 0, width - 1);
        const int row = std::clamp(y, 0, height - 1);
        return cells[static_cast<std::size_t>(row * width + column)];
    }
    void put(int x, int y, int tile) {
        if (contains(x, y))
            at(x, y) = static_cast<std::uint8_t>(tile);
    }
};

// Value noise: random numbers from -1 to 1 on a lattice, interpolated smoothly, and octaves of half
// the grain and half the height added to them.
struct Noise {
    std::array<float, 4096> lattice;

    explicit Noise(unsigned seed) {
        std::mt19937 random(seed);
        for (float& value : lattice)
            value = static_cast<float>(random() % 2001) / 1000 - 1;
    }
    float knot(int x, int y) const {
        return lattice[static_cast<unsigned>(x * 73 + y * 1531) % lattice.size()];
    }
    float smooth(float x, float y) const {
        const float left = std::floor(x);
        const float top = std::floor(y);
        const int i = static_cast<int>(left);
        const int j = static_cast<int>(top);
        const float u = (x - left) * (x - left) * (3 - 2 * (x - left));
        const float v = (y - top) * (y - top) * (3 - 2 * (y - top));
        return std::lerp(std::lerp(knot(i, j), knot(i + 1, j), u),
                         std::lerp(knot(i, j + 1), knot(i + 1, j + 1), u), v);
    }
    float operator()(int x, int y, float grain) const {
        float sum = 0;
        float height = 1;
        for (int octave = 0; octave < 4; ++octave, height /= 2, grain /= 2)
            sum += height * smooth(static_cast<float>(x) / grain, static_cast<float>(y) / grain);
        return sum;
    }
};

// Which of the four neighbours are of a lower kind: a shore, a wood's edge, a mountain's foot.
int edges(Field& kinds, int x, int y) {
    const int kind = kinds.at(x, y);
    return (kinds.at(x, y - 1) < kind) | (kinds.at(x + 1, y) < kind) << 1 |
           (kinds.at(x, y + 1) < kind) << 2 | (kinds.at(x - 1, y) < kind) << 3;
}

void stamp(Field& map, int x, int y, int first_tile, int width, int height) {
    for (int row = 0; row < height; ++row)
        for (int column = 0; column < width; ++column)
            map.put(x + column, y + row, first_tile + row * 16 + column);
}

// A house: eaves, ridge and gable of a roof, a wall with windows and a door in its middle.
void house(Field& map, int x, int y, int width) {
    for (int column = 0; column < width; ++column) {
        const int part = column == 0 ? 0 : column == width - 1 ? 2 : 1;
        for (int row = 0; row < 3; ++row)
            map.put(x + column, y + row, 0x80 + row * 16 + part);
        map.put(x + column, y + 3, column == width / 2 ? 0xB4 : 0xB0 + column % 2);
    }
}

} // namespace

Bytes sample_layer(int width, int height, unsigned seed) {
    std::mt19937 random(seed);
    const auto roll = [&random](int sides) {
        return static_cast<int>(random() % static_cast<unsigned>(sides));
    };
    const Noise wet(seed + 1);
    Field kinds{width, height};
    Field map{width, height};
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            kinds.at(x, y) = wet(x, y, 12) > 0.7F;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            map.put(x, y, kinds.at(x, y) ? 0x40 + edges(kinds, x, y) : roll(12) ? 1 : 2 + roll(4));
    const int places = std::max(width * height / 256, 1);
    for (int path = 0; path < places / 8 + 1; ++path)
        for (int x = 0, y = roll(height); x < width; ++x, y += roll(5) ? 0 : roll(3) - 1)
            stamp(map, x, y, 0x10 + roll(8) / 7, 1, 2);
    const Noise wood(seed + 2);
    for (int y = -1; y < height; y += 3)
        for (int x = 0; x < width; x += 2)
            if (wood(x, y, 10) > 0.5F)
                stamp(map, x, y, 0x50, 2, 3);
    for (int n = 0; n < places; ++n)
        house(map, roll(width), roll(height), 4 + roll(4));
    return map.cells;
}

Bytes sample_world(unsigned seed, float rise) {
    std::mt19937 random(seed);
    const Noise height(seed + 1);
    const Noise rain(seed + 2);
    Field kinds{256, 256};
    Field map{256, 256};
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 256; ++x) {
            const int shore = std::min({x, y, 255 - x, 255 - y, 32});
            const float h = height(x, y, 48) + static_cast<float>(shore - 32) / 20 + 0.2F + rise;
            const int land = h > 0.95F ? 5 : h > 0.75F ? 4 : rain(x, y, 20) > 0.4F ? 3 : 2;
            kinds.put(x, y, h < 0 ? 0 : h < 0.06F ? 1 : land);
        }
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 256; ++x) {
            const int kind = kinds.at(x, y);
            const bool flower = kind == 2 && random() % 24 == 0;
            map.put(x, y,
                    flower ? 0x70 + static_cast<int>(random() % 4)
                           : kind * 16 + edges(kinds, x, y) + (kind == 5) * (x + y) % 2 * 16);
        }
    return map.cells;
}

Bytes periodic(std::size_t size, const Bytes& pattern) {
    Bytes bytes(size);
    for (std::size_t i = 0; i < size; ++i)
        bytes[i] = pattern[i % pattern.size()];
    return bytes;
}

Bytes random_bytes(std::size_t size, int largest, unsigned seed) {
    std::mt19937 random(seed);
    Bytes bytes(size);
    for (std::uint8_t& byte : bytes)
        byte = static_cast<std::uint8_t>(random() % static_cast<unsigned>(largest + 1));
    return bytes;
}

} // namespace veldrune::bench
