#include "inspect/check_ground.h"
#include "inspect/field_names.h"
#include "map/chosen_map.h"
#include "saving/expand.h"

#include <algorithm>

namespace veldrune::inspect {
namespace {

using namespace rom_layout;
using enum RecordField;

constexpr std::int64_t patch_table_size = std::int64_t{3} * dialogue_count;

bool has_patch_routine(const ImageReading& reading) {
    return std::ranges::equal(
        reading.image.at(dialogue_routine, std::ssize(dialogue_patch_routine)),
        dialogue_patch_routine);
}

constexpr const char* texts_place = "Dialogue Patch";

void find_other_routine(const CheckGround& ground, FoundList& found) {
    if (ground.reading.dialogue_patched && !has_patch_routine(ground.reading))
        found.push_back({texts_place, "it is marked, and the game's code is not the patch's"});
}

void find_unmarked_patch(const CheckGround& ground, FoundList& found) {
    if (!ground.reading.dialogue_patched && has_patch_routine(ground.reading))
        found.push_back({texts_place, "the game's code is the patch's, and it is not marked"});
}

void find_missing_table(const CheckGround& ground, FoundList& found) {
    if (patch_table_is_missing(ground.reading))
        found.push_back({texts_place, "it is marked, and its table is not in the file"});
}

// Numbers of a map's record that lead into tables.
struct NumberRange {
    RecordField field;
    int count;
};
constexpr NumberRange number_ranges[] = {
    {tileset1, tileset_count},
    {tileset2, tileset_count},
    {tileset3, tileset_count},
    {tileset4, tileset_count},
    {layer3_graphics, layer3_graphics_count},
    {layer1_formation, formation_set_count},
    {layer2_formation, formation_set_count},
    {layer1_data, layer_data_pointer_count},
    {layer2_data, layer_data_pointer_count},
    {layer3_data, layer_data_pointer_count},
    {palette, (long_entrances - map_palettes) / 256},
    {animated_tileset, (animated_sets - animated_set_offsets) / 2},
};

void find_numbers(const CheckGround& ground, FoundList& found) {
    for (int map = 0; map < map_count; ++map)
        for (const auto& [field, count] : number_ranges) {
            const auto value =
                record_value(ground.reading.records[static_cast<std::size_t>(map)], field);
            if (value >= static_cast<std::uint32_t>(count))
                found.push_back(
                    {"map " + std::to_string(map) + ' ' + field_name(field),
                     std::to_string(value) + " is above the last, " + std::to_string(count - 1)});
        }
}

void find_sizes(const CheckGround& ground, FoundList& found) {
    for (const LayerStream& stream : ground.reading.streams)
        for (const StreamUser& user : stream.users) {
            const LayerSize size =
                layer_size(ground.reading.records[static_cast<std::size_t>(user.map)], user.layer);
            const bool missing = user.layer == 2 && stream.packed.offset == layer_data;
            if (size.height > max_layer_height && !missing)
                found.push_back(
                    {"map " + std::to_string(user.map) + " layer " + std::to_string(user.layer + 1),
                     "is " + std::to_string(size.height) + " tiles high, more than " +
                         std::to_string(max_layer_height)});
        }
}

void find_length(const CheckGround& ground, FoundList& found) {
    const std::int64_t size = ground.reading.image.size();
    if (size != image_size && size != expanded_image_size)
        found.push_back({"file", "has " + std::to_string(size) + " bytes, not " +
                                     std::to_string(image_size) + " or " +
                                     std::to_string(expanded_image_size)});
}

constexpr Check checks[] = {
    {"patch-code", Grade::fault, find_other_routine, "texts are found by a table not in use"},
    {"patch-mark", Grade::fault, find_unmarked_patch, "texts are found by a table not in use"},
    {"patch-table", Grade::fault, find_missing_table, "no text is found"},
    {"map-number", Grade::unusual, find_numbers, "wrong tiles or colours"},
    {"map-size", Grade::unusual, find_sizes, "the map can't be saved"},
    {"file-length", Grade::unusual, find_length, "what is missing is read as FF"},
};

} // namespace

std::span<const Check> value_checks() {
    return checks;
}

bool patch_table_is_missing(const ImageReading& reading) {
    const auto table = reading.image.at(new_dialogue_pointers, patch_table_size);
    const auto is_blank = [&](std::uint8_t blank) {
        return std::ranges::all_of(table, [=](std::uint8_t byte) { return byte == blank; });
    };
    return reading.dialogue_patched &&
           (std::ssize(table) < patch_table_size || is_blank(0x00) || is_blank(0xFF));
}

} // namespace veldrune::inspect
