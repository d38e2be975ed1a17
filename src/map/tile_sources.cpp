#include "map/tile_sources.h"

#include "rom/rom_layout.h"

#include <algorithm>
#include <span>

namespace veldrune {
namespace {

constexpr std::size_t tiles_per_set = 16;
constexpr std::size_t bytes_per_tile = 10; // four frame values, then two bytes that are not read

// The four frame values of each of a set's tiles.
using AnimatedSet = std::array<std::array<std::int16_t, 4>, tiles_per_set>;

AnimatedSet read_animated_set(const RomImage& rom, int set) {
    const auto data = static_cast<std::int16_t>(
        rom.read_word(rom_layout::animated_set_offsets + std::int64_t{2} * set));
    std::array<std::uint8_t, tiles_per_set * bytes_per_tile> bytes;
    rom.read(std::int64_t{rom_layout::animated_sets} + data, bytes);
    AnimatedSet frames;
    for (std::size_t tile = 0; tile < tiles_per_set; ++tile)
        for (std::size_t frame = 0; frame < 4; ++frame) {
            const std::size_t at = bytes_per_tile * tile + 2 * frame;
            frames[tile][frame] = static_cast<std::int16_t>(bytes[at] | bytes[at + 1] << 8);
        }
    return frames;
}

void fill_first_frames(const AnimatedSet& frames, AnimTileTable& table) {
    for (std::size_t i = 0; i < 64; ++i)
        table[i] = std::int64_t{rom_layout::animated_graphics} + frames[i / 4][0] +
                   static_cast<std::int64_t>(32 * (i % 4));
}

} // namespace

void fill_anim_tile_table(const RomImage& rom, int set, AnimTileTable& table) {
    const AnimatedSet frames = read_animated_set(rom, set);
    fill_first_frames(frames, table);
    for (std::size_t i = 64; i < table.size(); ++i)
        table[i] = std::int64_t{rom_layout::animated_frames} + frames[i % 64 / 4][i / 64];
}

void refresh_first_frames(const RomImage& rom, int set, AnimTileTable& table) {
    fill_first_frames(read_animated_set(rom, set), table);
}

TilesetOffsets read_tilesets(const RomImage& rom, const TilesetNumbers& numbers) {
    TilesetOffsets groups;
    for (std::size_t group = 0; group < groups.size(); ++group)
        if (numbers[group] < rom_layout::tileset_count)
            groups[group] = rom_layout::tileset_graphics +
                            rom.read_pointer24(rom_layout::tileset_pointers + 3 * numbers[group]);
    return groups;
}

void read_formation_set(const RomImage& rom, int number, DecompressBuffer& buffer,
                        TileFormationSet& set) {
    const std::int32_t offset =
        rom.read_pointer24(rom_layout::formation_pointers + std::int64_t{3} * number);
    decompress_stream(rom, rom_layout::formation_data + offset, buffer, layer_output_limit);
    std::copy_n(buffer.output(), set.size(), set.begin());
}

FormationCharacters split_formations(const TileFormationSet& set) {
    FormationCharacters characters;
    for (std::size_t i = 0; i < 256; ++i)
        for (std::size_t q = 0; q < 4; ++q) {
            characters.tiles[4 * i + q] = set[256 * q + i];
            characters.attributes[4 * i + q] = set[1024 + 256 * q + i];
        }
    return characters;
}

void read_character_graphics(const RomImage& rom, const TilesetOffsets& groups,
                             const AnimTileTable& anim, CharacterGraphics& graphics) {
    constexpr std::size_t group_starts[] = {0, 256, 384, 512, 640};
    std::array<std::uint8_t, 256 * 32> block;
    for (std::size_t group = 0; group < groups.size(); ++group) {
        const std::size_t count = group_starts[group + 1] - group_starts[group];
        const std::span bytes = std::span(block).first(32 * count);
        if (groups[group])
            rom.read(*groups[group], bytes);
        else
            std::ranges::fill(bytes, std::uint8_t{0});
        for (std::size_t i = 0; i < count; ++i)
            std::ranges::copy(bytes.subspan(32 * i, 32), graphics[group_starts[group] + i].begin());
    }
    for (std::size_t entry = 0; entry < anim.size(); ++entry)
        rom.read(anim[entry], graphics[640 + entry]);
    std::copy_n(&graphics[640], 128, &graphics[896]);
}

std::int64_t layer3_graphics_offset(const RomImage& rom, int number) {
    return std::int64_t{rom_layout::layer3_graphics} +
           rom.read_pointer24(rom_layout::layer3_graphics_pointers + std::int64_t{3} * number);
}

void read_layer3_graphics(const RomImage& rom, std::int64_t stream_offset, DecompressBuffer& buffer,
                          Layer3Graphics& graphics) {
    constexpr std::size_t kept = 4097;
    decompress_stream(rom, stream_offset, buffer, layer_output_limit);
    graphics.fill(0);
    std::copy_n(buffer.output(), kept, graphics.begin());
}

} // namespace veldrune
