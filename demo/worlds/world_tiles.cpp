#include "demo/worlds/world_tiles.h"

#include "demo/assets/palettes/worlds.h"
#include "demo/assets/pictures/overland.h"
#include "demo/drawing/random.h"
#include "demo/worlds/enlarge_sketch.h"
#include "demo/worlds/world_art.h"
#include "world_map/world_map.h"

#include <algorithm>
#include <stdexcept>

namespace veldrune::demo {
namespace {

using namespace overland;

constexpr std::array<Rgb, 120> palettes[] = {colours<120>(assets::worlds, "dawn"),
                                             colours<120>(assets::worlds, "dusk")};

// clang-format off
// Numbers of the tiles in the sheet. From 16 on there is a set of sixteen for every ground but the
// deep sea, numbered by the covered corners; roads are numbered by their directions.
namespace tile {
constexpr int grass = 0, deep = 4, shallow = 8, forest = 10, desert = 12, sets = 16, roads = 96;
constexpr int bridges = 112, village = 116, town = 117, harbour = 118, tower = 119, cave = 120, ruin = 121, hills = 122;
constexpr int castle = 128, peak = 130, crag = 132;
constexpr int of(Ground upper, int corners) { return sets * static_cast<int>(upper) + corners; }
} // namespace tile

// By Ground: first tile and count of the variants of a plain ground, and the rarity of all but the
// first.
struct Variants { int first, count, rarity; };
constexpr Variants plains[] = {
    {tile::deep, 4, 300}, {tile::shallow, 2, 90}, {tile::grass, 4, 250}, {tile::forest, 2, 24}, {tile::desert, 4, 70},
    {tile::of(Ground::mountain, 15), 1, 1}};

// By Feature; 0 where the tile depends on the surroundings.
constexpr int feature_tiles[] = {
    0, 0, tile::bridges, tile::bridges + 1, tile::bridges + 2, tile::bridges + 3,
    tile::village, tile::town, tile::harbour, 0, tile::tower, tile::cave, tile::ruin, 0, 0};

// A picture of demo/assets/pictures, of one tile or two by two.
consteval DrawnPicture drawn(std::string_view name, int number = 0) {
    return picture(assets::overland, name, number);
}
struct TileArt { int tile; DrawnPicture picture; };
constexpr TileArt on_grass[] = {
    {tile::grass + 1, drawn("flowers")}, {tile::grass + 2, drawn("flowers", 1)}, {tile::grass + 3, drawn("flowers", 2)},
    {tile::bridges, drawn("bridge_top")}, {tile::bridges + 1, drawn("bridge_bottom")}, {tile::bridges + 2, drawn("bridge_left")}, {tile::bridges + 3, drawn("bridge_right")},
    {tile::village, drawn("village")}, {tile::town, drawn("town")}, {tile::harbour, drawn("harbour")}, {tile::tower, drawn("tower")},
    {tile::cave, drawn("cave")}, {tile::ruin, drawn("ruin")}, {tile::hills, drawn("hills")}, {tile::castle, drawn("castle")}};
constexpr TileArt on_sand[] = {{tile::desert + 1, drawn("palm")}, {tile::desert + 2, drawn("boulder")}, {tile::desert + 3, drawn("bones")}};
constexpr TileArt on_rock[] = {{tile::peak, drawn("snowy_peak")}, {tile::crag, drawn("crag")}};
constexpr DrawnPicture trees[] = {drawn("tree"), drawn("dead_tree")}; // of Dawn and of Dusk
// clang-format on

// Hills and flowers are in groups on grass.
int plain_tile(Ground ground, int x, int y) {
    auto [first, count, rarity] = plains[static_cast<std::size_t>(ground)];
    if (ground == Ground::grass && wave(x, y, 9, 92) > 740 && scatter(x, y, 93, 4) != 0)
        return tile::hills;
    if (ground == Ground::grass && wave(x, y, 7, 94) > 660)
        rarity = 6;
    const int other = scatter(x, y, 88, rarity) + 1;
    return other < count ? first + other : first;
}

int ground_tile(const Land& land, int x, int y) {
    const auto grounds = land.corners(x, y);
    const auto [lowest, highest] = std::ranges::minmax(grounds);
    int corners = 0;
    for (std::size_t i = 0; i < 4; ++i)
        corners |= (grounds[i] > lowest) << i;
    return lowest == highest ? plain_tile(lowest, x, y) : tile::of(highest, corners);
}

// The directions in which a road continues: to roads, bridges and gates.
int road_leads(const Land& land, int x, int y) {
    using enum Feature;
    const auto joins = [&](int i, int j, Feature bridge, bool gate) {
        const Feature there = land.feature(x + i, y + j);
        return there == road || there == bridge || (gate && there >= village && there <= ruin) ||
               (gate && land.feature(x, y - 2) == castle && there == occupied);
    };
    return joins(0, -1, bridge_bottom, true) | joins(1, 0, bridge_left, false) << 1 |
           joins(0, 1, bridge_top, false) << 2 | joins(-1, 0, bridge_right, false) << 3;
}

// The tile at (x, y) in a feature of two by two tiles.
int block_tile(const Land& land, int x, int y) {
    for (const auto& [i, j] : {Place{0, 0}, {1, 0}, {0, 1}, {1, 1}}) {
        const Feature first = land.feature(x - i, y - j);
        if (first == Feature::castle || first == Feature::peak)
            return (first == Feature::castle            ? tile::castle
                    : scatter(x - i, y - j, 95, 3) == 0 ? tile::peak
                                                        : tile::crag) +
                   16 * j + i;
    }
    return tile::grass;
}

using Character = std::array<Pixel, 64>;

// The tiles of a world and the characters that they are made of.
struct Sheet {
    std::array<std::uint8_t, 1024> table{}; // four characters per tile
    std::vector<Character> characters;

    explicit Sheet(World world);
    void put(int tile, const Picture& picture);
    void put(int tile, const Picture& ground, DrawnPicture thing);
    std::uint8_t add_character(const Picture& picture, int x, int y);
};

Sheet::Sheet(World world) {
    using enum Ground;
    const DrawnPicture tree = trees[static_cast<std::size_t>(world)], peak = drawn("peak");
    put(tile::grass, plain(coast_row));
    for (int corners = 0; corners < 16; ++corners) {
        put(tile::of(shallow, corners), depths_tile(corners));
        put(tile::of(grass, corners), coast_tile(corners));
        put(tile::of(forest, corners), forest_tile(tree, corners, true));
        put(tile::of(desert, corners), desert_tile(corners));
        put(tile::of(mountain, corners), mountain_tile(peak, corners));
        put(tile::roads + corners, road_tile(corners));
    }
    for (int i = 0; i < 4; ++i)
        put(tile::deep + i, deep_tile(i));
    for (int i = 0; i < 2; ++i) {
        put(tile::shallow + i, shallow_tile(i));
        put(tile::forest + i, forest_tile(tree, 15, i == 0));
    }
    put(tile::desert, dunes());
    for (const auto& [tile, thing] : on_grass)
        put(tile, plain(thing.rows[0]), thing);
    for (const auto& [tile, thing] : on_sand)
        put(tile, dunes(), thing);
    for (const auto& [tile, thing] : on_rock)
        put(tile, mountain_tile(peak, 15), thing);
}

// Puts a drawn picture, on tiles of ground, into as many tiles as it needs.
void Sheet::put(int tile, const Picture& ground, DrawnPicture thing) {
    const Picture picture = thing.draw();
    for (int y = 0; y < picture.height; y += side)
        for (int x = 0; x < picture.width; x += side) {
            Picture part = ground;
            part.draw(picture, -x, -y);
            put(tile + y + x / side, part);
        }
}

void Sheet::put(int tile, const Picture& picture) {
    for (int quarter = 0; quarter < 4; ++quarter)
        table[static_cast<std::size_t>(4 * tile + quarter)] =
            add_character(picture, quarter % 2 * 8, quarter / 2 * 8);
}

// The number of the character at (x, y) of a picture. Equal characters are added once. Grass alone
// counts as equal in all palette rows.
std::uint8_t Sheet::add_character(const Picture& picture, int x, int y) {
    Character pixels;
    for (int i = 0; i < 64; ++i)
        pixels[static_cast<std::size_t>(i)] = picture.at(x + i % 8, y + i / 8);
    if (std::ranges::all_of(pixels, [](Pixel pixel) { return pixel % 16 <= 5; }))
        for (Pixel& pixel : pixels)
            pixel %= 16;
    if (std::ranges::any_of(pixels, [&](Pixel pixel) { return pixel / 16 != pixels[0] / 16; }))
        throw std::logic_error("a character of a world mixes palette rows");
    const auto number = std::ranges::find(characters, pixels) - characters.begin();
    if (number == std::ssize(characters))
        characters.push_back(pixels);
    if (characters.size() > 256)
        throw std::length_error("a world has more than 256 characters");
    return static_cast<std::uint8_t>(number);
}

} // namespace

WorldColours world_colours(World world) {
    WorldColours colours{};
    const auto& own = palettes[static_cast<std::size_t>(world)];
    for (std::size_t i = 0; i < own.size(); ++i)
        colours[16 * (i / 15) + 1 + i % 15] = own[i];
    return colours;
}

std::uint8_t tile_number(const Land& land, int x, int y) {
    const Feature feature = land.feature(x, y);
    const int number = feature == Feature::none   ? ground_tile(land, x, y)
                       : feature == Feature::road ? tile::roads + road_leads(land, x, y)
                       : feature == Feature::castle || feature >= Feature::peak
                           ? block_tile(land, x, y)
                           : feature_tiles[static_cast<std::size_t>(feature)];
    return static_cast<std::uint8_t>(number);
}

std::vector<std::uint8_t> world_graphics(World world) {
    const Sheet sheet(world);
    std::vector<std::uint8_t> block(world_graphics_size);
    std::ranges::copy(sheet.table, block.begin());
    for (std::size_t c = 0; c < sheet.characters.size(); ++c) {
        const Character& pixels = sheet.characters[c];
        for (std::size_t i = 0; i < 32; ++i)
            block[world_characters_at + 32 * c + i] =
                static_cast<std::uint8_t>(pixels[2 * i] % 16 | pixels[2 * i + 1] % 16 << 4);
        block[world_palette_rows_at + c / 2] |=
            static_cast<std::uint8_t>(pixels[0] / 16 << c % 2 * 4);
    }
    return block;
}

} // namespace veldrune::demo
