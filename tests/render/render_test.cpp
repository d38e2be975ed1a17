#include "render/literal_render.h"
#include "support/bytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <functional>
#include <numeric>

namespace veldrune::test {

constexpr Colour mark = 0xFF000000; // no colour that composition makes

struct Compose : testing::Test {
    Random random{1};
    FormationBitmaps bitmaps, reference;
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

TEST_F(Compose, DrawsCellsLikeTheLiteralComposerAndNothingElse) {
    // Two of its pixels worked by hand: layer 3 half over layer 2, both below layer 1.
    bitmaps.layer1_low[1][1] = 0x404040;
    bitmaps.layer2_low[2].fill(0x202020);
    bitmaps.layer3_pixels[3].fill(0xC86428);
    const LayerStack half{{true, true, true}, 1, Layer3Blend::half};
    EXPECT_EQ(literal_cell_pixel(bitmaps, half, {1, 2, 3}, 0, 0), 0x744224u);
    EXPECT_EQ(literal_cell_pixel(bitmaps, half, {1, 2, 3}, 1, 0), 0x404040u);
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
        Formation literal, cell;
        for (std::size_t i = 0; i < 256; ++i)
            literal[i] = literal_cell_pixel(bitmaps, view.stack, tiles, int(i % 16), int(i / 16));
        const auto expected = [&](int x, int y) {
            const int column = x / size, row = y / size;
            if (column == cell_x && row == cell_y)
                return literal[std::size_t(y % size * 16 / size * 16 + x % size * 16 / size)];
            const bool drawn = column >= x0 && column < x1 && row >= y0 && row < y1;
            return drawn ? full.row(y)[x] : mark;
        };
        ASSERT_EQ(differing(picture, expected), 0) << "round " << round;
        for (const VectorUnit unit : vector_units()) {
            compose_cell_with(unit, bitmaps, view.stack, tiles, cell);
            ASSERT_EQ(cell, literal) << "round " << round << ", unit " << static_cast<int>(unit);
        }
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
        const int far = random.below(across), direction = random.below(9); // 4: both
        const int step = from({0, 1, -1, far, -far, across, -across});
        const auto stepped = [&](int place) {
            return static_cast<int>(std::clamp(0LL + place + step, 0LL, 0LL + INT_MAX));
        };
        view.h = direction <= 4 ? stepped(view.h) : view.h;
        view.v = direction >= 4 ? stepped(view.v) : view.v;
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

TEST_F(Compose, FormationsDecodeLikeTheLiteralDecoder) {
    FormationCharacters characters{};
    CharacterGraphics graphics{};
    Layer3Graphics layer3;
    Palette256 palette;
    std::iota(palette.begin(), palette.end(), 0x10000);
    // One character worked by hand: its pixel (1, 2) alone is set, by planes 0, 2 and 3. It is
    // at the bottom right of formation 7, flipped horizontally, in palette row 7.
    graphics[0x285][4] = graphics[0x285][20] = graphics[0x285][21] = 0x40;
    characters.tiles[4 * 7 + 3] = 0x85;
    characters.attributes[4 * 7 + 3] = 0x5E;
    literal_decode_layer_tiles(characters, graphics, palette, reference.layer1_high,
                               reference.layer1_low);
    Formation one_pixel{};
    one_pixel[16 * (8 + 2) + 8 + 6] = 0x10000 + 16 * 7 + 13;
    EXPECT_EQ(reference.layer1_low[7], one_pixel);

    for (int round = 0; round < 20; ++round) {
        const int layer = random.below(2);
        FormationBitmap& high = layer == 0 ? bitmaps.layer1_high : bitmaps.layer2_high;
        FormationBitmap& low = layer == 0 ? bitmaps.layer1_low : bitmaps.layer2_low;
        random.fill(characters.tiles);
        random.fill(characters.attributes);
        random.fill(layer3);
        for (auto& character : graphics)
            random.fill(character);
        decode_layer_tiles(characters, graphics, palette, high, low);
        decode_layer3_tiles(layer3, palette, bitmaps.layer3_pixels);
        literal_decode_layer_tiles(characters, graphics, palette, reference.layer1_high,
                                   reference.layer1_low);
        literal_decode_layer3_tiles(layer3, palette, reference.layer3_pixels);
        ASSERT_EQ(high, reference.layer1_high);
        ASSERT_EQ(low, reference.layer1_low);
        ASSERT_EQ(bitmaps.layer3_pixels, reference.layer3_pixels);
        const std::size_t n = random.byte();
        Formation whole; // every pixel is in one of the two
        std::ranges::transform(high[n], low[n], whole.begin(), std::plus());
        ASSERT_EQ(whole_formation(bitmaps, layer, static_cast<int>(n)), whole);
        ASSERT_EQ(whole_formation(bitmaps, 2, static_cast<int>(n)), bitmaps.layer3_pixels[n]);
    }
}

} // namespace veldrune::test
