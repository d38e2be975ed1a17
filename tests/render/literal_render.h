#pragma once

#include "render/compose.h"

/// What the library renders, once more, a pixel at a time: tests and benchmarks compare with it.
namespace veldrune::test {

void literal_decode_layer_tiles(const FormationCharacters& characters,
                                const CharacterGraphics& graphics, const Palette256& palette,
                                FormationBitmap& high, FormationBitmap& low);
void literal_decode_layer3_tiles(const Layer3Graphics& graphics, const Palette256& palette,
                                 FormationBitmap& output);

/// Pixel (x, y) of a cell.
Colour literal_cell_pixel(const FormationBitmaps& bitmaps, const LayerStack& stack,
                          const CellTiles& tiles, int x, int y);
/// The whole view.
void literal_compose(const FormationBitmaps& bitmaps, const MapView& view, PixelBuffer& buffer);

/// How many pixels of the picture differ from a function of their place.
template <typename ColourAt>
long differing(const PixelBuffer& picture, const ColourAt& colour_at) {
    long count = 0;
    for (int i = 0; i < view_size * view_size; ++i)
        count += picture.row(i / view_size)[i % view_size] !=
                 static_cast<Colour>(colour_at(i % view_size, i / view_size));
    return count;
}

} // namespace veldrune::test
