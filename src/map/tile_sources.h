#pragma once

#include "compression/decompress.h"
#include "rom/rom_image.h"

#include <array>
#include <cstdint>
#include <optional>

namespace veldrune {

/// File offset of the 32 bytes of each of the 256 animated characters.
using AnimTileTable = std::array<std::int64_t, 256>;

/// Fills all entries for an animated tileset: 0 to 63 from the first frames at
/// rom_layout::animated_graphics, 64 to 255 from the frames 1, 2 and 3.
void fill_anim_tile_table(const RomImage& rom, int set, AnimTileTable& table);
/// Fills entries 0 to 63 alone.
void refresh_first_frames(const RomImage& rom, int set, AnimTileTable& table);

/// File offsets of the four groups of characters. A group whose number lies outside the table of
/// pointers has no offset, and its characters are empty.
using TilesetOffsets = std::array<std::optional<std::int64_t>, 4>;

using TilesetNumbers = std::array<int, 4>;
/// Reads the tileset pointers of four numbers, each at least 0.
TilesetOffsets read_tilesets(const RomImage& rom, const TilesetNumbers& numbers);

/// A formation set as the image holds it: tile bytes of the four quadrants, 256 each, and then
/// their attribute bytes. Quadrants: 0 top left, 1 top right, 2 bottom left, 3 bottom right.
using TileFormationSet = std::array<std::uint8_t, 2048>;

/// Decodes the formation set with this number.
void read_formation_set(const RomImage& rom, int number, DecompressBuffer& buffer,
                        TileFormationSet& set);

/// The characters of 256 formations; character index is 4 * formation + quadrant.
struct FormationCharacters {
    std::array<std::uint8_t, 1024> tiles;
    std::array<std::uint8_t, 1024> attributes; // vhprrrcc: flips, priority, palette row, high bits
};
FormationCharacters split_formations(const TileFormationSet& set);

/// The graphics of the 1024 characters that formations can name, 32 bytes each: eight rows of
/// planes 0 and 1, then eight rows of planes 2 and 3.
using CharacterGraphics = std::array<std::array<std::uint8_t, 32>, 1024>;

/// Index into CharacterGraphics of the character that a tile byte and an attribute byte name.
constexpr std::size_t character_number(std::uint8_t tile, std::uint8_t attribute) {
    return (attribute & 3u) * 256u + tile;
}

/// Reads all characters: 0-255 from group 1, 256-383, 384-511 and 512-639 from groups 2, 3 and 4,
/// 640-767 and again 896-1023 from animated entries 0 to 127, 768-895 from entries 128 to 255.
/// Characters of a missing group are empty.
void read_character_graphics(const RomImage& rom, const TilesetOffsets& groups,
                             const AnimTileTable& anim, CharacterGraphics& graphics);

/// Layer 3 graphics: bytes 0-63 are the attributes of formations 0 to 63 (palette row in bits 2-3),
/// from 64 on come characters of 16 bytes. Only the first 4097 bytes are read; the rest are 0.
using Layer3Graphics = std::array<std::uint8_t, 8193>;

/// File offset of the stream of the layer 3 graphics with this number.
std::int64_t layer3_graphics_offset(const RomImage& rom, int number);
void read_layer3_graphics(const RomImage& rom, std::int64_t stream_offset, DecompressBuffer& buffer,
                          Layer3Graphics& graphics);

} // namespace veldrune
