#include "map/chosen_map.h"

namespace veldrune {
namespace {

int tiles_of_code(std::uint32_t code) {
    return min_layer_side << code;
}

} // namespace

LayerSize layer_size(const MapProperties& record, int layer) {
    const LayerFields& fields = layer_fields[layer];
    return {tiles_of_code(record_value(record, fields.width)),
            tiles_of_code(record_value(record, fields.height))};
}

int later_frame_set(const MapProperties& record) {
    return record[27] & 0x0F;
}

void load_map(const RomImage& rom, int map_index, DecompressBuffer& buffer, ChosenMap& map) {
    const MapProperties record = read_record(rom, map_index);
    map.map_index = map_index;
    map.source = source_of(rom);
    map.unsaved_painting = false;
    map.map_properties = map.record_at_load = record;
    map.layer3_order = read_layer3_order(rom, record);
    fill_anim_tile_table(rom, later_frame_set(record), map.anim_tiles);
    for (int layer = 0; layer < layer_count; ++layer) {
        Layer& loaded = map.layers[static_cast<std::size_t>(layer)];
        loaded.layer_offset =
            rom.read_pointer24(data_pointer_offset(layer_data_number(record, layer)));
        load_layer(rom, layer_size(record, layer), buffer, loaded);
    }
}

} // namespace veldrune
