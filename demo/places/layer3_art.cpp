#include "demo/places/layer3_art.h"

#include "demo/drawing/pixel_art.h"
#include "demo/drawing/random.h"

#include <map>

namespace veldrune::demo {
namespace {

constexpr int period = 256; // width in pixels after which the pictures repeat

// A round part of a cloud.
struct Puff {
    int x, y, radius;
};

// Depth of (x, y) in the puffs: 0 outside, 100 in the middle of one.
int depth_in(std::span<const Puff> puffs, int x, int y, int flatness) {
    int deepest = 0;
    for (const Puff& puff : puffs) {
        const int dx = wrapped(x - puff.x, period), dy = (y - puff.y) * flatness;
        deepest = std::max(deepest, 100 - 100 * (dx * dx + dy * dy) / (puff.radius * puff.radius));
    }
    return deepest;
}

Pixel cloud_shadow(int x, int y) {
    static constexpr Puff puffs[] = {{130, 30, 18}, {150, 36, 24}, {174, 34, 26}, {196, 40, 17},
                                     {24, 92, 14},  {38, 96, 19},  {54, 92, 15},  {70, 98, 10}};
    const int depth = depth_in(puffs, x, y, 1);
    return depth > 16 || (depth > 0 && (x + y) % 2 == 0) ? 1 : 0;
}

Pixel fog(int x, int y) {
    static constexpr Puff puffs[] = {{40, 24, 60},  {92, 30, 44},  {14, 34, 40},
                                     {160, 78, 62}, {206, 86, 48}, {116, 88, 40}};
    return dither(x, y, depth_in(puffs, x, y, 4) * 10 / 100) ? 1 : 0;
}

Pixel light_shaft(int x, int y) {
    // Left, right and strength of the beams, which are shifted by half a pixel per row.
    static constexpr std::array<int, 3> beams[] = {
        {6, 58, 2}, {72, 92, 1}, {126, 196, 2}, {206, 222, 1}};
    const int across = (2 * x + y) % 256;
    for (const auto& [left, right, strength] : beams) {
        const int rim = std::min(across - left, right - across);
        if (rim >= 0)
            return dither(x, y, std::min(16, rim)) ? static_cast<Pixel>(rim > 15 ? strength : 1)
                                                   : Pixel{0};
    }
    return 0;
}

Pixel snow(int x, int y) {
    // One flake in each 8 by 8 pixels of a 32 by 32 pattern, mirrored across and down.
    const auto fold = [](int at) { return at & 32 ? 31 - (at & 31) : at & 31; };
    const int i = fold(x) / 8, j = fold(y) / 8;
    const int dx = fold(x) % 8 - scatter(i, j, 41, 6), dy = fold(y) % 8 - scatter(i, j, 42, 6);
    const int size = scatter(i, j, 43, 4); // 0 and 3 draw no flake
    return dx >= 0 && dy >= 0 && dx < size && dy < size && size < 3 ? 3 : 0;
}

Pixel raindrop(int x, int y) {
    const int lane = (2 * x + y) / 2 % 64;
    const int drop = (y + lane * 11) % 32;
    return lane % 9 == 4 && drop < 9 ? (drop < 3 ? 2 : 1) : 0;
}

Pixel night_sky(int x, int y) {
    const int star = scatter(x & 63, y, 21, 180);
    static constexpr Puff veil[] = {{32, 36, 40}, {0, 84, 44}};
    const int haze = depth_in(veil, x & 63, y, 2) + depth_in(veil, (x & 63) - 64, y, 2);
    return star == 0 ? 3 : star < 3 || dither(x, y, haze / 16) ? 2 : 1;
}

struct Kind3 {
    Pixel (*shade)(int x, int y); // 0 to 3
    int row;                      // of four colours
};
constexpr std::array<Kind3, layer3::drawn_count> kinds{{{cloud_shadow, 0},
                                                        {fog, 1},
                                                        {light_shaft, 2},
                                                        {snow, 1},
                                                        {raindrop, 1},
                                                        {cloud_shadow, 0},
                                                        {night_sky, 3}}};

using Tile = std::array<Pixel, 256>;

Tile flipped(const Tile& tile, std::size_t turn_bits) {
    Tile result;
    for (std::size_t i = 0; i < tile.size(); ++i)
        result[i ^ turn_bits] = tile[i];
    return result;
}

void write_character(std::vector<std::uint8_t>& graphics, const Tile& tile, std::size_t formation,
                     std::size_t quadrant) {
    for (std::size_t y = 0; y < 8; ++y)
        for (std::size_t x = 0; x < 8; ++x) {
            const int value = tile[(quadrant / 2 * 8 + y) * 16 + quadrant % 2 * 8 + x];
            std::uint8_t* planes = &graphics[64 + 16 * (4 * formation + quadrant) + 2 * y];
            planes[0] = static_cast<std::uint8_t>(planes[0] | (value & 1) << (7 - x));
            planes[1] = static_cast<std::uint8_t>(planes[1] | (value >> 1) << (7 - x));
        }
}

} // namespace

std::vector<std::uint8_t> Layer3Set::cells(int width, int height) const {
    std::vector<std::uint8_t> result;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            result.push_back(pattern[static_cast<std::size_t>(y % 8 * 16 + (x + y / 8 * 4) % 16)]);
    return result;
}

Layer3Set draw_layer3(int number) {
    const Kind3& kind = kinds[static_cast<std::size_t>(number % layer3::drawn_count)];
    Layer3Set set{std::vector<std::uint8_t>(4096), {}};
    std::fill_n(set.graphics.begin(), 64, static_cast<std::uint8_t>(kind.row << 2));
    std::map<Tile, std::uint8_t> known{{Tile{}, std::uint8_t{0}}};
    std::size_t formations = 1;
    for (int cell = 0; cell < 128; ++cell) {
        Tile tile;
        for (int i = 0; i < 256; ++i)
            tile[static_cast<std::size_t>(i)] =
                kind.shade(cell % 16 * 16 + i % 16, cell / 16 * 16 + i / 16);
        if (!known.contains(tile) && formations < 63) {
            for (std::size_t q = 0; q < 4; ++q)
                write_character(set.graphics, tile, formations, q);
            for (const std::size_t flips : {0u, 1u, 2u, 3u})
                known.try_emplace(flipped(tile, (flips & 1 ? 15u : 0u) + (flips & 2 ? 240u : 0u)),
                                  static_cast<std::uint8_t>(formations | flips << 6));
            ++formations;
        }
        set.pattern.push_back(known[tile]);
    }
    return set;
}

} // namespace veldrune::demo
