#include "compression/compress.h"
#include "map/layer_map.h"
#include "map/palette.h"
#include "map/tile_sources.h"
#include "rom/rom_layout.h"
#include "support/editor_fixture.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

struct Image : OpenImage {
    std::unique_ptr<DecompressBuffer> buffer = std::make_unique<DecompressBuffer>();
    Image() : OpenImage(Bytes(rom_layout::image_size, 0)) {}
    void word(int offset, int value) {
        put_word(bytes(), static_cast<std::size_t>(offset), static_cast<std::size_t>(value));
    }
    // Packs bytes to a stream at an offset.
    void stream(std::int64_t offset, std::span<const std::uint8_t> bytes) {
        CompressOutput output;
        rom.write(offset, std::span(output).first(compress_layer(bytes, output).value()));
    }
};

TEST(TileSources, AnimatedEntriesFollowTheFrameValuesAsSignedWords) {
    Image image;
    constexpr int tile2 = 0x9401 - 16 + 10 * 2; // set 3 lies 16 bytes before the sets' base
    image.word(0x93D5 + 2 * 3, -16);
    for (int frame = 0; const int value : {0x0100, -0x20, 0, 0x7FFF})
        image.word(tile2 + 2 * frame++, value);
    AnimTileTable table{};
    fill_anim_tile_table(image.rom, 3, table);
    EXPECT_EQ(table[8 + 3], 0x260300 + 3 * 32);
    EXPECT_EQ(table[64 + 11], 0x624DF); // nothing is added for the character
    EXPECT_EQ(table[192 + 9], 0x624FF + 0x7FFF);
    const AnimTileTable before = table;
    refresh_first_frames(image.rom, 0, table);
    EXPECT_NE(table[8], before[8]);
    EXPECT_TRUE(std::equal(table.begin() + 64, table.end(), before.begin() + 64));
}

TEST(TileSources, CharactersComeFromTheGroupsOfTheirTilesets) {
    Image image; // every 32 bytes of the graphics begin with their own number
    for (const auto& [area, first] : {std::pair(0x1FDD00, 0), std::pair(0x260200, 0x8000)})
        for (int i = 0; i < 0x400; ++i)
            image.word(area + 32 * i, first + i);
    constexpr TilesetNumbers numbers{84, 0, 85, 1}; // 85 lies beyond the table
    for (int k = 0; k < 4; ++k)
        image.rom.write(rom_layout::tileset_pointers + 3 * numbers[static_cast<std::size_t>(k)],
                        pointer24_bytes(0x2000 * k));
    AnimTileTable anim{};
    for (std::size_t i = 0; i < 256; ++i)
        anim[i] = 0x260200 + 32 * static_cast<int>(i);
    CharacterGraphics graphics;
    read_character_graphics(image.rom, read_tilesets(image.rom, numbers), anim, graphics);
    const std::tuple<std::uint8_t, std::uint8_t, int> cases[] = {// 180: beyond the table, so empty
                                                                 {0xFC, 0xFF, 0x00FF},
                                                                 {1, 0x80, 0},
                                                                 {2, 0, 0x0300},
                                                                 {2, 0x80, 0x8000},
                                                                 {3, 0xFF, 0x807F}};
    for (const auto& [attribute, tile, source] : cases) {
        const auto& bytes = graphics[character_number(tile, attribute)];
        EXPECT_EQ(bytes[0] + 256 * bytes[1], source) << int{attribute} << ' ' << int{tile};
    }
}

TEST(TileSources, FormationsAndLayer3GraphicsAreDecodedAndCut) {
    Image image;
    Bytes bytes(6000);
    Random(2).fill(bytes);
    image.rom.write(rom_layout::formation_pointers + 3 * 9, pointer24_bytes(0x100));
    image.stream(rom_layout::formation_data + 0x100, std::span(bytes).first(2048));
    image.rom.write(rom_layout::layer3_graphics_pointers + 3 * 6, pointer24_bytes(0x40));
    image.stream(rom_layout::layer3_graphics + 0x40, bytes);

    TileFormationSet set;
    read_formation_set(image.rom, 9, *image.buffer, set);
    const FormationCharacters characters = split_formations(set);
    EXPECT_EQ(characters.tiles[4 * 77 + 2], bytes[512 + 77]);
    EXPECT_EQ(characters.attributes[4 * 255 + 3], bytes[2047]);

    Layer3Graphics graphics;
    graphics.fill(0xEE);
    read_layer3_graphics(image.rom, layer3_graphics_offset(image.rom, 6), *image.buffer, graphics);
    bytes.resize(4097);
    bytes.resize(graphics.size());
    EXPECT_TRUE(std::ranges::equal(graphics, bytes));
}

TEST(Palette, WordsBecomePackedColours) {
    const Colour colours[] = {0xF8F8F8, 0xF80000, 0x00F800, 0x0000F8, 0};
    for (int i = 0; const int word : {0x7FFF, 0x001F, 0x03E0, 0x7C00, 0x8000})
        EXPECT_EQ(packed_colour(static_cast<std::uint16_t>(word)), colours[i++]);
    Image image;
    image.word(0x2DC780, 0x7FFF);
    EXPECT_EQ(read_palette(image.rom, map_palette_offset(0))[128], 0xF8F8F8u);
    EXPECT_EQ(read_palette(image.rom, map_palette_offset(1))[0], 0xF8F8F8u);
}

TEST(LayerMap, LoadsWhatFitsAndLeavesTheRest) {
    Image image;
    Bytes bytes(8192);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(i / 128 + 1);
    image.stream(rom_layout::layer_data + 0x10, bytes);
    const std::tuple<LayerSize, int, bool> cases[] = {{{64, 64}, 64, false},
                                                      {{2147483647, 9999}, 128, true}};
    for (const auto& [size, columns, rows_missing] : cases) {
        Layer layer;
        layer.layer_offset = 0x10;
        layer.map.cells.fill(0xEE);
        LayerMap expected = layer.map;
        for (int i = 0; i < columns * 64; ++i)
            expected.at(i % columns, i / columns) = bytes[static_cast<std::size_t>(i)];
        load_layer(image.rom, size, *image.buffer, layer);
        EXPECT_EQ(layer.layer_packed_size, image.rom.read_word(rom_layout::layer_data + 0x10));
        EXPECT_EQ(layer.rows_missing, rows_missing);
        EXPECT_TRUE(layer.map.cells == expected.cells) << columns;
    }
}

TEST(LayerMap, PacksWhatLiesBeyondItsEdgeAsZeros) {
    LayerMap map;
    map.cells.fill(5);
    Bytes packed(2 * 130), expected(2 * 130, 5);
    expected[129] = expected[130 + 129] = 0;
    pack_layer(map, 130, 2, packed);
    EXPECT_EQ(packed, expected);
}

} // namespace
} // namespace veldrune::test
