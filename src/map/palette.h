#pragma once

#include "forms/picture.h"
#include "rom/rom_image.h"

#include <array>
#include <cstdint>

namespace veldrune {

/// 256 colours. The first 128 are a map's own; the rest is what follows them in the image.
using Palette256 = std::array<Colour, 256>;

/// The packed colour of a 15-bit word: red in bits 0-4, green in bits 5-9, blue in bits 10-14.
constexpr Colour packed_colour(std::uint16_t word) {
    const Colour red = word & 0x1Fu;
    const Colour green = (word >> 5) & 0x1Fu;
    const Colour blue = (word >> 10) & 0x1Fu;
    return red << 19 | green << 11 | blue << 3;
}

/// Reads 256 colours from a file offset on.
Palette256 read_palette(const RomImage& rom, std::int64_t offset);

/// File offset of the map palette with this number.
std::int64_t map_palette_offset(int number);

} // namespace veldrune
