#include "world_map/world_map.h"

#include <algorithm>
#include <span>

namespace veldrune {
namespace {

constexpr int character_side = 8;
constexpr std::size_t character_size = 32;

using WorldGraphics = std::span<const std::uint8_t, world_graphics_size>;

int palette_row(WorldGraphics graphics, std::size_t character) {
    const int rows = graphics[world_palette_rows_at + character / 2];
    return character % 2 == 0 ? rows % 16 : rows / 16;
}

// Four bytes make a row of pixels; the low four bits of each are the left one of two pixels.
void draw_character(WorldGraphics graphics, std::size_t character, const Palette256& palette,
                    Colour* target) {
    const Colour* colours = palette.data() + 16 * palette_row(graphics, character);
    const auto bytes =
        graphics.subspan(world_characters_at + character_size * character, character_size);
    for (std::size_t i = 0; i < character_size; ++i) {
        Colour* pair = target + i / 4 * WorldSheet::side + i % 4 * 2;
        pair[0] = colours[bytes[i] % 16];
        pair[1] = colours[bytes[i] / 16];
    }
}

void build_world_sheet(WorldGraphics graphics, const Palette256& palette, WorldSheet& sheet) {
    for (int entry = 0; entry < static_cast<int>(world_characters_at); ++entry) {
        const int quarter = entry % 4;
        Colour* target =
            sheet.tile(entry / 4) + (quarter / 2 * WorldSheet::side + quarter % 2) * character_side;
        draw_character(graphics, graphics[static_cast<std::size_t>(entry)], palette, target);
    }
}

} // namespace

std::int32_t load_world(const RomImage& rom, World which, DecompressBuffer& buffer,
                        OpenWorld& world) {
    const WorldRow& row = world_row(which);
    const std::int32_t map = offset_of_address(rom.read_pointer24(row.map_pointer));
    const std::int32_t graphics = offset_of_address(rom.read_pointer24(row.graphics_pointer));
    world.world = which;
    world.source = source_of(rom);
    world.unsaved_painting = false;
    world.world_packed_size = read_world_map(rom, map, buffer, world.world_map);
    read_world_sheet(rom, graphics, read_palette(rom, row.palette), buffer, world.world_sheet);
    return map;
}

int read_world_map(const RomImage& rom, std::int64_t stream_offset, DecompressBuffer& buffer,
                   WorldMap& map) {
    decompress_stream(rom, stream_offset, buffer, world_map_output_limit);
    std::copy_n(buffer.output(), map.cells.size(), map.cells.begin());
    return rom.read_word(stream_offset);
}

void read_world_sheet(const RomImage& rom, std::int64_t stream_offset, const Palette256& palette,
                      DecompressBuffer& buffer, WorldSheet& sheet) {
    decompress_stream(rom, stream_offset, buffer, world_graphics_output_limit);
    build_world_sheet(WorldGraphics(buffer.output(), world_graphics_size), palette, sheet);
}

void draw_world_tiles(const WorldMap& map, const WorldSheet& sheet, int h, int v,
                      PixelBuffer& buffer) {
    constexpr int farthest = world_side - world_view_tiles;
    const int column = std::clamp(h, 0, farthest);
    const int row = std::clamp(v, 0, farthest);
    for (int y = 0; y < view_size; ++y) {
        const std::uint8_t* tiles =
            &map.cells[static_cast<std::size_t>((row + y / world_tile_size) * world_side + column)];
        const int line = y % world_tile_size * WorldSheet::side;
        Colour* out = buffer.row(y);
        for (int x = 0; x < world_view_tiles; ++x)
            std::copy_n(sheet.tile(tiles[x]) + line, world_tile_size, out + x * world_tile_size);
    }
}

} // namespace veldrune
