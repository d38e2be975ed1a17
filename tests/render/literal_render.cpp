#include "render/literal_render.h"

namespace veldrune::test {

// Value of a character's pixel: planes 0 and 1 row by row, then planes 2 and 3.
static std::size_t pixel_value(const std::uint8_t* character, std::size_t planes, std::size_t x,
                               std::size_t y) {
    std::size_t value = 0;
    for (std::size_t plane = 0; plane < planes; ++plane)
        if (character[16 * (plane / 2) + 2 * y + plane % 2] & 0x80 >> x)
            value += std::size_t{1} << plane;
    return value;
}

void literal_decode_layer_tiles(const FormationCharacters& characters,
                                const CharacterGraphics& graphics, const Palette256& palette,
                                FormationBitmap& high, FormationBitmap& low) {
    for (std::size_t f = 0; f < 256; ++f)
        for (std::size_t i = 0; i < 256; ++i) {
            const std::size_t x = i % 16, y = i / 16, c = 4 * f + y / 8 * 2 + x / 8;
            const std::size_t a = characters.attributes[c];
            const auto& source = graphics[a % 4 * 256 + characters.tiles[c]];
            const std::size_t value = pixel_value(source.data(), 4, a & 0x40 ? 7 - x % 8 : x % 8,
                                                  a & 0x80 ? 7 - y % 8 : y % 8);
            const Colour colour = value ? palette[16 * (a / 4 % 8) + value] : 0;
            high[f][i] = a & 0x20 ? colour : 0;
            low[f][i] = a & 0x20 ? 0 : colour;
        }
}

void literal_decode_layer3_tiles(const Layer3Graphics& graphics, const Palette256& palette,
                                 FormationBitmap& output) {
    for (std::size_t cell = 0; cell < 256; ++cell)
        for (std::size_t i = 0; i < 256; ++i) {
            const std::size_t x = cell & 64 ? 15 - i % 16 : i % 16;
            const std::size_t y = cell & 128 ? 15 - i / 16 : i / 16;
            const std::size_t f = cell % 64, c = 4 * f + y / 8 * 2 + x / 8;
            const std::size_t value = pixel_value(&graphics[64 + 16 * c], 2, x % 8, y % 8);
            output[cell][i] = f && value ? palette[4 * (graphics[f] / 4 % 4) + value] : 0;
        }
}

Colour literal_cell_pixel(const FormationBitmaps& bitmaps, const LayerStack& stack,
                          const CellTiles& tiles, int x, int y) {
    Colour pixel = 0;
    const auto step = [&](std::size_t layer, const FormationBitmap& bitmap) {
        const Colour c = bitmap[tiles[layer]][static_cast<std::size_t>(16 * y + x)], d = pixel;
        if (c == 0 || !stack.shown[layer] || (layer == 2 && stack.blend == Layer3Blend::none))
            return;
        pixel = c;
        if (layer == 2 && stack.blend == Layer3Blend::half)
            pixel = (c % 256 + d % 256) / 2 + (c / 256 % 256 + d / 256 % 256) / 2 * 256 +
                    (c / 65536 + d / 65536) / 2 * 65536;
    };
    if (stack.layer3_order == 0)
        step(2, bitmaps.layer3_pixels);
    step(1, bitmaps.layer2_low);
    if (stack.layer3_order == 1)
        step(2, bitmaps.layer3_pixels);
    step(0, bitmaps.layer1_low);
    step(1, bitmaps.layer2_high);
    step(0, bitmaps.layer1_high);
    if (stack.layer3_order == 2)
        step(2, bitmaps.layer3_pixels);
    return pixel;
}

void literal_compose(const FormationBitmaps& bitmaps, const MapView& view, PixelBuffer& buffer) {
    const int across = view.cells_across, size = 512 / across;
    for (int cell = 0; cell < across * across; ++cell) {
        CellTiles tiles{};
        const long long column = 0LL + view.h + cell % across, row = 0LL + view.v + cell / across;
        for (std::size_t layer = 0; layer < 3; ++layer)
            if (column < view.widths[layer] && column < 128 && row < view.heights[layer] &&
                row < 64)
                tiles[layer] =
                    view.maps[layer]->cells[static_cast<std::size_t>(129 * row + column)];
        for (int y = 0; y < size; ++y)
            for (int x = 0; x < size; ++x)
                buffer.row(cell / across * size + y)[cell % across * size + x] =
                    literal_cell_pixel(bitmaps, view.stack, tiles, x * 16 / size, y * 16 / size);
    }
}

} // namespace veldrune::test
