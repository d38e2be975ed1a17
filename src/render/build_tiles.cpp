#include "render/build_tiles.h"

namespace veldrune {
namespace {

void build_layer(const RomImage& rom, int formation_set, const CharacterGraphics& characters,
                 DecompressBuffer& buffer, const Palette256& palette, FormationBitmap& high,
                 FormationBitmap& low) {
    TileFormationSet set;
    read_formation_set(rom, formation_set, buffer, set);
    decode_layer_tiles(split_formations(set), characters, palette, high, low);
}

void build_layer3(const RomImage& rom, int number, DecompressBuffer& buffer,
                  const Palette256& palette, FormationBitmap& bitmap) {
    Layer3Graphics graphics;
    read_layer3_graphics(rom, layer3_graphics_offset(rom, number), buffer, graphics);
    decode_layer3_tiles(graphics, palette, bitmap);
}

} // namespace

TileNumbers tile_numbers(const MapProperties& record) {
    const auto number = [&](RecordField field) {
        return static_cast<int>(record_value(record, field));
    };
    TileNumbers numbers;
    numbers.animated_tileset = number(RecordField::animated_tileset);
    numbers.layer3_graphics = number(layer_fields[2].formation);
    for (std::size_t group = 0; group < numbers.tilesets.size(); ++group)
        numbers.tilesets[group] = number(tileset_fields[group]);
    numbers.palette = number(RecordField::palette);
    for (std::size_t layer = 0; layer < numbers.formations.size(); ++layer)
        numbers.formations[layer] = number(layer_fields[layer].formation);
    return numbers;
}

void build_tiles(const RomImage& rom, const TileNumbers& numbers, const AnimTileTable& anim_tiles,
                 DecompressBuffer& buffer, FormationBitmaps& bitmaps) {
    CharacterGraphics characters;
    read_character_graphics(rom, read_tilesets(rom, numbers.tilesets), anim_tiles, characters);
    const Palette256 palette = read_palette(rom, map_palette_offset(numbers.palette));
    build_layer(rom, numbers.formations[0], characters, buffer, palette, bitmaps.layer1_high,
                bitmaps.layer1_low);
    build_layer(rom, numbers.formations[1], characters, buffer, palette, bitmaps.layer2_high,
                bitmaps.layer2_low);
    build_layer3(rom, numbers.layer3_graphics, buffer, palette, bitmaps.layer3_pixels);
}

MapView record_view(const ChosenMap& map, int cells_across) {
    MapView view;
    const bool has_layer3 = map.layers[2].layer_offset != 0;
    view.stack = {{true, true, true},
                  map.layer3_order,
                  layer3_blend(has_layer3, tile_numbers(map.record_at_load).layer3_graphics)};
    for (int layer = 0; layer < layer_count; ++layer) {
        const LayerSize size = layer_size(map.record_at_load, layer);
        const auto at = static_cast<std::size_t>(layer);
        view.maps[at] = &map.layers[at].map;
        view.widths[at] = size.width;
        view.heights[at] = size.height;
    }
    view.cells_across = cells_across;
    return view;
}

} // namespace veldrune
