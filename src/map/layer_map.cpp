#include "map/layer_map.h"

#include "rom/rom_layout.h"

#include <algorithm>

namespace veldrune {

void load_layer(const RomImage& rom, LayerSize size, DecompressBuffer& buffer, Layer& layer) {
    const int width = std::min(size.width, max_layer_width);
    const int height = std::min(size.height, max_layer_height);
    const std::int64_t stream = std::int64_t{rom_layout::layer_data} + layer.layer_offset;

    layer.rows_missing = size.height > max_layer_height;
    layer.layer_packed_size = rom.read_word(stream);
    decompress_stream(rom, stream, buffer, layer_output_limit);
    for (int row = 0; row < height; ++row)
        std::copy_n(buffer.output() + row * width, width, &layer.map.at(0, row));
}

void pack_layer(const LayerMap& map, int width, int height, std::span<std::uint8_t> bytes) {
    std::ranges::fill(bytes, std::uint8_t{0});
    const int columns = std::min(width, LayerMap::columns);
    for (int row = 0; row < std::min(height, LayerMap::rows); ++row)
        std::copy_n(map.cells.begin() + row * LayerMap::columns, columns,
                    bytes.begin() + row * width);
}

} // namespace veldrune
