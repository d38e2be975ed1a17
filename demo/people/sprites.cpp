#include "demo/people/sprites.h"

#include "demo/assets/palettes/people.h"
#include "demo/drawing/tile_pool.h"
#include "rom/rom_layout.h"

namespace veldrune::demo {
namespace {

constexpr std::int32_t sprite_graphics = 0x150200; // $D50000
constexpr int table_entries = 165;                 // of addresses and of banks
constexpr int palette_count = 16;

// The left half of a picture, 8 pixels a row; the right half mirrors it and lies in the shadow.
// 1 outline, 2-4 skin, 5-7 hair, 8-a dress, b-c trim, d sky, e white, f black.
using Half = std::string_view;

// clang-format off
constexpr Half face =
    "........" "........" ".....111" "...11444" "..134444" "..134444" ".1344444" ".1344444"
    ".134f444" ".134f444" ".1344444" "..133444" "...13344" "....1111";
constexpr Half hairs[] = { // and what is worn on it
    "........" "....1111" "..115667" ".1566777" ".1567777" "15667777" "15666667" "1566.566" // short
    "156...5." "151....." ".1......",
    "........" "....1111" "..115667" ".1566777" "15667777" "15667776" "1566756." "1566.5.." // long
    "1565...." "1565...." "1565...." "1566...." "15665..." "1566...." "1156...." ".1551...",
    "....1111" "..11b667" ".1566777" "15667777" "15677777" "1566766." "15667.5." "1156...." // tied up
    ".15....." ".11.....",
    "........" "........" ".....111" "...13444" "..134444" ".1344444" ".5344444" "156....." // bald
    "156....." "156....." "15655566" "15666766" ".1567777" "..156777" "...15677" "....1567" ".....111",
    "........" ".....111" "...11899" "..189aaa" ".189aaaa" ".189aa99" "189a9888" "189988.." // hood
    "18998..." "1898...." "1898...." "18998..." ".1899..." ".18999..",
    ".......1" "......18" ".....189" "....189a" "....189a" "...1899a" "..1bbbcc" ".18999aa" // pointed hat
    "18888999" "1567...." "156....." ".15..566" ".1566677" "..156777" "...15677" "....1567" ".....111",
    "......1f" "....11bc" "..11bcce" ".1bbccee" ".1bccccc" "1bbccccc" "1bbbbccc" "1b1111bc" // helmet
    "1b1....b" "1b1....b" "1bb1....",
    ".b...b.." ".cb.bc.b" ".ccbccbc" ".bcccccf" ".1bbbbbb" ".1567777" "15667666" "156.5..5" // crown
    "156....." "156....." "15......" "15......" "1566...." "1566....",
};
constexpr int body_top = 13;
constexpr Half bodies[] = {
    "....1189" "..11899a" ".1899aaa" ".1989aaa" ".1219999" ".131bbbc" "..118999" "...189aa" // tunic
    "...15551" "...1fff1" "...11111",
    "....1189" "..118999" ".189e99a" ".1819aaa" ".1218999" ".131bbbb" "..18999a" ".18999aa" // dress
    ".1899aaa" "1899aaaa" "11111111",
    "....1189" "..11899b" ".1899aab" ".18899ab" ".18189ab" ".121899b" "..1899ab" "..1899ab" // robe
    ".1899aab" ".1bbbbbb" ".1111111",
    "....11bb" "..1bbcce" ".1bcebcc" ".1bb1bce" ".1b1bccc" ".121bbbb" "..118889" "..1b899a" // armour
    "...1bbc1" "...1bcc1" "...11111",
    "....1189" "..11899e" ".189eeee" ".1989eee" ".1219eee" ".131beee" "..118eee" "...189ee" // apron
    "...15551" "...1fff1" "...11111",
    "....18b9" "..1889bb" ".1899a1b" "1899a1bb" "1899a1bb" "189aa1bc" "189aa1bb" "1899a1bb" // cloak
    ".18a1551" "..111ff1" "....1111",
};
constexpr int rows_of_child[] = {0, 1, 5, 6, 9, 10}; // of a body
constexpr Half small_ones[] = {
    "........" "..1....." ".171...." ".1671111" ".1667777" "16677777" "167ef777" "1667f777" // cat
    "16777744" ".1667741" "..116677" "..167777" ".1677767" ".1677667" ".1671671" "..111111",
    "........" "........" "...11111" ".1167777" "15577777" "15577777" "155ef777" "1557f777" // dog
    "15577eee" ".117eeff" "..17eeee" "..1677ee" ".1677777" ".1677667" ".16e16e1" "..111111",
    "......1b" ".....1bb" ".....1ee" "....1eee" "....1efe" "....1eec" "....1eeb" "..111eee" // hen
    ".1eeeeee" "1eedeeee" "1eeedeee" "1eeeedee" ".1eeeeee" "..11eeee" "....11b1" ".....1b1",
    "..11...." ".1e71..." ".1e71..." ".1e71..." ".1e71111" "..177777" ".1677777" ".167f777" // rabbit
    ".167f777" ".1677e41" "..1677ee" "..167777" ".1677eee" ".1677eee" ".1671ee1" "..111111",
    ".1......" ".1f1...." ".16711.." ".1677711" ".1677777" "16677777" "167ff777" "1ee7f777" // fox
    "1eeee777" ".1eeee77" "..11eeef" "...167ee" "..1677ee" ".16777ee" ".16f16f1" "..111111",
    "........" "....1111" "..11eeee" ".1eeeeee" "1eeeeede" "1ee11111" "1e1f6666" "1e16f666" // sheep
    "1ee16666" "1eee1661" "1edee166" "1eeeee11" ".1edeeee" ".1eeeeee" "..1f11f1" "..11..11",
    "........" "..1....." "..161111" "..166777" ".1677666" ".16eee67" ".1eefee7" ".1eefeeb" // owl
    ".16eee7b" ".1667777" "16567777" "16567e7e" "16567777" ".156e7e7" "..11b1b1" "....1.1.",
    "........" "........" "........" "........" ".......1" "......1a" ".....19a" "....19aa" // slime
    "...19aaa" "..199aaa" ".199efaa" ".199ffaa" "1899999a" "18999111" "18889999" ".1111111",
    "........" "........" "1.....1." "11...151" "181..156" "18811566" "18981565" "1899156b" // bat
    "1819a155" "11.19156" "1...1115" "......15" ".......1" "........" "........" "........",
    "........" ".....111" "...11eee" "..1eeeee" ".1eeeeee" ".1eeffee" "1deeffee" "1deeffee" // ghost
    "1deeeeee" "1deeeef1" "1ddeeee1" ".1ddeeee" ".1dddeee" ".1d1dd1e" ".11.11.1" "........",
    ".......1" "......1e" "......1a" ".....19a" ".....19e" "....189a" "....189a" "...1889e" // crystal
    "...1889a" "....189a" "....189a" ".....19a" "...1.19a" "..1b1119" ".1bbbbbb" ".1111111",
    ".......1" "......1b" "......1b" ".....1bb" "..1..1bc" ".1b11bbc" ".1bb1bcc" ".1bbbbcc" // flame
    "1bbbbccc" "1bbbccce" "1bbbccee" ".1bbccee" ".15bbcce" "15551111" "16665555" "11111111",
    "........" "....1111" "...1bccc" "...1ffff" "...1bbcc" "....1999" "...1899a" "..1899aa" // jar
    ".18999aa" ".1bcbcbc" ".1cbcbcb" ".18999aa" ".18899aa" "..188999" "...18899" "....1111",
    "........" "....1111" "..118999" ".18999ee" ".1899eee" "18e99ee9" "1eee9999" "1eee99ee" // toadstool
    "18e999ee" "188888ee" ".1111144" "...13444" "...13f44" "...13444" "...13344" "....1111",
};

// clang-format on

consteval std::array<Rgb, 15> row(std::string_view name) {
    return colours<15>(assets::people, name);
}
constexpr std::array<Rgb, 15> rows[] = {row("blue"),   row("red"),  row("green"), row("orange"),
                                        row("violet"), row("teal"), row("ochre"), row("linen")};

/// Draws rows of a half and its mirror image, the first at y.
void draw_half(Picture& p, Half half, int y) {
    static constexpr std::string_view shaded = "34679ac"; // step one down in the shadow
    for (std::size_t i = 0; i < half.size(); ++i) {
        const char digit = half[i];
        if (digit == '.')
            continue;
        const int value = digit <= '9' ? digit - '0' : digit - 'a' + 10;
        const int x = static_cast<int>(i % 8), row = y + static_cast<int>(i / 8);
        p.set(x, row, ink(0, value));
        const bool shadow = x < 6 && shaded.find(digit) != std::string_view::npos;
        p.set(15 - x, row, ink(0, value - shadow));
    }
}

Picture draw_person(int number) {
    Picture p(16, 24);
    const bool child = number >= child_sprites;
    const std::size_t dress = static_cast<std::size_t>(number / 8) % std::size(bodies);
    const int top = child ? 5 : 0;
    if (child)
        for (int y = 0; y < static_cast<int>(std::size(rows_of_child)); ++y)
            draw_half(p, bodies[dress].substr(static_cast<std::size_t>(8 * rows_of_child[y]), 8),
                      body_top + top + y);
    else
        draw_half(p, bodies[dress], body_top);
    draw_half(p, face, top);
    draw_half(p, hairs[number % 8], top);
    return p;
}

/// Every second one of a kind hops.
Picture draw_small(int number) {
    const int kinds = static_cast<int>(std::size(small_ones));
    Picture p(16, 16), hopping(16, 16);
    draw_half(p, small_ones[number % kinds], 0);
    hopping.fill(0, 0, 16, 15, [&](int x, int y) { return p.at(15 - x, y + 1); });
    return number < kinds ? p : hopping;
}

void put_palettes(ImageWriter& writer) {
    for (int number = 0; number < palette_count; ++number) {
        const int light = number < 8 ? 4 : 3; // the second half is for the night
        const std::int32_t place = rom_layout::sprite_palettes + 32 * number;
        writer.put_word(place, colour_word({0, 0, 0}));
        for (int i = 1; i < 16; ++i) {
            const Rgb c = rows[number % 8][static_cast<std::size_t>(i - 1)];
            writer.put_word(place + 2 * i,
                            colour_word({c.r * light / 4, c.g * light / 4, c.b * (light + 1) / 5}));
        }
    }
}

} // namespace

void write_sprites(ImageWriter& writer) {
    std::array<std::int32_t, sprite_count> offsets{};
    std::int32_t next = sprite_graphics;
    for (int number = 0; number < sprite_count; ++number) {
        const bool small = number >= small_sprites;
        const Picture p = small ? draw_small(number - small_sprites) : draw_person(number);
        offsets[static_cast<std::size_t>(number)] = next;
        Bytes art(small ? 32 : 0); // a small one has nothing in its first tile
        for (int y = 0; y < (small ? 16 : 24); y += 8)
            for (int x = 0; x < 16; x += 8)
                append_planes(art, block_at(p, x, y));
        writer.put(next, art);
        next += static_cast<std::int32_t>(art.size());
    }
    for (int entry = 0; entry < table_entries; ++entry) {
        const std::int32_t address =
            offsets[static_cast<std::size_t>(entry % sprite_count)] - rom_layout::header_size;
        writer.put_word(rom_layout::sprite_addresses + 2 * entry, address);
        writer.put_word(rom_layout::sprite_banks + 2 * entry, 0xC0 + (address >> 16));
    }
    put_palettes(writer);
}

} // namespace veldrune::demo
