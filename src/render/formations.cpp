#include "render/formations.h"

#include <algorithm>

namespace veldrune {

namespace {

constexpr int priority_bit = 0x20;
constexpr int flip_horizontally_bit = 0x40;
constexpr int flip_vertically_bit = 0x80;

// Eight pixels of a character, a byte each, the leftmost in bits 0-7.
using PixelValues = std::uint64_t;

// The pixels of every plane byte, 0 or 1 each. Bit 7 of a plane is the leftmost pixel.
using PlaneTable = std::array<PixelValues, 256>;

constexpr PlaneTable plane_table(bool flipped) {
    PlaneTable table{};
    for (std::size_t plane = 0; plane < 256; ++plane)
        for (std::size_t x = 0; x < 8; ++x)
            if (plane >> (flipped ? x : 7 - x) & 1)
                table[plane] |= PixelValues{1} << 8 * x;
    return table;
}
constexpr PlaneTable plane_pixels = plane_table(false);
constexpr PlaneTable flipped_plane_pixels = plane_table(true);

void colour_pixels(PixelValues values, const PaletteRow& colours, Colour* out) {
    for (int x = 0; x < 8; ++x)
        out[x] = colours[values >> 8 * x & 0xF];
}

// Offset of pixel (0, 0) of a quadrant in its formation.
constexpr std::size_t quadrant_start(std::size_t quadrant) {
    return quadrant / 2 * 8 * 16 + quadrant % 2 * 8;
}

void clear_quadrant(Colour* out) {
    for (int y = 0; y < 8; ++y)
        std::fill_n(out + 16 * y, 8, Colour{0});
}

// Decodes a layer 3 formation: four characters of two planes, 16 bytes each.
void decode_layer3_formation(const std::uint8_t* graphics, const PaletteRow& colours,
                             Formation& formation) {
    for (std::size_t quadrant = 0; quadrant < 4; ++quadrant)
        for (std::size_t y = 0; y < 8; ++y) {
            const std::uint8_t* planes = graphics + 16 * quadrant + 2 * y;
            colour_pixels(plane_pixels[planes[0]] | plane_pixels[planes[1]] << 1, colours,
                          formation.data() + quadrant_start(quadrant) + 16 * y);
        }
}

void flip_horizontally(const Formation& source, Formation& target) {
    for (std::size_t y = 0; y < 16; ++y)
        for (std::size_t x = 0; x < 16; ++x)
            target[16 * y + x] = source[16 * y + 15 - x];
}

void flip_vertically(const Formation& source, Formation& target) {
    for (std::size_t y = 0; y < 16; ++y)
        std::copy_n(source.data() + 16 * (15 - y), 16, target.data() + 16 * y);
}

} // namespace

PaletteRow palette_row(const Palette256& palette, std::size_t first, std::size_t count) {
    PaletteRow row{};
    std::copy_n(palette.begin() + first + 1, count - 1, row.begin() + 1);
    return row;
}

void decode_character(const std::array<std::uint8_t, 32>& graphics, std::uint8_t attribute,
                      const PaletteRow& colours, Colour* out) {
    const PlaneTable& pixels =
        attribute & flip_horizontally_bit ? flipped_plane_pixels : plane_pixels;
    for (std::size_t y = 0; y < 8; ++y) {
        const PixelValues values = pixels[graphics[2 * y]] | pixels[graphics[2 * y + 1]] << 1 |
                                   pixels[graphics[2 * y + 16]] << 2 |
                                   pixels[graphics[2 * y + 17]] << 3;
        colour_pixels(values, colours, out + 16 * (attribute & flip_vertically_bit ? 7 - y : y));
    }
}

void decode_layer_tiles(const FormationCharacters& characters, const CharacterGraphics& graphics,
                        const Palette256& palette, FormationBitmap& high, FormationBitmap& low) {
    std::array<PaletteRow, 8> rows;
    for (std::size_t row = 0; row < rows.size(); ++row)
        rows[row] = palette_row(palette, 16 * row, 16);
    for (std::size_t c = 0; c < 1024; ++c) {
        const std::uint8_t attribute = characters.attributes[c];
        const bool priority = attribute & priority_bit;
        const std::size_t start = quadrant_start(c % 4);
        decode_character(graphics[character_number(characters.tiles[c], attribute)], attribute,
                         rows[attribute >> 2 & 7], (priority ? high : low)[c / 4].data() + start);
        clear_quadrant((priority ? low : high)[c / 4].data() + start);
    }
}

void decode_layer3_tiles(const Layer3Graphics& graphics, const Palette256& palette,
                         FormationBitmap& output) {
    std::array<PaletteRow, 4> rows;
    for (std::size_t row = 0; row < rows.size(); ++row)
        rows[row] = palette_row(palette, 4 * row, 4);
    for (const std::size_t orientation : {0u, 64u, 128u, 192u})
        output[orientation] = {}; // formation 0, whatever its characters hold
    for (std::size_t f = 1; f < 64; ++f) {
        decode_layer3_formation(graphics.data() + 64 + 64 * f, rows[graphics[f] >> 2 & 3],
                                output[f]);
        flip_horizontally(output[f], output[64 + f]);
        flip_vertically(output[f], output[128 + f]);
        flip_vertically(output[64 + f], output[192 + f]);
    }
}

Formation whole_formation(const FormationBitmaps& bitmaps, int layer, int formation) {
    const std::size_t f = static_cast<std::size_t>(formation) & 0xFF;
    if (layer == 2)
        return bitmaps.layer3_pixels[f];
    const Formation& high = layer == 0 ? bitmaps.layer1_high[f] : bitmaps.layer2_high[f];
    const Formation& low = layer == 0 ? bitmaps.layer1_low[f] : bitmaps.layer2_low[f];
    Formation whole;
    for (std::size_t i = 0; i < whole.size(); ++i)
        whole[i] = high[i] + low[i]; // at most one of them is a pixel
    return whole;
}

} // namespace veldrune
