#include "render/literal_render.h"
#include "support/bytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>

namespace veldrune::test {

constexpr Colour mark = 0xFF000000; // no colour that composition makes

struct Compose : testing::Test {
    Random random{1};
    FormationBitmaps bitmaps;
    PixelBuffer picture, before, full;
    std::array<LayerMap, layer_count> maps;
    MapView view;

    int from(std::initializer_list<int> values) {
        return values.begin()[random.below(static_cast<int>(values.size()))];
    }
    void choose_formations() {
        for (auto* bitmap : {&bitmaps.layer1_high, &bitmaps.layer1_low, &bitmaps.layer2_high,
                             &bitmaps.layer2_low, &bitmaps.layer3_pixels})
            for (Formation& formation : *bitmap) {
                const int holes = random.below(5); // of 4 pixels
                for (Colour& colour : formation)
                    colour = random.below(4) < holes ? 0 : random.engine() & 0xFFFFFF;
            }
    }
    void choose_view() {
        for (std::size_t layer = 0; layer < layer_count; ++layer) {
            random.fill(maps[layer].cells);
            view.maps[layer] = &maps[layer];
            view.widths[layer] = from({INT_MIN, -1, 0, 1, 33, 64, 127, 128, 129, INT_MAX});
            view.heights[layer] = from({INT_MIN, -1, 0, 1, 32, 63, 64, 65, 128, INT_MAX});
            view.stack.shown[layer] = random.below(4) != 0;
        }
        view.stack.layer3_order = random.below(3);
        view.stack.blend = static_cast<Layer3Blend>(random.below(3));
        view.h = from({0, 1, 5, 20, 100, 127, INT_MAX});
        view.v = from({0, 1, 5, 20, 40, 63, INT_MAX});
        view.cells_across = from({4, 8, 16, 32});
    }
};

TEST_F(Compose, StacksTheLayersOfACell) {
    bitmaps.layer2_low[2].fill(0x202020);
    bitmaps.layer1_low[1][1] = bitmaps.layer1_low[1][3] = 0x404040;
    bitmaps.layer2_high[2][2] = bitmaps.layer2_high[2][3] = 0x606060;
    bitmaps.layer1_high[1][4] = 0x808080;
    bitmaps.layer3_pixels[3].fill(0xC86428);
    using enum Layer3Blend;
    const struct {
        LayerStack stack;
        std::array<Colour, 5> pixels; // the first of the cell
    } cases[] = {
        {{{true, true, true}, 2, none}, {0x202020, 0x404040, 0x606060, 0x606060, 0x808080}},
        {{{true, true, true}, 0, half}, {0x202020, 0x404040, 0x606060, 0x606060, 0x808080}},
        {{{true, true, true}, 1, half}, {0x744224, 0x404040, 0x606060, 0x606060, 0x808080}},
        {{{true, true, true}, 2, half}, {0x744224, 0x845234, 0x946244, 0x946244, 0xA47254}},
        {{{true, false, true}, 1, opaque}, {0xC86428, 0x404040, 0xC86428, 0x404040, 0x808080}},
        {{{false, false, true}, 0, half}, {0x643214, 0x643214, 0x643214, 0x643214, 0x643214}},
    };
    for (const auto& [stack, pixels] : cases) {
        for (const VectorUnit unit : vector_units()) {
            Formation cell;
            compose_cell_with(unit, bitmaps, stack, {1, 2, 3}, cell);
            EXPECT_TRUE(std::equal(pixels.begin(), pixels.end(), cell.begin()))
                << stack.layer3_order << " with vector unit " << static_cast<int>(unit);
        }
    }
}

TEST_F(Compose, DrawsCellsLikeTheLiteralComposerAndNothingElse) {
    for (int round = 0; round < 150; ++round) {
        if (round % 10 == 0)
            choose_formations();
        choose_view();
        const int across = view.cells_across, size = view.tile_size();
        const int x0 = random.below(across), x1 = x0 + 1 + random.below(across - x0);
        const int y0 = random.below(across), y1 = y0 + 1 + random.below(across - y0);
        const int cell_x = random.below(across), cell_y = random.below(across);
        const CellTiles tiles = random.bytes<layer_count>();
        picture.fill(mark);
        compose_cells(bitmaps, view, x0, y0, x1, y1, picture);
        compose_one_cell(bitmaps, view, cell_x, cell_y, tiles, picture);
        compose_one_cell(bitmaps, view, from({-1, across}), cell_y, tiles, picture);
        literal_compose(bitmaps, view, full);
        const auto expected = [&](int x, int y) {
            const int column = x / size, row = y / size;
            if (column == cell_x && row == cell_y)
                return literal_cell_pixel(bitmaps, view.stack, tiles, x % size * 16 / size,
                                          y % size * 16 / size);
            const bool drawn = column >= x0 && column < x1 && row >= y0 && row < y1;
            return drawn ? full.row(y)[x] : mark;
        };
        ASSERT_EQ(differing(picture, expected), 0) << "round " << round;
    }
}

TEST_F(Compose, ScrollingGivesTheViewAtTheNewPlaceAndMovesMarks) {
    choose_formations();
    for (int round = 0; round < 150; ++round) {
        choose_view();
        const int last_h = view.h, last_v = view.v, across = view.cells_across;
        literal_compose(bitmaps, view, before);
        for (int i = 0; i < 2000; ++i)
            before.row(random.below(view_size))[random.below(view_size)] = mark;
        picture = before;
        const auto moved_from = [&](int place) {
            const int far = random.below(across);
            const long long moved = 0LL + place + from({0, 1, -1, far, -far, across, -across});
            return static_cast<int>(std::clamp(moved, 0LL, 0LL + INT_MAX));
        };
        const bool both = random.below(9) == 0; // mostly one direction
        const bool move_h = both || random.below(2) == 0;
        const bool move_v = both || !move_h;
        if (move_h)
            view.h = moved_from(view.h);
        if (move_v)
            view.v = moved_from(view.v);
        scroll_picture(bitmaps, view, last_h, last_v, picture);
        literal_compose(bitmaps, view, full);
        const int dx = view.h - last_h, dy = view.v - last_v;
        const bool shifted = (dx == 0) != (dy == 0) && std::abs(dx + dy) < across;
        const auto expected = [&](int x, int y) {
            const int from_x = x + dx * view.tile_size(), from_y = y + dy * view.tile_size();
            const bool moved =
                shifted && from_x >= 0 && from_x < view_size && from_y >= 0 && from_y < view_size;
            return moved && before.row(from_y)[from_x] == mark ? mark : full.row(y)[x];
        };
        ASSERT_EQ(differing(picture, expected), 0) << "round " << round;
    }
}

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
    // clang-format off
    const struct { std::uint8_t quadrant, attribute; std::size_t place; Colour high, low; } cases[] = { // place: 16 * y + x
        {0, 0x02, 16 * 2 + 1,  0,       0x1000D},
        {1, 0x22, 16 * 2 + 9,  0x1000D, 0},
        {2, 0x42, 16 * 10 + 6, 0,       0x1000D},
        {3, 0x82, 16 * 13 + 9, 0,       0x1000D},
        {0, 0xE6, 16 * 5 + 6,  0x1001D, 0},
        {3, 0x1E, 16 * 10 + 9, 0,       0x1007D},
    };
    // clang-format on
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

TEST_F(Formations, DecodeLikeTheLiteralDecoder) {
    Random random(3);
    for (int round = 0; round < 20; ++round) {
        random.fill(characters.tiles);
        random.fill(characters.attributes);
        random.fill(layer3);
        for (auto& character : graphics)
            random.fill(character);
        decode_layer_tiles(characters, graphics, palette, bitmaps.layer1_high, bitmaps.layer1_low);
        decode_layer3_tiles(layer3, palette, bitmaps.layer3_pixels);
        literal_decode_layer_tiles(characters, graphics, palette, expected.layer1_high,
                                   expected.layer1_low);
        literal_decode_layer3_tiles(layer3, palette, expected.layer3_pixels);
        ASSERT_EQ(bitmaps.layer1_high, expected.layer1_high);
        ASSERT_EQ(bitmaps.layer1_low, expected.layer1_low);
        ASSERT_EQ(bitmaps.layer3_pixels, expected.layer3_pixels);
        ASSERT_EQ(whole_formation(bitmaps, 2, round), expected.layer3_pixels[std::size_t(round)]);
    }
}

TEST_F(Compose, GridLinesStandAtTheTopAndLeftOfEveryCell) {
    for (const int size : {16, 32, 64, 128, 0, -5, INT_MAX}) {
        picture = {};
        draw_grid(picture, size);
        const auto grid = [&](int x, int y) {
            return size > 0 && (x % size == 0 || y % size == 0) ? 0xFFFFFF : 0;
        };
        EXPECT_EQ(differing(picture, grid), 0) << size;
    }
}

} // namespace veldrune::test
