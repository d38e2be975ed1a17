#include "demo/worlds/world_tiles.h"

#include "demo/drawing/random.h"
#include "demo/worlds/world_art.h"

#include <stdexcept>

namespace veldrune::demo {
namespace {

using namespace overland;

constexpr int own_rows = 8; // the last of them is spare

struct Colours {
    Rgb grass[6];           // values 0 to 5 of every row
    Rgb rows[own_rows][10]; // values 6 to 15
};
// clang-format off
constexpr Colours world_palettes[] = {
    {{{0,0,1}, {4,12,7}, {7,17,7}, {10,21,8}, {14,24,9}, {20,28,12}},
     {
      {{17,13,9}, {23,19,12}, {29,26,17}, {3,7,20}, {4,9,22}, {5,11,24}, {7,15,26}, {10,19,28}, {16,24,30}, {30,31,31}}, // sand 6-8, water 9-14, foam
      {{1,6,6}, {2,9,6}, {4,13,6}, {7,17,7}, {12,21,8}, {18,26,11}, {8,5,4}, {2,8,6}, {27,12,14}, {30,24,26}},           // leaves 6-11, trunk, shade, blossom
      {{7,5,7}, {11,8,8}, {15,11,9}, {20,16,12}, {25,21,15}, {29,26,20}, {18,21,27}, {25,27,30}, {31,31,31}, {4,3,5}},   // rock 6-11, snow 12-14, outline
      {{20,15,8}, {24,19,10}, {27,23,13}, {29,26,16}, {31,29,21}, {14,10,7}, {19,14,9}, {24,19,13}, {4,13,6}, {9,20,7}}, // sand 6-10, stone 11-13, palm
      {{15,11,7}, {21,16,9}, {25,21,13}, {28,25,17}, {9,6,4}, {15,10,6}, {22,16,9}, {7,15,26}, {16,24,30}, {30,31,31}},  // earth 6-9, wood 10-12, water 13-15
      {{17,4,4}, {24,8,5}, {30,15,8}, {19,16,14}, {25,22,17}, {31,30,25}, {12,7,5}, {6,4,4}, {9,15,26}, {4,3,5}},        // roof 6-8, wall 9-11, timber, door, glass, outline
      {{6,6,10}, {12,12,15}, {18,18,19}, {24,24,23}, {30,30,28}, {5,7,18}, {9,13,25}, {15,21,30}, {4,3,5}, {29,9,7}},    // stone 6-10, slates 11-13, gate, banner
     }},
    {{{1,0,2}, {6,5,8}, {9,8,9}, {12,11,10}, {15,14,12}, {20,18,14}},
     {
      {{10,6,8}, {15,9,9}, {21,13,11}, {4,1,7}, {5,2,9}, {7,3,11}, {10,5,14}, {14,7,16}, {20,10,17}, {28,18,19}},
      {{4,3,5}, {6,5,6}, {9,7,7}, {12,9,8}, {15,12,10}, {19,16,12}, {4,3,5}, {4,3,6}, {20,8,8}, {25,14,10}},
      {{4,2,5}, {7,4,7}, {11,6,8}, {15,9,10}, {20,13,12}, {25,18,15}, {22,4,3}, {30,13,3}, {31,27,10}, {2,1,3}},
      {{14,8,8}, {17,10,9}, {20,13,10}, {23,16,12}, {26,20,15}, {7,4,6}, {11,7,8}, {16,11,10}, {6,6,6}, {11,10,8}},
      {{10,6,6}, {14,9,8}, {17,12,10}, {20,15,12}, {5,3,4}, {9,6,6}, {13,9,8}, {10,5,14}, {20,10,17}, {28,18,19}},
      {{8,3,5}, {12,5,6}, {17,8,8}, {9,8,10}, {14,12,13}, {19,17,16}, {5,3,4}, {3,1,3}, {31,24,9}, {2,1,3}},
      {{4,3,6}, {8,6,9}, {12,10,12}, {16,14,15}, {21,19,18}, {4,3,9}, {7,5,13}, {11,9,17}, {2,1,3}, {24,6,5}},
     }},
};

/// Where the tiles stand in the sheet. Sets of sixteen are numbered by the corners that are the
/// upper ground, roads by where they lead.
namespace tile {
constexpr int grass = 0, deep = 4, shallow = 8, forest = 10, desert = 12;
constexpr int depths = 16, coasts = 32, forests = 48, deserts = 64, mountains = 80, roads = 96;
constexpr int bridges = 112, village = 116, town = 117, harbour = 118, tower = 119, cave = 120, ruin = 121, hills = 122;
constexpr int castle = 128, peak = 130, crag = 132;
} // namespace tile

/// By what stands there, but for what its surroundings decide.
constexpr int sight_tiles[] = {
    0, 0, tile::bridges, tile::bridges + 1, tile::bridges + 2, tile::bridges + 3,
    tile::village, tile::town, tile::harbour, 0, tile::tower, tile::cave, tile::ruin, 0, 0};
// clang-format on

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

WorldColours world_colours(World world) {
    const Colours& own = world_palettes[static_cast<std::size_t>(world)];
    WorldColours colours{};
    for (std::size_t row = 0; row < own_rows; ++row)
        for (std::size_t i = 0; i < 16; ++i)
            colours[16 * row + i] = i < 6 ? own.grass[i] : own.rows[row][i - 6];
    return colours;
}

std::uint8_t tile_number(const Land& land, int x, int y) {
    const Sight sight = land.sight(x, y);
    const int number = sight == Sight::none   ? ground_tile(land, x, y)
                       : sight == Sight::road ? tile::roads + road_leads(land, x, y)
                       : sight == Sight::castle || sight >= Sight::peak
                           ? block_tile(land, x, y)
                           : sight_tiles[static_cast<std::size_t>(sight)];
    return static_cast<std::uint8_t>(number);
}

WorldTiles::WorldTiles(World world) {
    draw_grounds(world);
    for (int leads = 0; leads < 16; ++leads)
        put(tile::roads + leads, road_tile(leads));
    for (int number = 0; number < 4; ++number)
        put(tile::bridges + number, bridge_tile(number));
    draw_places();
}

void WorldTiles::draw_grounds(World world) {
    for (int i = 0; i < 4; ++i) {
        put(tile::grass + i, meadow_tile(i));
        put(tile::deep + i, deep_tile(i));
        put(tile::desert + i, dune_tile(i));
    }
    for (int i = 0; i < 2; ++i) {
        put(tile::shallow + i, shallow_tile(i));
        put(tile::forest + i, forest_tile(world, 15, i == 0));
    }
    for (int corners = 0; corners < 16; ++corners) {
        put(tile::depths + corners, depths_tile(corners));
        put(tile::coasts + corners, coast_tile(corners));
        put(tile::forests + corners, forest_tile(world, corners, true));
        put(tile::deserts + corners, desert_tile(corners));
        put(tile::mountains + corners, mountain_tile(corners));
    }
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

} // namespace veldrune::demo
