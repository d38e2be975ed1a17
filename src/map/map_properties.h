#pragma once

#include "forms/form1.h"
#include "map/layer_map.h"
#include "rom/bit_run.h"
#include "rom/rom_image.h"

#include <array>
#include <cstdint>
#include <string>
#include <variant>

namespace veldrune {

/// The property record of a map as in the image: 33 bytes at rom_layout::map_properties + 33 * map.
using MapProperties = std::array<std::uint8_t, 33>;

/// The values of the record, in the order of their bits.
enum class RecordField {
    battle_background,
    battles_enabled,
    tileset1,
    tileset2,
    tileset3,
    tileset4,
    layer3_graphics,
    layer1_formation,
    layer2_formation,
    layer1_data,
    layer2_data,
    layer3_data,
    left_shift1,
    left_shift2,
    upward_shift1,
    upward_shift2,
    scroll_index,
    layer2_height,
    layer2_width,
    layer1_height,
    layer1_width,
    layer3_height,
    layer3_width,
    palette,
    animated_tileset,
    byte27_high,
    song,
    viewable_first,
    viewable_second,
    layer_priorities,
    count,
};

/// The values that every layer has, by layer: 0, 1 and 2 are layers 1, 2 and 3.
struct LayerFields {
    RecordField width;
    RecordField height;
    RecordField formation; // of layer 3 its graphics
    RecordField data;
};
inline constexpr LayerFields layer_fields[layer_count] = {
    {RecordField::layer1_width, RecordField::layer1_height, RecordField::layer1_formation,
     RecordField::layer1_data},
    {RecordField::layer2_width, RecordField::layer2_height, RecordField::layer2_formation,
     RecordField::layer2_data},
    {RecordField::layer3_width, RecordField::layer3_height, RecordField::layer3_graphics,
     RecordField::layer3_data},
};
/// The values of the four groups of tile graphics.
inline constexpr RecordField tileset_fields[] = {RecordField::tileset1, RecordField::tileset2,
                                                 RecordField::tileset3, RecordField::tileset4};

/// The text or box that shows a property.
using RecordControl = std::variant<std::string Form1::*, bool Form1::*>;

/// One value of the record: the control that shows it, and its bits.
struct RecordRow {
    RecordField field;
    RecordControl control;
    BitRun bits;
};

const RecordRow& record_row(RecordField field);
/// The row that a text shows; null where the record has none.
const RecordRow* record_row_of(std::string Form1::*text);
std::uint32_t record_value(const MapProperties& record, RecordField field);
/// Sets the field's bits to the low bits of value and leaves all others.
void set_record_value(MapProperties& record, RecordField field, std::uint32_t value);

/// The layer data number of a layer, 0 to 2, in the record.
int layer_data_number(const MapProperties& record, int layer);
/// File offset of the entry of a layer data number in the layer data pointer table.
std::int64_t data_pointer_offset(int number);

/// Reads the record of a map, 0 to 413, from the image.
MapProperties read_record(const RomImage& rom, int map_index);
/// File offset of the map's record.
std::int64_t record_offset(int map_index);
/// File offset of the map's byte in the monster set table.
std::int64_t monster_set_offset(int map_index);

/// Shows the record in the fields of the window, except Text26. The "Map Data Location" fields are
/// looked up in the pointer table of the image.
void show_record(const RomImage& rom, const MapProperties& record, Form1& form);
/// Shows bits 5 to 7 of byte 27 in Text26.
void show_byte27_high(const MapProperties& record, Form1& form);
/// Shows the map's monster set in Text41.
void show_monster_set(const RomImage& rom, int map_index, Form1& form);

/// The position of layer 3 among the layers, from the layer priority table: 0 at the bottom, 1
/// directly above layer 2's low tiles, 2 on top.
int read_layer3_order(const RomImage& rom, const MapProperties& record);

} // namespace veldrune
