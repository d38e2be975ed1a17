#include "saving/save_doubts.h"

#include "rom/number_field.h"
#include "rom/rehearsal.h"
#include "rom/rom_layout.h"
#include "rom/snes_address.h"
#include "saving/save_properties.h"

#include <algorithm>
#include <vector>

namespace veldrune {
namespace {

constexpr int data_number_count = 1024; // that ten bits of a record can name

// A layer, and where its pass would write it.
struct PlannedLayer {
    const PackedLayer& packed;
    std::int32_t location;

    std::int64_t end() const { return location + static_cast<std::int64_t>(packed.stream.size()); }
};

PlannedLayer planned_layer(const PackedLayers& packed, const Form1& form, int index) {
    return {packed[static_cast<std::size_t>(index)],
            field_number(form, layer_controls[index].location).value};
}

// Writes to rom what the save would write, without a word and as if nothing ended it. The fields'
// texts are read on a copy and stay as they were typed.
void rehearse(RomImage& rom, const PackedLayers& packed, Form1 form, const ChosenMap& map,
              SaveKind kind) {
    SilentDialogs silent;
    for (const int index : layer_save_order) {
        const PlannedLayer layer = planned_layer(packed, form, index);
        rom.write(layer.location, layer.packed.stream);
    }
    MapProperties record = map.map_properties;
    if (kind == SaveKind::save)
        save_map_properties(rom, form, record, map.map_index, silent);
    else
        save_map_properties_as(rom, form, map.record_at_load, map.map_index, silent);
}

std::int64_t stream_offset(const RomImage& rom, int number) {
    return std::int64_t{rom_layout::layer_data} + rom.read_pointer24(data_pointer_offset(number));
}

// What a load of the map from after, the image as the save leaves it, would not give back.
std::string loss(const RomImage& after, int map_index, int index, const PlannedLayer& layer,
                 bool compare_size) {
    const MapProperties record = read_record(after, map_index);
    const std::int64_t found = stream_offset(after, layer_data_number(record, index));
    if (found != layer.location)
        return "its pointer would lead to " + format_hex(found) + " instead.";
    const LayerSize size = layer_size(record, index);
    if (compare_size &&
        (size.width != layer.packed.size.width || size.height != layer.packed.size.height))
        return "the map's record would say " + std::to_string(size.width) + " times " +
               std::to_string(size.height) + " tiles.";
    std::vector<std::uint8_t> stream(layer.packed.stream.size());
    after.read(layer.location, stream);
    return stream == layer.packed.stream ? ""
                                         : "another part of this save would be written over it.";
}

// The data numbers that the records of all maps have.
std::vector<int> used_data_numbers(const RomImage& rom) {
    std::vector<bool> used(data_number_count);
    for (int map = 0; map < rom_layout::map_count; ++map) {
        const MapProperties record = read_record(rom, map);
        for (int layer = 0; layer < layer_count; ++layer)
            used[static_cast<std::size_t>(layer_data_number(record, layer))] = true;
    }
    std::vector<int> numbers;
    for (int number = 0; number < data_number_count; ++number)
        if (used[static_cast<std::size_t>(number)])
            numbers.push_back(number);
    return numbers;
}

// Whose beginning a layer would cover that has been moved.
std::string covered(const RomImage& before, const ChosenMap& map, int index,
                    const PlannedLayer& layer) {
    const std::int64_t loaded_from = std::int64_t{rom_layout::layer_data} +
                                     map.layers[static_cast<std::size_t>(index)].layer_offset;
    if (layer.location == loaded_from)
        return "";
    const int own = layer_data_number(map.record_at_load, index);
    for (const int number : used_data_numbers(before)) {
        const std::int64_t other = stream_offset(before, number);
        if (number != own && other >= layer.location && other < layer.end())
            return "it would cover the layer data at " + format_hex(other) + ", which maps use.";
    }
    return "";
}

std::string beyond_the_largest_image(std::int64_t end) {
    return end > rom_layout::expanded_image_size
               ? "it would reach beyond " + format_hex(rom_layout::expanded_image_size - 1) +
                     ", the end of the largest image."
               : "";
}

} // namespace

std::string doubts_about_layers(const RomImage& rom, const Form1& form, const ChosenMap& map,
                                const PackedLayers& packed, SaveKind kind) {
    const ReadWatch reads(rom);
    Rehearsal rehearsal(rom);
    rehearse(rehearsal.rom(), packed, form, map, kind);
    std::string doubts;
    for (const int index : layer_save_order) {
        const PlannedLayer layer = planned_layer(packed, form, index);
        const bool missing = is_missing_layer(form, index);
        if (layer.packed.stream.empty() || (missing && kind == SaveKind::save))
            continue;
        std::string why = loss(rehearsal.rom(), map.map_index, index, layer, !missing);
        if (why.empty())
            why = beyond_the_largest_image(layer.end());
        if (why.empty())
            why = covered(rom, map, index, layer);
        if (!why.empty())
            doubts += "Layer " + std::to_string(index + 1) + " at " + format_hex(layer.location) +
                      ": " + why + "\n";
    }
    return reads.refused() ? "" : doubts;
}

std::string doubts_about_world(std::int32_t location, std::size_t length) {
    constexpr std::int32_t first_named = 0x100000 + rom_layout::header_size;
    constexpr std::int32_t last_named = offset_of_address(last_address);
    if (location < first_named || location > last_named)
        return "its pointer can only name places from " + format_hex(first_named) + " to " +
               format_hex(last_named) + ".";
    return beyond_the_largest_image(location + static_cast<std::int64_t>(length));
}

} // namespace veldrune
