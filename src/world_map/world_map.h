#pragma once

#include "compression/decompress.h"
#include "map/palette.h"
#include "map/tile_grid.h"
#include "render/pixel_buffer.h"
#include "rom/rom_image.h"
#include "world_map/worlds.h"

#include <array>
#include <cstdint>
#include <optional>
#include <utility>

namespace veldrune {

inline constexpr int world_side = 256;     // tiles per row and per column of a world map
inline constexpr int world_tile_size = 16; // side of a tile in pixels, in the sheet and in the view
inline constexpr int world_view_tiles = view_size / world_tile_size;

using WorldMap = TileGrid<world_side, world_side>;

/// The pictures of the 256 tiles: 256 by 256 pixels, tile t at column t mod 16, row t div 16.
struct WorldSheet {
    static constexpr int side = 256;
    alignas(64) std::array<Colour, side * side> pixels{};

    /// The top left pixel of a tile; its rows are side pixels apart.
    const Colour* tile(int number) const {
        return pixels.data() + (number / 16 * side + number % 16) * world_tile_size;
    }
    Colour* tile(int number) { return const_cast<Colour*>(std::as_const(*this).tile(number)); }
};

/// The world map in memory, with the sheet of its tiles.
struct OpenWorld {
    World world = World::dawn;         // the one that was read last
    std::optional<ImageSource> source; // nothing before the first opening
    WorldMap world_map;
    bool unsaved_painting = false;
    WorldSheet world_sheet;
    int world_packed_size = 0; // the length field of its stream, as read or last written
};

/// A world's unpacked graphics: the tile table, four characters a tile (top left, top right, bottom
/// left, bottom right); 256 characters of 32 bytes; the characters' palette rows, two a byte, the
/// even character's in the low four bits.
inline constexpr std::size_t world_characters_at = 1024;
inline constexpr std::size_t world_palette_rows_at = 9216;
inline constexpr std::size_t world_graphics_size = 9344;

/// Reads a world through its two pointers and draws its sheet. Returns the file offset of the
/// stream of its tiles.
std::int32_t load_world(const RomImage& rom, World which, DecompressBuffer& buffer,
                        OpenWorld& world);

/// Unpacks the stream of tiles at a file offset and returns its length field. A stream longer than
/// max_world_stream_bytes gives tile 0 everywhere.
int read_world_map(const RomImage& rom, std::int64_t stream_offset, DecompressBuffer& buffer,
                   WorldMap& map);

/// Unpacks the stream of graphics at a file offset and draws the sheet with a palette.
void read_world_sheet(const RomImage& rom, std::int64_t stream_offset, const Palette256& palette,
                      DecompressBuffer& buffer, WorldSheet& sheet);

/// Draws the tiles whose top left one is (h, v), each 0 to 224, over the whole picture.
void draw_world_tiles(const WorldMap& map, const WorldSheet& sheet, int h, int v,
                      PixelBuffer& buffer);

} // namespace veldrune
