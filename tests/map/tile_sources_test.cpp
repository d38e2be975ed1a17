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
    image.word(0x93D5 + 2 * 3, -16);              // set 3 lies 16 bytes before the sets' base
    image.word(0x9401 - 16 + 10 * 2, 0x0100);     // tile 2, frame 0
    image.word(0x9401 - 16 + 10 * 2 + 2, -0x20);  // frame 1
    image.word(0x9401 - 16 + 10 * 2 + 6, 0x7FFF); // frame 3
    AnimTileTable table{};
    fill_anim_tile_table(image.rom, 3, table);
    // clang-format off
    const std::pair<std::size_t, int> entries[] = {
        {8,        0x260300},
        {8 + 3,    0x260300 + 3 * 32},
        {12,       0x260200},
        {64 + 8,   0x624DF},
        {64 + 11,  0x624DF}, // nothing is added for the character
        {128 + 8,  0x624FF},
        {192 + 9,  0x624FF + 0x7FFF},
    };
    // clang-format on
    for (const auto& [entry, offset] : entries)
        EXPECT_EQ(table[entry], offset) << entry;

    const AnimTileTable before = table;
    refresh_first_frames(image.rom, 0, table);
    EXPECT_NE(table[8], before[8]);
    EXPECT_TRUE(std::equal(table.begin() + 64, table.end(), before.begin() + 64));
}

TEST(TileSources, CharactersComeFromTheirGroups) {
    Image image;
    // Every 32 bytes of the graphics begin with their own number.
    for (int area : {rom_layout::tileset_graphics, rom_layout::animated_graphics})
        for (int i = 0; i < 0x600; ++i)
            image.word(area + 32 * i, (area == rom_layout::animated_graphics ? 0x8000 : 0) + i);
    TilesetOffsets groups;
    for (std::size_t k = 0; k < 4; ++k)
        groups[k] = rom_layout::tileset_graphics + 0x2000 * static_cast<int>(k);
    AnimTileTable anim{};
    for (std::size_t i = 0; i < 256; ++i)
        anim[i] = rom_layout::animated_graphics + 32 * static_cast<int>(i);
    CharacterGraphics graphics;
    // clang-format off
    const struct { int attribute, tile, source; } cases[] = {
        {0x00, 0x80, 0x0080},
        {0xFC, 0xFF, 0x00FF},
        {0x01, 0x00, 0x0100},
        {0x01, 0x7F, 0x017F},
        {0x01, 0x80, 0x0200},
        {0x02, 0x00, 0x0300},
        {0x02, 0x80, 0x8000},
        {0x02, 0xFF, 0x807F},
        {0x03, 0x00, 0x8080},
        {0x03, 0x7F, 0x80FF},
        {0x03, 0x80, 0x8000},
        {0x03, 0xFF, 0x807F},
    };
    // clang-format on
    for (const bool third_missing : {false, true}) {
        if (third_missing)
            groups[2].reset();
        read_character_graphics(image.rom, groups, anim, graphics);
        for (const auto& c : cases) {
            const auto& bytes = graphics[character_number(static_cast<std::uint8_t>(c.tile),
                                                          static_cast<std::uint8_t>(c.attribute))];
            const bool empty = third_missing && c.source == 0x200;
            EXPECT_EQ(bytes[0] + 256 * bytes[1], empty ? 0 : c.source) << c.attribute << c.tile;
        }
    }
}

TEST(TileSources, ATilesetBeyondTheTableIsMissing) {
    Image image;
    image.rom.write(rom_layout::tileset_pointers + 3 * 84, pointer24_bytes(0x1234));
    const TilesetOffsets expected{0x1FDD00 + 0x1234, std::nullopt, std::nullopt, 0x1FDD00};
    EXPECT_EQ(read_tilesets(image.rom, {84, 85, 2147483647, 0}), expected);
}

TEST(TileSources, FormationsAndLayer3GraphicsAreDecodedAndCut) {
    Image image;
    Random random(2);
    Bytes bytes(6000);
    std::ranges::generate(bytes, [&] { return random.byte() & 3; });
    image.rom.write(rom_layout::formation_pointers + 3 * 9, pointer24_bytes(0x100));
    image.stream(rom_layout::formation_data + 0x100, std::span(bytes).first(2048));
    image.rom.write(rom_layout::layer3_graphics_pointers + 3 * 6, pointer24_bytes(0x40));
    image.stream(rom_layout::layer3_graphics + 0x40, bytes);

    auto buffer = std::make_unique<DecompressBuffer>();
    TileFormationSet set;
    read_formation_set(image.rom, 9, *buffer, set);
    const FormationCharacters characters = split_formations(set);
    EXPECT_EQ(characters.tiles[4 * 77 + 2], bytes[512 + 77]);
    EXPECT_EQ(characters.attributes[4 * 255 + 3], bytes[2047]);
    EXPECT_EQ(characters.attributes[0], bytes[1024]);

    Layer3Graphics graphics;
    graphics.fill(0xEE);
    read_layer3_graphics(image.rom, layer3_graphics_offset(image.rom, 6), *buffer, graphics);
    EXPECT_TRUE(std::equal(bytes.begin(), bytes.begin() + 4097, graphics.begin()));
    EXPECT_TRUE(std::all_of(graphics.begin() + 4097, graphics.end(), [](int b) { return b == 0; }));
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
    auto buffer = std::make_unique<DecompressBuffer>();
    // clang-format off
    const struct { LayerSize size; int columns, rows; bool rows_missing; } cases[] = {
        {{128, 64},          128, 64, false},
        {{16, 16},           16,  16, false},
        {{0, 16},            0,   0,  false},
        {{64, 128},          64,  64, true},
        {{2147483647, 9999}, 128, 64, true},
    };
    // clang-format on
    for (const auto& c : cases) {
        Layer layer;
        layer.layer_offset = 0x10;
        layer.map.cells.fill(0xEE);
        load_layer(image.rom, c.size, *buffer, layer);
        EXPECT_EQ(layer.layer_packed_size, image.rom.read_word(rom_layout::layer_data + 0x10));
        EXPECT_EQ(layer.rows_missing, c.rows_missing);
        for (int row = 0; row < LayerMap::rows; ++row)
            for (int column = 0; column < LayerMap::columns; ++column) {
                const int index = row * c.columns + column;
                const int expected = column < c.columns && row < c.rows ? index / 128 + 1 : 0xEE;
                ASSERT_EQ(layer.map.at(column, row), expected) << column << ' ' << row;
            }
    }
    LayerMap map;
    map.cells.fill(5);
    std::array<std::uint8_t, 8192> packed;
    pack_layer(map, 4096, 2, packed);
    EXPECT_EQ(std::count(packed.begin(), packed.end(), 5), 2 * 129); // behind the edge is 0
    EXPECT_EQ(packed[128] + packed[4096], 10);
    EXPECT_EQ(packed[129], 0);
}

} // namespace
} // namespace veldrune::test
