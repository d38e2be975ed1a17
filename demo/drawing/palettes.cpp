#include "demo/drawing/palettes.h"

namespace veldrune::demo {
namespace {

using Row = std::array<Rgb, 15>;
using Rows = std::array<Row, 8>;

/// Values 1 to 15, from parts of them.
template <std::size_t... counts>
constexpr Row row(const Rgb (&... parts)[counts]) {
    static_assert((counts + ...) == Row{}.size());
    Row all{};
    auto next = all.begin();
    ((next = std::copy_n(parts, counts, next)), ...);
    return all;
}

// clang-format off
// Ramps turn from cold, deep shadows to warm lights. Those of several rows:
constexpr Rgb grass[]       = {{5,11,8}, {7,15,7}, {10,19,7}, {14,23,8}, {20,27,10}};
constexpr Rgb bark[]        = {{6,3,5}, {11,6,5}, {16,10,6}, {21,15,9}};
constexpr Rgb timber[]      = {{6,3,4}, {11,6,4}, {16,10,6}, {21,15,9}};
constexpr Rgb glass[]       = {{5,8,16}, {16,23,28}};
constexpr Rgb cave_floor[]  = {{9,7,9}, {13,10,11}, {17,14,13}, {21,18,16}, {25,22,19}};
constexpr Rgb cave_rock[]   = {{4,3,7}, {8,6,10}, {12,9,13}, {17,13,16}};
constexpr Rgb slabs[]       = {{9,9,14}, {13,13,18}, {18,18,22}, {22,22,25}, {27,27,28}};
constexpr Rgb castle_wall[] = {{4,4,9}, {8,8,14}, {12,13,18}, {17,18,22}, {23,23,25}};
constexpr Rgb gold[]        = {{11,6,3}, {19,13,4}, {27,21,8}, {31,28,16}};
constexpr Rgb planks[]      = {{9,5,4}, {14,8,5}, {19,12,7}, {22,15,9}, {26,20,12}};

constexpr Row mist = row({{7,10,14}, {9,12,17}, {12,15,19}, {0,0,1}},                // shadow of clouds
                         {{11,13,16}, {15,17,20}, {22,24,26}, {0,0,1}},              // fog
                         {{18,18,11}, {22,21,13}, {29,27,19}, {0,0,1}},              // light
                         {{3,3,9}, {9,10,20}, {29,29,31}});                          // night sky
constexpr Row items = row({{4,3,5}, {14,3,5}, {23,7,6}, {30,16,12}},                 // outline, red
                          {{5,6,15}, {9,14,25}, {18,24,31}},                         // blue
                          {{14,9,4}, {23,17,5}, {30,27,11}},                         // gold
                          {{10,6,4}, {18,12,7}},                                     // brown
                          {{20,20,22}, {30,30,28}, {9,19,8}});                       // white, leaf

constexpr Row ground = row(grass,
                           {{12,8,6}, {18,13,8}, {22,17,10}, {25,21,13}, {28,25,17}},    // soil
                           {{3,7,6}, {30,30,28}, {30,25,8}, {27,10,12}, {16,14,26}});    // blades, flowers
constexpr Row tree = row({{2,6,7}, {3,10,8}, {5,14,8}, {9,19,8}, {15,24,9}, {22,28,12}}, bark, grass);
constexpr Row conifer = row({{1,4,7}, {2,8,9}, {3,12,10}, {6,16,11}, {11,20,13}, {18,25,17}}, bark, grass);
constexpr Row blossom = row({{11,4,11}, {17,7,15}, {23,12,19}, {27,18,23}, {30,24,27}, {31,29,30}}, bark, grass);
constexpr Row stone = row({{5,5,9}, {9,9,13}, {13,13,16}, {18,18,19}, {23,23,22}, {28,28,26}}, timber, grass);
constexpr Row water = row({{3,6,14}, {4,9,19}, {6,13,23}, {10,18,27}, {17,25,30}, {28,31,31}},
                          {{9,6,6}, {14,10,7}, {19,14,9}, {24,19,12}}, grass);       // bank
constexpr Row red_house = row({{8,2,5}, {14,4,6}, {20,7,6}, {25,12,7}, {29,18,11}}, timber, // tiles
                              {{14,11,12}, {20,17,15}, {26,23,18}, {30,28,23}}, glass);     // plaster
constexpr Row blue_house = row({{4,3,10}, {6,7,15}, {9,12,20}, {14,18,25}, {20,24,29}}, timber, // slates
                               {{12,11,14}, {17,16,18}, {22,22,22}, {28,28,27}}, glass);        // wall

constexpr Row cave_ground = row(cave_floor, cave_rock, {{22,18,19}},
                                {{5,8,7}, {8,12,8}, {11,15,9}, {15,19,11}, {1,1,3}});    // moss, depth
constexpr Row cyan_crystal = row({{2,5,11}, {3,10,17}, {5,16,22}, {11,22,26}, {20,28,29}, {30,31,31}}, cave_rock, cave_floor);
constexpr Row violet_crystal = row({{7,2,12}, {13,4,18}, {19,8,23}, {24,14,27}, {28,21,30}, {31,29,31}}, cave_rock, cave_floor);
constexpr Row cave_stone = row(cave_rock, {{22,18,19}, {27,24,23}}, timber, cave_floor);
constexpr Row cave_water = row({{2,4,9}, {2,7,13}, {3,11,17}, {7,17,21}, {15,25,26}, {26,31,30}}, cave_rock, cave_floor);
constexpr Row mushroom = row({{4,3,6}, {10,3,5}, {16,5,6}, {23,9,7}, {29,19,13}, {30,28,24}},            // caps
                             {{4,3,7}, {8,6,10}, {12,9,13}, {19,16,14}, {26,23,19}},                     // stems
                             {{13,10,11}, {17,14,13}, {21,18,16}, {25,22,19}});                          // floor

constexpr Row marble = row(slabs, castle_wall, {{9,11,18}, {14,16,21}, {17,19,24}, {20,22,26}, {1,1,4}}); // inlay, dark
constexpr Row royal_red = row({{7,1,5}, {12,2,6}, {17,4,7}, {22,7,9}, {28,14,12}}, gold, {{3,1,4}}, slabs); // carpet
constexpr Row royal_blue = row({{3,3,11}, {5,6,17}, {7,10,22}, {11,16,27}, {19,24,30}}, gold,           // cloth
                               {{14,14,18}, {20,20,23}, {25,25,27}, {30,30,30}}, glass);                // linen
constexpr Row pale_stone = row({{6,5,9}, {11,10,14}, {16,15,18}, {21,20,22}, {26,25,25}, {30,30,28}}, timber, slabs);
constexpr Row fire = row({{10,2,3}, {19,5,2}, {27,11,3}, {30,19,5}, {31,26,11}, {31,31,23}},            // flame
                         {{3,3,5}, {7,7,10}, {12,12,15}, {19,19,21}}, castle_wall);                     // iron
constexpr Row stained_glass = row({{18,3,6}, {24,7,8}, {28,13,11}, {5,9,20}, {8,15,26}, {15,23,30}},    // red, blue
                                  {{22,15,4}, {27,22,8}, {30,28,16}, {3,3,6}}, castle_wall);            // gold, lead

constexpr Row boards = row(planks, {{13,10,9}, {18,15,12}, {23,20,15}, {26,24,19}, {30,29,24}},         // plaster
                           {{7,4,3}, {12,7,4}, {17,10,6}, {22,15,9}, {2,1,3}});                         // panels, dark
constexpr Row rug = row({{7,2,5}, {12,3,6}, {17,6,7}, {22,10,9}, {27,17,12}},
                        {{11,6,3}, {18,13,5}, {24,19,9}, {29,26,16}, {3,1,4}}, planks);                 // hem
constexpr Row bedding = row({{3,5,10}, {5,9,14}, {8,14,18}, {13,19,22}, {20,25,26}}, timber,            // cloth
                            {{16,14,14}, {21,20,18}, {26,25,22}, {30,30,27}}, {{11,18,25}, {22,28,30}}); // linen, glass
constexpr Row hearth_stone = row({{5,4,6}, {9,8,10}, {14,12,13}, {18,17,16}, {23,21,19}, {28,26,23}},
                                 {{6,3,4}, {11,6,4}, {16,10,6}, {22,15,9}}, planks);                    // wood
constexpr Row plants = row({{2,6,6}, {3,10,7}, {5,14,8}, {9,19,9}, {15,24,10}, {21,28,13}},
                           {{10,4,4}, {16,7,5}, {21,11,7}, {26,17,11}},                                 // clay
                           {{19,5,6}, {6,9,19}, {6,13,8}, {25,19,7}, {26,24,20}});                      // books

constexpr std::array<Rows, kind_count> kinds{{
    {mist, ground, tree, red_house, stone, water, blue_house, items}, // town
    {mist, ground, tree, conifer, stone, water, blossom, items},      // forest
    {mist, cave_ground, cyan_crystal, violet_crystal, cave_stone, cave_water, mushroom, items}, // cave
    {mist, marble, royal_red, royal_blue, pale_stone, fire, stained_glass, items}, // castle
    {mist, boards, rug, bedding, hearth_stone, fire, plants, items}, // interior
}};

// What a mood makes of a colour: 16ths of each channel, and what is added to it.
struct Mood {
    int r, g, b;
    int add_r, add_g, add_b;
};
constexpr std::array<Mood, mood_count> moods{{
    {16, 16, 16,  0, 0, 0},   // as drawn
    {17, 14, 11,  1, 0, 0},   // evening
    {9,  11, 16,  0, 0, 2},   // night
    {14, 16, 17,  1, 1, 2},   // cold morning
    {18, 16, 12,  1, 1, 0},   // late summer
    {13, 15, 13,  0, 1, 1},   // overcast
    {16, 13, 15,  1, 0, 2},   // violet dusk
    {12, 14, 12,  0, 0, 0},   // deep shade
    {15, 15, 15,  4, 4, 5},   // haze
}};
// clang-format on

} // namespace

PaletteColours palette(Kind kind, int mood) {
    const Rows& rows = kinds[static_cast<std::size_t>(kind)];
    const Mood& m = moods[static_cast<std::size_t>(mood)];
    const auto shift = [](int value, int times, int add) {
        return std::clamp((value * times + 8) / 16 + add, 0, 31);
    };
    PaletteColours colours{};
    for (std::size_t row = 0; row < rows.size(); ++row)
        for (std::size_t value = 1; value < 16; ++value) {
            const Rgb c = rows[row][value - 1];
            colours[16 * row + value] = {shift(c.r, m.r, m.add_r), shift(c.g, m.g, m.add_g),
                                         shift(c.b, m.b, m.add_b)};
        }
    return colours;
}

Pixel nearest_in_row(const PaletteColours& colours, Pixel pixel, int row) {
    const Rgb wanted = colours[pixel & 127u];
    std::pair<int, int> best{1 << 20, 0};
    for (int value = 1; value < 16; ++value) {
        const Rgb c = colours[static_cast<std::size_t>(16 * row + value)];
        const int dr = c.r - wanted.r, dg = c.g - wanted.g, db = c.b - wanted.b;
        best = std::min(best, {2 * dr * dr + 4 * dg * dg + 3 * db * db, value});
    }
    return ink(row, best.second);
}

std::uint16_t colour_word(Rgb c) {
    const int word = c.r | c.g << 5 | c.b << 10;
    return static_cast<std::uint16_t>(word != 0 ? word : 1 << 10);
}

} // namespace veldrune::demo
