#include "render/literal_render.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace veldrune::test {

struct Formations : testing::Test {
    FormationCharacters characters{};
    CharacterGraphics graphics{};
    Layer3Graphics layer3{};
    Palette256 palette{};
    FormationBitmaps bitmaps, expected;

    Formations() {
        for (Colour i = 0; i < 256; ++i)
            palette[i] = 0x10000 + i;
    }
};

TEST_F(Formations, AttributesPlaceTheOnePixelOfACharacter) {
    // Character 0x285 has its pixel (1, 2) alone set, by planes 0, 2 and 3: value 13.
    graphics[0x285][4] = graphics[0x285][20] = graphics[0x285][21] = 0x40;
    const struct {
        std::uint8_t quadrant, attribute;
        std::size_t place; // 16 * y + x
        Colour high, low;
    } cases[] = {{0, 0x02, 16 * 2 + 1, 0, 0x1000D},  {1, 0x22, 16 * 2 + 9, 0x1000D, 0},
                 {2, 0x42, 16 * 10 + 6, 0, 0x1000D}, {3, 0x82, 16 * 13 + 9, 0, 0x1000D},
                 {0, 0xE6, 16 * 5 + 6, 0x1001D, 0},  {3, 0x1E, 16 * 10 + 9, 0, 0x1007D}};
    for (const auto& [quadrant, attribute, place, high, low] : cases) {
        characters = {};
        characters.tiles[28u + quadrant] = 0x85;
        characters.attributes[28u + quadrant] = attribute;
        decode_layer_tiles(characters, graphics, palette, bitmaps.layer2_high, bitmaps.layer2_low);
        Formation pixels{};
        pixels[place] = high;
        EXPECT_EQ(bitmaps.layer2_high[7], pixels);
        pixels[place] = low;
        EXPECT_EQ(bitmaps.layer2_low[7], pixels);
        pixels[place] = high + low;
        EXPECT_EQ(whole_formation(bitmaps, 1, 7), pixels);
    }
}

TEST_F(Formations, Layer3HasFourOrientationsAndAnEmptyFormation) {
    // Formation 1: pixel (2, 3) of its top right character is 3, palette row 3. Formation 0 is
    // full.
    layer3[1] = 0x0C;
    std::fill_n(layer3.begin() + 64, 64, std::uint8_t{0xFF});
    layer3[64 + 16 * 5 + 6] = layer3[64 + 16 * 5 + 7] = 0x20;
    bitmaps.layer3_pixels.fill(Formation{1, 2, 3});
    decode_layer3_tiles(layer3, palette, bitmaps.layer3_pixels);
    int cell = 0;
    for (const std::size_t place : {16 * 3 + 10u, 16 * 3 + 5u, 16 * 12 + 10u, 16 * 12 + 5u}) {
        Formation pixels{};
        EXPECT_EQ(whole_formation(bitmaps, 2, cell), pixels);
        pixels[place] = 0x1000F;
        EXPECT_EQ(whole_formation(bitmaps, 2, cell + 1), pixels);
        cell += 64;
    }
}

TEST_F(Formations, DecodeLikeTheLiteralDecoder) {
    std::mt19937 random(3);
    const auto fill = [&](auto& bytes) {
        std::generate(bytes.begin(), bytes.end(), [&] { return std::uint8_t(random() % 256); });
    };
    for (int round = 0; round < 20; ++round) {
        fill(characters.tiles);
        fill(characters.attributes);
        fill(layer3);
        for (auto& character : graphics)
            fill(character);
        decode_layer_tiles(characters, graphics, palette, bitmaps.layer1_high, bitmaps.layer1_low);
        decode_layer3_tiles(layer3, palette, bitmaps.layer3_pixels);
        literal_decode_layer_tiles(characters, graphics, palette, expected.layer1_high,
                                   expected.layer1_low);
        literal_decode_layer3_tiles(layer3, palette, expected.layer3_pixels);
        ASSERT_EQ(bitmaps.layer1_high, expected.layer1_high);
        ASSERT_EQ(bitmaps.layer1_low, expected.layer1_low);
        ASSERT_EQ(bitmaps.layer3_pixels, expected.layer3_pixels);
    }
}

} // namespace veldrune::test
