#include "demo/world_art.h"

#include "demo/random.h"

#include <stdexcept>

namespace veldrune::demo {
namespace {

constexpr int side = 16; // pixels of a tile

// Palette rows, and the colours of each. All begin with the five of grass.
constexpr int coast_row = 0, forest_row = 1, rock_row = 2, desert_row = 3, road_row = 4,
              house_row = 5, castle_row = 6;
constexpr int own_rows = 8;

using Row = std::array<Rgb, 16>;
// clang-format off
constexpr Rgb dawn_grass[6] = {{0,0,1}, {4,12,7}, {7,17,7}, {10,21,8}, {14,24,9}, {20,28,12}};
constexpr Row dawn_rows[own_rows] = {
    //               grass 1-5       sand 6-8                           water 9-14, foam 15
    {{{}, {}, {}, {}, {}, {}, {17,13,9}, {23,19,12}, {29,26,17},        {3,7,20}, {4,9,22}, {5,11,24}, {7,15,26}, {10,19,28}, {16,24,30}, {30,31,31}}},
    //                               leaves 6-11                        trunk, shade, blossom
    {{{}, {}, {}, {}, {}, {}, {1,6,6}, {2,9,6}, {4,13,6}, {7,17,7}, {12,21,8}, {18,26,11},   {8,5,4}, {2,8,6}, {27,12,14}, {30,24,26}}},
    //                               rock 6-11                          snow 12-14, outline
    {{{}, {}, {}, {}, {}, {}, {7,5,7}, {11,8,8}, {15,11,9}, {20,16,12}, {25,21,15}, {29,26,20}, {18,21,27}, {25,27,30}, {31,31,31}, {4,3,5}}},
    //                               sand 6-10                          stone 11-13, palm
    {{{}, {}, {}, {}, {}, {}, {20,15,8}, {24,19,10}, {27,23,13}, {29,26,16}, {31,29,21},  {14,10,7}, {19,14,9}, {24,19,13}, {4,13,6}, {9,20,7}}},
    //                               earth 6-9                          wood 10-12, water 13-15
    {{{}, {}, {}, {}, {}, {}, {15,11,7}, {21,16,9}, {25,21,13}, {28,25,17},        {9,6,4}, {15,10,6}, {22,16,9}, {7,15,26}, {16,24,30}, {30,31,31}}},
    //                               roof 6-8, wall 9-11                timber, door, glass, outline
    {{{}, {}, {}, {}, {}, {}, {17,4,4}, {24,8,5}, {30,15,8}, {19,16,14}, {25,22,17}, {31,30,25}, {12,7,5}, {6,4,4}, {9,15,26}, {4,3,5}}},
    //                               stone 6-10                         slates 11-13, gate, banner
    {{{}, {}, {}, {}, {}, {}, {6,6,10}, {12,12,15}, {18,18,19}, {24,24,23}, {30,30,28},   {5,7,18}, {9,13,25}, {15,21,30}, {4,3,5}, {29,9,7}}},
    {},
};
constexpr Rgb dusk_grass[6] = {{1,0,2}, {6,5,8}, {9,8,9}, {12,11,10}, {15,14,12}, {20,18,14}};
constexpr Row dusk_rows[own_rows] = {
    {{{}, {}, {}, {}, {}, {}, {10,6,8}, {15,9,9}, {21,13,11},           {4,1,7}, {5,2,9}, {7,3,11}, {10,5,14}, {14,7,16}, {20,10,17}, {28,18,19}}},
    {{{}, {}, {}, {}, {}, {}, {4,3,5}, {6,5,6}, {9,7,7}, {12,9,8}, {15,12,10}, {19,16,12},   {4,3,5}, {4,3,6}, {20,8,8}, {25,14,10}}},
    {{{}, {}, {}, {}, {}, {}, {4,2,5}, {7,4,7}, {11,6,8}, {15,9,10}, {20,13,12}, {25,18,15}, {22,4,3}, {30,13,3}, {31,27,10}, {2,1,3}}},
    {{{}, {}, {}, {}, {}, {}, {14,8,8}, {17,10,9}, {20,13,10}, {23,16,12}, {26,20,15},    {7,4,6}, {11,7,8}, {16,11,10}, {6,6,6}, {11,10,8}}},
    {{{}, {}, {}, {}, {}, {}, {10,6,6}, {14,9,8}, {17,12,10}, {20,15,12},          {5,3,4}, {9,6,6}, {13,9,8}, {10,5,14}, {20,10,17}, {28,18,19}}},
    {{{}, {}, {}, {}, {}, {}, {8,3,5}, {12,5,6}, {17,8,8}, {9,8,10}, {14,12,13}, {19,17,16}, {5,3,4}, {3,1,3}, {31,24,9}, {2,1,3}}},
    {{{}, {}, {}, {}, {}, {}, {4,3,6}, {8,6,9}, {12,10,12}, {16,14,15}, {21,19,18},       {4,3,9}, {7,5,13}, {11,9,17}, {2,1,3}, {24,6,5}}},
    {},
};

constexpr Ramp grass(int row) { return {ink(row, 1), 5}; }
constexpr Ramp sand{ink(coast_row, 6), 3}, water{ink(coast_row, 9), 7};
constexpr Ramp leaves{ink(forest_row, 6), 6}, rock{ink(rock_row, 6), 6}, snow{ink(rock_row, 12), 3};
constexpr Ramp dune{ink(desert_row, 6), 5}, earth{ink(road_row, 6), 4}, wood{ink(road_row, 10), 3};
constexpr Ramp roof{ink(house_row, 6), 3}, wall{ink(house_row, 9), 3};
constexpr Ramp stone{ink(castle_row, 6), 5}, slate{ink(castle_row, 11), 3};

/// Where the tiles stand in the sheet. Sets of sixteen are numbered by the corners that are the
/// upper ground (1 upper left, 2 upper right, 4 lower left, 8 lower right), roads by where they
/// lead (1 north, 2 east, 4 south, 8 west).
namespace tile {
constexpr int grass = 0, deep = 4, shallow = 8, forest = 10, desert = 12;
constexpr int depths = 16, coasts = 32, forests = 48, deserts = 64, mountains = 80, roads = 96;
constexpr int bridges = 112, village = 116, town = 117, harbour = 118, tower = 119, cave = 120, ruin = 121, hills = 122;
constexpr int castle = 128, peak = 130, crag = 132;
} // namespace tile
// clang-format on

// ---- Shapes ------------------------------------------------------------------------------------

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

// ---- Grounds -----------------------------------------------------------------------------------

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

// ---- Woods and mountains -----------------------------------------------------------------------

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

Picture plain(int row) {
    return draw([row](int x, int y) { return meadow(row, x, y); });
}

Picture forest_tile(Age age, int corners, bool thick) {
    const Cover cover{corners};
    const Picture floor =
        corners == 15 ? draw([](int x, int y) { return grass(forest_row)[(x + y) % 3 == 0]; })
                      : plain(forest_row);
    return stamped(cover, age == Age::dawn ? living_tree() : dead_tree(), floor, thick);
}

Picture mountain_tile(int corners) {
    const Picture floor =
        corners == 15 ? draw([](int x, int y) { return rock[(x ^ y) & 1]; }) : plain(rock_row);
    return stamped({corners}, peak(side, side, 0, 84), floor, true);
}

// ---- Roads and bridges -------------------------------------------------------------------------

bool on_road(int leads, int x, int y) {
    const int u = x - 8 + (x < 8), v = y - 8 + (y < 8); // -7 to 7, 0 twice
    const int width = 3 - (scatter(x, y, 86, 4) == 0);
    const bool arm = (std::abs(u) < width && ((leads & 1 && y < 8) || (leads & 4 && y >= 8))) ||
                     (std::abs(v) < width && ((leads & 2 && x >= 8) || (leads & 8 && x < 8)));
    return arm || u * u + v * v < 9;
}

Picture road_tile(int leads) {
    return draw([leads](int x, int y) -> Pixel {
        if (!on_road(leads, x, y))
            return on_road(leads, x, y - 1) && y > 0 ? grass(road_row)[0] : meadow(road_row, x, y);
        const bool lit = y > 0 && x > 0 && (!on_road(leads, x - 1, y) || !on_road(leads, x, y - 1));
        return earth[lit ? 1 : scatter(x, y, 87, 5) == 0 ? 2 : 3];
    });
}

/// A river bank in the colours of roads.
Pixel bank_pixel(int corners, int x, int y) {
    static constexpr std::array<int, 16> values{1, 1,  2,  3,  4,  5,  6,  7,
                                                9, 13, 13, 13, 13, 13, 14, 15};
    return ink(road_row, values[coast_pixel({corners}, x, y)]);
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

// ---- Places ------------------------------------------------------------------------------------

void draw_house(Picture& tile, int x, int y, int width) {
    const int wall_top = y + 4;
    tile.rect(x, wall_top, width, 4, wall[1]);
    tile.rect(x, wall_top, 1, 4, wall[2]);
    tile.rect(x + width - 1, wall_top, 1, 4, wall[0]);
    tile.rect(x + width / 2, wall_top + 2, 1, 2, ink(house_row, 13));
    if (width > 5)
        tile.set(x + 1, wall_top + 1, ink(house_row, 14));
    for (int line = 0; line < 4; ++line)
        tile.rect(x - 1 + (3 - line) / 2, y + line, width + 2 - (3 - line) / 2 * 2, 1,
                  roof[line == 0   ? 2
                       : line == 3 ? 0
                                   : 1]);
    tile.rect(x, wall_top + 4, width + 1, 1, grass(house_row)[0]);
}

Picture village_tile() {
    Picture tile = plain(house_row);
    draw_house(tile, 2, 1, 5);
    draw_house(tile, 10, 3, 5);
    draw_house(tile, 5, 8, 5);
    return tile;
}

Picture town_tile() {
    Picture tile = plain(house_row);
    tile.bevel(0, 3, 16, 12, wall[2], wall[1], wall[0]);
    tile.rect(2, 5, 12, 8, grass(house_row)[1]);
    draw_house(tile, 2, 0, 5);
    draw_house(tile, 9, 0, 6);
    draw_house(tile, 5, 5, 7);
    tile.rect(0, 12, 16, 3, wall[1]);
    for (int x = 0; x < side; x += 3)
        tile.rect(x, 11, 2, 1, wall[2]);
    tile.rect(0, 15, 16, 1, wall[0]);
    tile.rect(7, 12, 3, 4, ink(house_row, 13));
    return tile;
}

Picture harbour_tile() {
    Picture tile = plain(house_row);
    draw_house(tile, 1, 6, 6);
    tile.rect(9, 2, 5, 13, wall[1]); // a lighthouse
    tile.rect(9, 2, 1, 13, wall[2]);
    tile.rect(12, 2, 2, 13, wall[0]);
    tile.rect(9, 6, 5, 2, roof[1]);
    tile.rect(9, 10, 5, 2, roof[1]);
    tile.rect(8, 2, 7, 1, ink(house_row, 12));
    tile.rect(10, 0, 3, 2, ink(house_row, 14));
    return tile;
}

Picture tower_tile() {
    Picture tile = plain(castle_row);
    tile.rect(12, 13, 3, 2, grass(castle_row)[0]);
    tile.rect(4, 4, 8, 11, stone[2]);
    tile.rect(4, 4, 2, 11, stone[4]);
    tile.rect(10, 4, 2, 11, stone[0]);
    for (const int y : {6, 9, 12})
        tile.rect(7, y, 1, 2, ink(castle_row, 14));
    tile.rect(3, 3, 10, 2, stone[3]);
    tile.rect(3, 5, 10, 1, stone[0]);
    for (int line = 0; line < 3; ++line)
        tile.rect(7 - line, line, 2 + 2 * line, 1, slate[line == 0 ? 2 : 1]);
    return tile;
}

Picture ruin_tile() {
    Picture tile = plain(castle_row);
    static constexpr Place columns[] = {{1, 4}, {5, 8}, {9, 2}, {13, 7}};
    for (const auto& [x, top] : columns) {
        tile.rect(x, top, 2, 13 - top, stone[3]);
        tile.rect(x + 1, top + 1, 1, 12 - top, stone[1]);
        tile.rect(x - 1, 13, 4, 1, stone[2]);
        tile.rect(x, 14, 4, 1, grass(castle_row)[0]);
    }
    tile.rect(0, 3, 4, 1, stone[4]);
    tile.rect(6, 11, 3, 2, stone[1]);
    tile.set(6, 11, stone[3]);
    return tile;
}

Picture cave_tile() {
    Picture tile = mountain_tile(3);
    tile.fill(3, 2, 10, 9, [](int x, int y) -> Pixel {
        const int u = 2 * x - 15, v = y < 7 ? 2 * (y - 7) : 0;
        return u * u + v * v < 30   ? ink(rock_row, 15)
               : u * u + v * v < 84 ? rock[x < 8 ? 4 : 1]
                                    : Pixel{0};
    });
    return tile;
}

void draw_turret(Picture& block, int x, int top, int bottom) {
    block.rect(x, top + 6, 7, bottom - top - 6, stone[2]);
    block.rect(x, top + 6, 2, bottom - top - 6, stone[4]);
    block.rect(x + 5, top + 6, 2, bottom - top - 6, stone[0]);
    block.rect(x + 3, top + 9, 1, 3, ink(castle_row, 14));
    for (int line = 0; line < 6; ++line)
        block.fill(x + 3 - (line + 1) / 2 - 0, top + line, 1 + (line + 1) / 2 * 2, 1,
                   [&](int at, int) {
                       return slate[at < x + 3 ? 2 : at == x + 3 ? 1 : 0];
                   });
    block.rect(x + 3, top - 2, 1, 2, ink(castle_row, 14));
    block.rect(x + 4, top - 2, 2, 1, ink(castle_row, 15));
}

Picture castle_block() {
    Picture block = draw([](int x, int y) { return meadow(castle_row, x, y); }, 32, 32);
    block.rect(4, 28, 27, 3, grass(castle_row)[0]);
    draw_turret(block, 12, 2, 20); // the keep
    draw_turret(block, 6, 6, 24);
    draw_turret(block, 19, 6, 24);
    block.rect(3, 17, 26, 12, stone[2]);
    block.fill(3, 17, 26, 12, [](int x, int y) -> Pixel {
        return y % 3 == 2 || (x + y / 3 % 2 * 2) % 4 == 0 ? stone[x < 16 ? 2 : 1]
                                                          : stone[x < 16 ? 3 : 2];
    });
    for (int x = 3; x < 29; x += 4)
        block.rect(x, 15, 2, 2, stone[4]);
    draw_turret(block, 1, 8, 30);
    draw_turret(block, 24, 8, 30);
    block.fill(12, 20, 8, 9, [](int x, int y) -> Pixel {
        const int u = 2 * x - 31, v = y < 23 ? 2 * (y - 23) : 0;
        return u * u + v * v < 36 ? ink(castle_row, 14) : u * u + v * v < 64 ? stone[4] : Pixel{0};
    });
    return block;
}

Picture peak_block(int snow_line, int purpose) {
    Picture block(32, 32);
    const Picture full = mountain_tile(15);
    for (const auto& [x, y] : {Place{0, 0}, {16, 0}, {0, 16}, {16, 16}})
        block.draw(full, x, y);
    block.draw(peak(30, 30, snow_line, purpose), 1, 1);
    return block;
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

// ---- Which tile shows what ---------------------------------------------------------------------

int corners_of(const std::array<Ground, 4>& grounds, auto&& upper) {
    int corners = 0;
    for (std::size_t i = 0; i < 4; ++i)
        corners |= upper(grounds[i]) ? 1 << i : 0;
    return corners;
}

/// Mostly the first of count variants of a plain ground, which stand from first on.
int variant(int first, int count, int rarity, int x, int y) {
    const int n = scatter(x, y, 88, rarity);
    return n < count - 1 ? first + 1 + n : first;
}

int ground_tile(const Land& land, int x, int y) {
    const auto grounds = land.corners(x, y);
    const Ground lowest = *std::ranges::min_element(grounds),
                 highest = *std::ranges::max_element(grounds);
    const int corners = corners_of(grounds, [lowest](Ground g) { return g > lowest; });
    if (lowest == highest)
        switch (lowest) {
        case Ground::deep:
            return variant(tile::deep, 4, 300, x, y);
        case Ground::shallow:
            return variant(tile::shallow, 2, 90, x, y);
        case Ground::grass:
            return wave(x, y, 9, 92) > 740 && scatter(x, y, 93, 4) != 0
                       ? tile::hills
                       : variant(tile::grass, 4, wave(x, y, 7, 94) > 660 ? 6 : 250, x, y);
        case Ground::forest:
            return variant(tile::forest, 2, 24, x, y);
        case Ground::desert:
            return variant(tile::desert, 4, 70, x, y);
        case Ground::mountain:
            return tile::mountains + 15;
        }
    if (lowest == Ground::deep)
        return tile::depths + corners;
    if (lowest == Ground::shallow)
        return tile::coasts + corners;
    return (highest == Ground::forest   ? tile::forests
            : highest == Ground::desert ? tile::deserts
                                        : tile::mountains) +
           corners;
}

/// Roads lead to roads, bridges and gates.
int road_leads(const Land& land, int x, int y) {
    using enum Sight;
    const auto joins = [&](int i, int j, Sight bridge, bool gate) {
        const Sight there = land.sight(x + i, y + j);
        return there == road || there == bridge || (gate && there >= village && there <= ruin) ||
               (gate && land.sight(x, y - 2) == castle && there == taken);
    };
    return joins(0, -1, bridge_bottom, true) | joins(1, 0, bridge_left, false) << 1 |
           joins(0, 1, bridge_top, false) << 2 | joins(-1, 0, bridge_right, false) << 3;
}

/// The tile of a block of four that shows (x, y), which may be any of them.
int block_tile(const Land& land, int x, int y) {
    for (const auto& [i, j] : {Place{0, 0}, {1, 0}, {0, 1}, {1, 1}}) {
        const Sight first = land.sight(x - i, y - j);
        if (first == Sight::castle || first == Sight::peak)
            return (first == Sight::castle              ? tile::castle
                    : scatter(x - i, y - j, 95, 3) == 0 ? tile::peak
                                                        : tile::crag) +
                   16 * j + i;
    }
    return tile::grass;
}

} // namespace

WorldColours world_colours(Age age) {
    WorldColours colours{};
    for (std::size_t row = 0; row < own_rows; ++row)
        for (std::size_t i = 0; i < 16; ++i)
            colours[16 * row + i] = i < 6 ? (age == Age::dawn ? dawn_grass : dusk_grass)[i]
                                          : (age == Age::dawn ? dawn_rows : dusk_rows)[row][i];
    return colours;
}

WorldTiles::WorldTiles(Age age) : age_(age) {
    draw_grounds();
    draw_ways();
    draw_places();
}

void WorldTiles::draw_grounds() {
    static const Picture marks[] = {sprite(0, {".5..4.", "4.4.2.", ".2...."}),
                                    sprite(0, {".5.", "5f5", ".2."}), sprite(0, {"4.", "24"})};
    for (int i = 0; i < 4; ++i) {
        Picture meadow = plain(coast_row);
        for (int mark = 0; i > 0 && mark < 2; ++mark)
            meadow.draw(marks[i - 1], 2 + 8 * (mark ^ (i & 1)) - i, 2 + 7 * mark);
        put(tile::grass + i, meadow);
        put(tile::deep + i,
            draw([i](int x, int y) { return i == 0 ? water[1] : swell(x, y, 1, 2 * i); }));
        Picture waste = draw(dune_pixel);
        if (i > 0)
            waste.draw(
                sprite(desert_row,
                       i == 1 ? std::initializer_list<std::string_view>{"..e..", "e.f.e", "f.f.f",
                                                                        "efffe", "..f..", "..f.b",
                                                                        "..ebb"}
                       : i == 2
                           ? std::initializer_list<std::string_view>{".dc.", "dccb", "ccbb", "6666"}
                           : std::initializer_list<std::string_view>{"a..a..", ".aa.a.", "a..a.6"}),
                1 + i, 1);
        put(tile::desert + i, waste);
    }
    for (int i = 0; i < 2; ++i) {
        put(tile::shallow + i,
            draw([i](int x, int y) { return i == 0 ? swell(x, y, 3, 1) : swell(x, y, 3, 5); }));
        put(tile::forest + i, forest_tile(age_, 15, i == 0));
    }
    for (int corners = 0; corners < 16; ++corners) {
        const Cover cover{corners};
        put(tile::depths + corners, draw([&](int x, int y) { return depth_pixel(cover, x, y); }));
        put(tile::coasts + corners, draw([&](int x, int y) { return coast_pixel(cover, x, y); }));
        put(tile::forests + corners, forest_tile(age_, corners, true));
        put(tile::deserts + corners, draw([&](int x, int y) { return desert_pixel(cover, x, y); }));
        put(tile::mountains + corners, mountain_tile(corners));
    }
}

void WorldTiles::draw_ways() {
    for (int leads = 0; leads < 16; ++leads)
        put(tile::roads + leads, road_tile(leads));
    for (int number = 0; number < 4; ++number)
        put(tile::bridges + number, bridge_tile(number));
}

void WorldTiles::draw_places() {
    put(tile::village, village_tile());
    put(tile::town, town_tile());
    put(tile::harbour, harbour_tile());
    put(tile::tower, tower_tile());
    put(tile::cave, cave_tile());
    put(tile::ruin, ruin_tile());
    put(tile::hills, hills_tile());
    put_block(tile::castle, castle_block());
    put_block(tile::peak, peak_block(12, 90));
    put_block(tile::crag, peak_block(4, 97));
}

void WorldTiles::put(int tile, const Picture& picture) {
    for (int quarter = 0; quarter < 4; ++quarter)
        table_[static_cast<std::size_t>(tile)][static_cast<std::size_t>(quarter)] =
            add_character(picture, quarter % 2 * 8, quarter / 2 * 8);
}

void WorldTiles::put_block(int tile, const Picture& picture) {
    for (const auto& [i, j] : {Place{0, 0}, {1, 0}, {0, 1}, {1, 1}}) {
        Picture part(side, side);
        part.draw(picture, -16 * i, -16 * j);
        put(tile + 16 * j + i, part);
    }
}

/// The number of the character at (x, y) of a picture; equal ones are kept once, whatever the
/// palette row of grass.
int WorldTiles::add_character(const Picture& picture, int x, int y) {
    std::array<std::uint8_t, 64> pixels;
    bool only_grass = true;
    for (int i = 0; i < 64; ++i) {
        pixels[static_cast<std::size_t>(i)] = picture.at(x + i % 8, y + i / 8);
        only_grass = only_grass && pixels[static_cast<std::size_t>(i)] % 16 <= 5;
    }
    for (std::uint8_t& pixel : pixels) {
        if (only_grass)
            pixel %= 16;
        if (pixel / 16 != pixels[0] / 16)
            throw std::logic_error("a character of a world mixes palette rows");
    }
    const auto [place, fresh] = numbers_.try_emplace(pixels, static_cast<int>(characters_.size()));
    if (fresh)
        characters_.push_back(pixels);
    if (characters_.size() > 256)
        throw std::length_error("a world has more than 256 characters");
    return place->second;
}

std::vector<std::uint8_t> WorldTiles::graphics() const {
    constexpr std::size_t characters_at = 1024, rows_at = 9216;
    std::vector<std::uint8_t> block(rows_at + 128);
    for (std::size_t entry = 0; entry < 1024; ++entry)
        block[entry] = static_cast<std::uint8_t>(table_[entry / 4][entry % 4]);
    for (std::size_t c = 0; c < characters_.size(); ++c) {
        const auto& pixels = characters_[c];
        for (std::size_t i = 0; i < 32; ++i)
            block[characters_at + 32 * c + i] =
                static_cast<std::uint8_t>(pixels[2 * i] % 16 | pixels[2 * i + 1] % 16 << 4);
        block[rows_at + c / 2] |= static_cast<std::uint8_t>(pixels[0] / 16 << c % 2 * 4);
    }
    return block;
}

std::uint8_t WorldTiles::number_at(const Land& land, int x, int y) const {
    const Sight sight = land.sight(x, y);
    const int number = [&] {
        switch (sight) {
        case Sight::none:
            return ground_tile(land, x, y);
        case Sight::road:
            return tile::roads + road_leads(land, x, y);
        case Sight::castle:
        case Sight::peak:
        case Sight::taken:
            return block_tile(land, x, y);
        case Sight::bridge_top:
        case Sight::bridge_bottom:
        case Sight::bridge_left:
        case Sight::bridge_right:
            return tile::bridges + static_cast<int>(sight) - static_cast<int>(Sight::bridge_top);
        case Sight::village:
            return tile::village;
        case Sight::town:
            return tile::town;
        case Sight::harbour:
            return tile::harbour;
        case Sight::tower:
            return tile::tower;
        case Sight::cave:
            return tile::cave;
        default:
            return tile::ruin;
        }
    }();
    return static_cast<std::uint8_t>(number);
}

} // namespace veldrune::demo
