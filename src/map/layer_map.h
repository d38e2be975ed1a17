#pragma once

#include "compression/decompress.h"
#include "map/tile_grid.h"
#include "rom/rom_image.h"

#include <cstdint>
#include <span>

namespace veldrune {

inline constexpr int layer_count = 3;
/// The smallest side of a layer in tiles; others are this doubled once or more.
inline constexpr int min_layer_side = 16;
/// The largest layer that is kept in memory, in tiles.
inline constexpr int max_layer_width = 128;
inline constexpr int max_layer_height = 64;

/// One layer in memory: a formation number for every 16 by 16 pixel tile, in rows of 129 bytes.
using LayerMap = TileGrid<129, 65>;

/// The size of a layer in tiles.
struct LayerSize {
    int width = 0;
    int height = 0;
};

/// A layer of the chosen map, and facts about the stream that it was loaded from.
struct Layer {
    LayerMap map;
    std::int32_t layer_offset = 0; // offset of its stream from rom_layout::layer_data
    int layer_packed_size = 0;     // bytes of that stream, by its length field at load
    bool rows_missing = false;     // higher than 64 tiles: only 64 rows were loaded
};

/// Decodes the layer's stream at rom_layout::layer_data + layer.layer_offset into its LayerMap.
/// What lies beyond 128 by 64 tiles is not loaded, and cells outside the layer keep what they held.
void load_layer(const RomImage& rom, LayerSize size, DecompressBuffer& buffer, Layer& layer);

/// Copies width by height tiles row by row into bytes, without gaps. Tiles outside the
/// LayerMap count as 0. bytes must hold width * height bytes.
void pack_layer(const LayerMap& map, int width, int height, std::span<std::uint8_t> bytes);

} // namespace veldrune
