#pragma once

#include "map/palette.h"
#include "map/tile_sources.h"

#include <array>
#include <cstdint>

namespace veldrune {

/// 16 by 16 packed colours, pixel index 16 * y + x.
using Formation = std::array<Colour, 256>;
using FormationBitmap = std::array<Formation, 256>;

/// The formations of a map as pixels. A character with the priority bit is drawn in the high bitmap
/// of its layer, any other in the low one; in the other bitmap its pixels are 0.
struct FormationBitmaps {
    alignas(64) FormationBitmap layer1_high{};
    alignas(64) FormationBitmap layer1_low{};
    alignas(64) FormationBitmap layer2_high{};
    alignas(64) FormationBitmap layer2_low{};
    /// Cell values 0-63 as drawn, + 64 flipped horizontally, + 128 vertically; formation 0 is
    /// empty.
    alignas(64) FormationBitmap layer3_pixels{};
};

/// The colours that the pixel values of a character stand for.
using PaletteRow = std::array<Colour, 16>;

/// count colours from first on; value 0 is no pixel whatever the palette holds.
PaletteRow palette_row(const Palette256& palette, std::size_t first, std::size_t count);

/// Decodes a character of four planes, flipped as its attribute says, to 8 by 8 pixels from out[0]
/// on, whose rows are 16 pixels apart.
void decode_character(const std::array<std::uint8_t, 32>& graphics, std::uint8_t attribute,
                      const PaletteRow& colours, Colour* out);

/// Decodes the 1024 characters of layer 1 or 2 and assembles them into formations. Palette row
/// and flips come from the attribute bytes; pixel value 0 is no pixel.
void decode_layer_tiles(const FormationCharacters& characters, const CharacterGraphics& graphics,
                        const Palette256& palette, FormationBitmap& high, FormationBitmap& low);

/// Decodes the layer 3 formations in their four orientations.
void decode_layer3_tiles(const Layer3Graphics& graphics, const Palette256& palette,
                         FormationBitmap& output);

/// A formation of a layer (0 to 2) with its high and low pixels together.
Formation whole_formation(const FormationBitmaps& bitmaps, int layer, int formation);

} // namespace veldrune
