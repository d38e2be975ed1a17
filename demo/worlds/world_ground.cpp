#include "demo/drawing/place.h"
#include "demo/drawing/random.h"
#include "demo/worlds/world_art.h"

namespace veldrune::demo::overland {
namespace {

constexpr Ramp sand{ink(coast_row, 6), 3}, water{ink(coast_row, 9), 7};
constexpr Ramp leaves{ink(forest_row, 6), 6}, snow{ink(rock_row, 12), 3};
constexpr Ramp dune{ink(desert_row, 6), 5}, earth{ink(road_row, 6), 4}, wood{ink(road_row, 10), 3};

int bite(int along) {
    return wobble(along) * 2 / 3;
}

/// A ground that covers some corners of a tile, each its quarter, with rounded, uneven edges.
struct Cover {
    int corners;
    bool has(int i, int j) const { return (corners >> (j * 2 + i) & 1) != 0; }
    bool is_saddle() const { return corners == 6 || corners == 9; }

    /// Steps from a pixel to the edge of what is on its corner, as its own quarter tells; 0 and
    /// less beyond it. Pixels outside the tile count as the nearest one inside.
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
        const int across = ends_across ? 8 - u - own * bite(y) : side;
        const int down = ends_down ? 8 - v - own * bite(x) : side;
        return std::min(across, down);
    }
    bool inside(int x, int y) const {
        return has(std::clamp(x, 0, side - 1) / 8, std::clamp(y, 0, side - 1) / 8) ==
               (steps_to_edge(x, y) > 0);
    }
    /// How far inside or outside a pixel is, from 1 on, for edges that need not be sharp.
    int rough_depth(int x, int y) const {
        const int steps = steps_to_edge(x, y);
        return steps > 0 ? steps : 1 - steps;
    }
    /// Steps from a pixel to the nearest one of the other kind; reach + 1 where there is none.
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

/// Grass with a few blades here and there.
Pixel meadow(int row, int x, int y) {
    static constexpr std::string_view blades[8] = {
        "................", "..1.........3...", ".3...........1..", "........1.......",
        ".....3...3......", "...1..........1.", "..........1.....", "......1......3.."};
    const std::size_t line = static_cast<std::size_t>(y & 7);
    const char blade = blades[line][static_cast<std::size_t>((x + (y & 8) / 8 * 5) & 15)];
    return grass(row)[blade == '.' ? 2 : blade - '0'];
}

/// Short crests on water.
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
    if (!above || depth > 4) // the shadow of the land at its south
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

/// Dunes lie in long waves, lit from the upper left.
Pixel dune_pixel(int x, int y) {
    const int crest = ((y + wobble(x) + (x & 15) / 2) & 7);
    return dune[crest == 0 ? 4 : crest == 1 ? 3 : crest >= 6 && (x + y) % 2 == 0 ? 1 : 2];
}

Pixel desert_pixel(const Cover& waste, int x, int y) {
    const bool in = waste.inside(x, y);
    const int level = std::max(0, 10 - 3 * waste.rough_depth(x, y));
    return in != dither(x, y, level) ? dune_pixel(x, y) : meadow(desert_row, x, y);
}

Picture living_tree() {
    Picture tree(side, side);
    tree.fill(2, 11, 13, 4, [](int x, int y) -> Pixel { // its shadow falls to the lower right
        return (x - 9) * (x - 9) + 6 * (y - 12) * (y - 12) < 40 ? ink(forest_row, 13) : Pixel{0};
    });
    tree.rect(7, 12, 2, 3, ink(forest_row, 12));
    tree.fill(1, 0, 15, 14, [](int x, int y) -> Pixel {
        const int u = x - 8, v = y - 6, square = u * u + v * v;
        if (square > 46)
            return Pixel{0};
        const int light =
            6 - (2 * (u + 2) + 3 * (v + 2)) / 6 + scatter(x / 2, (y + x / 2) / 2, 89, 3) - 1;
        return leaves[square > 36 && u + v > -4 ? 0 : light * 5 / 8];
    });
    return tree;
}

Picture dead_tree() {
    return sprite(forest_row,
                  {"................", "....7.....9.....", "..7..7...9......", "...7.8...9..9...",
                   "....788..8.9....", ".....8a.88......", "..7...a98...8...", "...77.8a8..8....",
                   ".....78a8.8.....", "......7a77......", "......7a7.......", "......7a7.......",
                   ".....d7a7dd.....", "....d77787ddd...", "......ddddd.....", "................"});
}

/// A peak: a lit face on the left of its crooked ridge and a dark one on the right, with gullies
/// down both.
Picture peak(int width, int height, int snow_line, int purpose) {
    return draw(
        [=](int x, int y) -> Pixel {
            const int half = std::min(
                (y + 1) * width / (2 * height - 6) + scatter(y, width, purpose, 2), width / 2);
            const int from = x - width / 2 - (wobble(y + purpose) - 1) * (y > 2) + y / 6;
            if (y < 1 || x < width / 2 - half || x >= width / 2 + half)
                return Pixel{0};
            if (x == width / 2 + half - 1)
                return ink(rock_row, 15);
            const int gully = (std::abs(from) * 2 - y + scatter(x / 3, y / 4, 85, 4) + 32) % 8 < 2;
            if (y < snow_line + wobble(x * 3) * 2 - 2)
                return snow[from < 0 ? 2 - gully : gully];
            return from < 0 ? rock[(from < -half * 2 / 3 ? 3 : 4) - gully + (from == -1)]
                            : rock[(from > half / 2 ? 0 : 1) + gully];
        },
        width, height);
}

/// A tile with a stamp on each covered corner, and one in its middle where all are. Those farther
/// south stand in front.
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

/// A river bank in the colours of roads.
Pixel bank_pixel(int corners, int x, int y) {
    static constexpr std::array<int, 16> values{1, 1,  2,  3,  4,  5,  6,  7,
                                                9, 13, 13, 13, 13, 13, 14, 15};
    return ink(road_row, values[coast_pixel({corners}, x, y)]);
}

} // namespace

Picture plain(int row, int width, int height) {
    return draw([row](int x, int y) { return meadow(row, x, y); }, width, height);
}

Picture meadow_tile(int variant) {
    static const Picture marks[] = {sprite(0, {".5..4.", "4.4.2.", ".2...."}),
                                    sprite(0, {".5.", "5f5", ".2."}), sprite(0, {"4.", "24"})};
    Picture tile = plain(coast_row);
    for (int mark = 0; variant > 0 && mark < 2; ++mark)
        tile.draw(marks[variant - 1], 2 + 8 * (mark ^ (variant & 1)) - variant, 2 + 7 * mark);
    return tile;
}

Picture deep_tile(int variant) {
    return draw(
        [variant](int x, int y) { return variant == 0 ? water[1] : swell(x, y, 1, 2 * variant); });
}

Picture shallow_tile(int variant) {
    return draw([variant](int x, int y) { return swell(x, y, 3, variant == 0 ? 1 : 5); });
}

Picture dune_tile(int variant) {
    static const Picture ornaments[] = {
        sprite(desert_row, {"..e..", "e.f.e", "f.f.f", "efffe", "..f..", "..f.b", "..ebb"}),
        sprite(desert_row, {".dc.", "dccb", "ccbb", "6666"}),
        sprite(desert_row, {"a..a..", ".aa.a.", "a..a.6"})};
    Picture tile = draw(dune_pixel);
    if (variant > 0)
        tile.draw(ornaments[variant - 1], 1 + variant, 1);
    return tile;
}

/// Low, rounded hills, lit from the upper left.
Picture hills_tile() {
    Picture tile = plain(coast_row);
    for (const Place& hill : {Place{5, 5}, {12, 8}, {6, 12}})
        tile.fill(hill.x - 4, hill.y - 3, 9, 6, [hill](int x, int y) -> Pixel {
            const int u = x - hill.x, v = 2 * (y - hill.y), square = u * u + v * v;
            if (square > 22)
                return Pixel{0};
            return grass(coast_row)[square > 13  ? (u + v > 0 ? 0 : 3)
                                    : u + v < -2 ? 4
                                    : u + v > 2  ? 1
                                                 : 3];
        });
    return tile;
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

Picture forest_tile(World world, int corners, bool thick) {
    const Picture floor =
        corners == 15 ? draw([](int x, int y) { return grass(forest_row)[(x + y) % 3 == 0]; })
                      : plain(forest_row);
    return stamped({corners}, world == World::dawn ? living_tree() : dead_tree(), floor, thick);
}

Picture mountain_tile(int corners) {
    const Picture floor =
        corners == 15 ? draw([](int x, int y) { return rock[(x ^ y) & 1]; }) : plain(rock_row);
    return stamped({corners}, peak(side, side, 0, 84), floor, true);
}

Picture peak_block(int snow_line, int purpose) {
    Picture block(32, 32);
    const Picture full = mountain_tile(15);
    for (const auto& [x, y] : {Place{0, 0}, {16, 0}, {0, 16}, {16, 16}})
        block.draw(full, x, y);
    block.draw(peak(30, 30, snow_line, purpose), 1, 1);
    return block;
}

Picture road_tile(int leads) {
    return draw([leads](int x, int y) -> Pixel {
        if (!on_road(leads, x, y))
            return on_road(leads, x, y - 1) && y > 0 ? grass(road_row)[0] : meadow(road_row, x, y);
        const bool lit = y > 0 && x > 0 && (!on_road(leads, x - 1, y) || !on_road(leads, x, y - 1));
        return earth[lit ? 1 : scatter(x, y, 87, 5) == 0 ? 2 : 3];
    });
}

Picture bridge_tile(int number) {
    constexpr int banks[] = {3, 12, 5, 10}; // the corners on land
    const bool across = number >= 2;
    return draw([&](int x, int y) -> Pixel {
        const int along = across ? x : y, off = across ? y : x;
        const int from_land = number % 2 == 0 ? along : 15 - along;
        if (off < 4 || off > 12)
            return bank_pixel(banks[number], x, y);
        if (from_land < 4)
            return off >= 5 && off <= 10 ? earth[scatter(x, y, 87, 5) == 0 ? 2 : 3]
                                         : bank_pixel(banks[number], x, y);
        if (off == 4 || off == 11)
            return wood[along % 4 == 0 ? 2 : 0];
        return off == 12 ? (across ? ink(road_row, 13) : wood[0])
                         : wood[along % 3 == 0 ? 0
                                : off < 8      ? 2
                                               : 1];
    });
}

} // namespace veldrune::demo::overland
