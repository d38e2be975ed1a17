#include "map/palette.h"

#include "rom/rom_layout.h"

namespace veldrune {

Palette256 read_palette(const RomImage& rom, std::int64_t offset) {
    std::array<std::uint8_t, 512> words;
    rom.read(offset, words);
    Palette256 palette;
    for (std::size_t i = 0; i < palette.size(); ++i)
        palette[i] =
            packed_colour(static_cast<std::uint16_t>(words[2 * i] | words[2 * i + 1] << 8));
    return palette;
}

std::int64_t map_palette_offset(int number) {
    return rom_layout::map_palettes + std::int64_t{256} * number;
}

} // namespace veldrune
