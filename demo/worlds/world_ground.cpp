#include "demo/drawing/place.h"
#include "demo/drawing/random.h"
#include "demo/worlds/world_art.h"

namespace veldrune::demo::overland {
namespace {

constexpr Ramp sand{ink(coast_row, 6), 3}, water{ink(coast_row, 9), 7};
constexpr Ramp rock{ink(rock_row, 6), 2}, dune{ink(desert_row, 6), 5}, earth{ink(road_row, 6), 4};
constexpr Ramp grass(int row) {
    return {ink(row, 1), 5};
}

int edge_depth(int along) {
    return wobble(along) * 2 / 3;
}

// A ground that covers some corners of a tile: a quarter each, with rounded, uneven edges.
struct Cover {
    int corners;
    bool has(int i, int j) const { return (corners >> (j * 2 + i) & 1) != 0; }
    bool is_saddle() const { return corners == 6 || corners == 9; }

    // The distance from a pixel to the edge of its own corner's ground; 0 or less beyond the edge.
    // Pixels outside the tile count as the nearest one inside.
    int steps_to_edge(int x, int y) const {
        x = std::clamp(x, 0, side - 1);
        y = std::clamp(y, 0, side - 1);
        const int i = x / 8, j = y / 8;
        const bool own = has(i, j);
        const bool ends_across = has(1 - i, j) != own, ends_down = has(i, 1 - j) != own;
        const int u = i == 0 ? x : 15 - x, v = j == 0 ? y : 15 - y; // from the corner
        if (ends_across && ends_down && (own || !is_saddle())) {
            int radius = 1;
            while (4 * radius * radius < (2 * u + 1) * (2 * u + 1) + (2 * v + 1) * (2 * v + 1))
                ++radius;
            return 8 - radius;
        }
        const int across = ends_across ? 8 - u - own * edge_depth(y) : side;
        const int down = ends_down ? 8 - v - own * edge_depth(x) : side;
        return std::min(across, down);
    }
    bool inside(int x, int y) const {
        return has(std::clamp(x, 0, side - 1) / 8, std::clamp(y, 0, side - 1) / 8) ==
               (steps_to_edge(x, y) > 0);
    }
    // The approximate distance of a pixel from the edge, at least 1, on either side.
    int rough_depth(int x, int y) const {
        const int steps = steps_to_edge(x, y);
        return steps > 0 ? steps : 1 - steps;
    }
    // The distance from a pixel to the nearest one across the edge, at most reach + 1.
    int depth(int x, int y, int reach) const {
        for (int d = 1; d <= reach; ++d)
            for (int step = -d; step <= d; ++step)
                for (const auto& [dx, dy] :
                     {Place{step, d - std::abs(step)}, {step, std::abs(step) - d}})
                    if (inside(x + dx, y + dy) != inside(x, y))
                        return d;
        return reach + 1;
    }
};

template <class Shade>
Picture draw(Shade shade, int width = side, int height = side) {
    Picture picture(width, height);
    picture.fill(0, 0, width, height, shade);
    return picture;
}

// Grass with a few blades.
Pixel meadow(int row, int x, int y) {
    static constexpr std::string_view blades[8] = {
        "................", "..1.........3...", ".3...........1..", "........1.......",
        ".....3...3......", "...1..........1.", "..........1.....", "......1......3.."};
    const std::size_t line = static_cast<std::size_t>(y & 7);
    const char blade = blades[line][static_cast<std::size_t>((x + (y & 8) / 8 * 5) & 15)];
    return grass(row)[blade == '.' ? 2 : blade - '0'];
}

// Short crests on water.
Pixel swell(int x, int y, int shade, int purpose) {
    for (int i = 0; i < 4; ++i) {
        const int from = scatter(i, purpose, 82, 12), line = 4 * i + scatter(i, purpose, 83, 3);
        if (y == line && x >= from && x < from + 3 + i % 2)
            return water[shade + 1];
    }
    return water[shade];
}

Pixel coast_pixel(const Cover& land, int x, int y) {
    const int depth = land.depth(x, y, 4);
    const bool below = !land.inside(x, y + 1), above = !land.inside(x, y - 1);
    if (land.inside(x, y)) {
        if (depth == 1)
            return sand[below ? 0 : above ? 2 : 1];
        if (depth == 2 && (x + y) % 4 != 0)
            return sand[land.inside(x, y + 2) ? 2 : 1];
        return depth <= 3 ? grass(coast_row)[depth == 3 && (x + y) % 3 != 0 ? 1 : 2]
                          : meadow(coast_row, x, y);
    }
    if (!above || depth > 4) // in the shadow south of land, or open water
        return depth == 1 && land.inside(x, y - 1) ? water[2] : swell(x, y, 3, 1);
    return depth == 1   ? water[6]
           : depth == 2 ? water[(x + y) % 5 == 0 ? 6 : 5]
                        : water[depth == 3 ? 4 : 3];
}

Pixel depth_pixel(const Cover& shallows, int x, int y) {
    const int depth = shallows.rough_depth(x, y);
    const bool in = shallows.inside(x, y);
    if (depth > 3)
        return in ? swell(x, y, 3, 1) : swell(x, y, 1, 2);
    return dither(x, y, 13 - 3 * depth) ? water[2] : water[in ? 3 : 1];
}

// Dunes are long waves, lit from the upper left.
Pixel dune_pixel(int x, int y) {
    const int crest = ((y + wobble(x) + (x & 15) / 2) & 7);
    return dune[crest == 0 ? 4 : crest == 1 ? 3 : crest >= 6 && (x + y) % 2 == 0 ? 1 : 2];
}

Pixel desert_pixel(const Cover& waste, int x, int y) {
    const bool in = waste.inside(x, y);
    const int level = std::max(0, 10 - 3 * waste.rough_depth(x, y));
    return in != dither(x, y, level) ? dune_pixel(x, y) : meadow(desert_row, x, y);
}

// A tile with a stamp on each covered corner and, if all are covered, in its middle. Those farther
// south are in front.
Picture stamped(const Cover& cover, const Picture& stamp, Picture tile, bool middle) {
    const auto corner = [&](int i, int j) {
        if (cover.has(i, j))
            tile.draw(stamp, 16 * i - 8, 16 * j - 8);
    };
    corner(0, 0);
    corner(1, 0);
    if (middle && cover.corners == 15)
        tile.draw(stamp, 0, 0);
    corner(0, 1);
    corner(1, 1);
    return tile;
}

bool on_road(int leads, int x, int y) {
    const int u = x - 8 + (x < 8), v = y - 8 + (y < 8); // -7 to 7, 0 twice
    const int width = 3 - (scatter(x, y, 86, 4) == 0);
    const bool arm = (std::abs(u) < width && ((leads & 1 && y < 8) || (leads & 4 && y >= 8))) ||
                     (std::abs(v) < width && ((leads & 2 && x >= 8) || (leads & 8 && x < 8)));
    return arm || u * u + v * v < 9;
}

} // namespace

Picture plain(int row, int width, int height) {
    return draw([row](int x, int y) { return meadow(row, x, y); }, width, height);
}

Picture deep_tile(int variant) {
    return draw(
        [variant](int x, int y) { return variant == 0 ? water[1] : swell(x, y, 1, 2 * variant); });
}

Picture shallow_tile(int variant) {
    return draw([variant](int x, int y) { return swell(x, y, 3, variant == 0 ? 1 : 5); });
}

Picture dunes() {
    return draw(dune_pixel);
}

Picture depths_tile(int corners) {
    return draw([corners](int x, int y) { return depth_pixel({corners}, x, y); });
}

Picture coast_tile(int corners) {
    return draw([corners](int x, int y) { return coast_pixel({corners}, x, y); });
}

Picture desert_tile(int corners) {
    return draw([corners](int x, int y) { return desert_pixel({corners}, x, y); });
}

Picture forest_tile(DrawnPicture tree, int corners, bool thick) {
    const Picture floor =
        corners == 15 ? draw([](int x, int y) { return grass(forest_row)[(x + y) % 3 == 0]; })
                      : plain(forest_row);
    return stamped({corners}, tree.draw(), floor, thick);
}

Picture mountain_tile(DrawnPicture peak, int corners) {
    const Picture floor =
        corners == 15 ? draw([](int x, int y) { return rock[(x ^ y) & 1]; }) : plain(rock_row);
    return stamped({corners}, peak.draw(), floor, true);
}

Picture road_tile(int leads) {
    return draw([leads](int x, int y) -> Pixel {
        if (!on_road(leads, x, y))
            return on_road(leads, x, y - 1) && y > 0 ? grass(road_row)[0] : meadow(road_row, x, y);
        const bool lit = y > 0 && x > 0 && (!on_road(leads, x - 1, y) || !on_road(leads, x, y - 1));
        return earth[lit ? 1 : scatter(x, y, 87, 5) == 0 ? 2 : 3];
    });
}

} // namespace veldrune::demo::overland
