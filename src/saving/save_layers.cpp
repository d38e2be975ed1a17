#include "saving/save_layers.h"

#include "rom/number_field.h"
#include "saving/save_stream.h"

#include <optional>

namespace veldrune {
namespace {

constexpr std::int64_t max_tiles = max_layer_width * max_layer_height;

constexpr const char* after_growth = " bytes larger than the original map. Saving";
constexpr StreamMessages layer_words[layer_count] = {
    {"Layer 1", "Layer 1 is ", after_growth},
    {"Layer 2", "Layer 2 is ", after_growth},
    {"Layer 3", "Layer 3 is ", after_growth},
};

// The size of the layer as it is saved.
LayerSize saved_size(const Form1& form, int index) {
    const LayerControls& controls = layer_controls[index];
    if (is_missing_layer(form, index))
        return {min_layer_side, min_layer_side};
    return {field_number(form, controls.width).value, field_number(form, controls.height).value};
}

// Warns about texts that are not numbers.
void warn_about_size(Form1& form, int index, Dialogs& dialogs) {
    for (const auto size : {&LayerControls::width, &LayerControls::height})
        read_field(form, layer_controls[index].*size, dialogs);
}

// Why the layer can't be saved, or an empty text.
std::string obstacle(const Form1& form, int index, const Layer& layer) {
    const LayerSize size = saved_size(form, index);
    const std::int64_t tiles = std::int64_t{size.width} * size.height;
    if (layer.rows_missing && !is_missing_layer(form, index))
        return "it is 128 tiles high, and only 64 of its rows could be loaded.";
    if (tiles > 0 && tiles <= max_tiles)
        return "";
    return "it must have from 1 to " + std::to_string(max_tiles) + " tiles, not " +
           std::to_string(size.width) + " times " + std::to_string(size.height) + ".";
}

// Reports the first layer that can't be saved with its size.
bool refuse_sizes(Form1& form, const std::array<Layer, layer_count>& layers, Dialogs& dialogs) {
    for (const int index : layer_save_order) {
        const std::string why = obstacle(form, index, layers[static_cast<std::size_t>(index)]);
        if (why.empty())
            continue;
        warn_about_size(form, index, dialogs); // a text that is no number may be the cause
        refuse_to_save(layer_words[index], why, dialogs);
        return true;
    }
    return false;
}

std::vector<std::uint8_t> packed_tiles(const LayerMap& map, LayerSize size,
                                       CompressOutput& output) {
    std::array<std::uint8_t, max_tiles> tiles;
    const auto source = std::span(tiles).first(static_cast<std::size_t>(size.width * size.height));
    pack_layer(map, size.width, size.height, source);
    const std::size_t length = compress_layer(source, output).value_or(0);
    return {output.data(), output.data() + length};
}

bool save_layer(RomImage& rom, Form1& form, int index, const Layer& layer,
                std::span<const std::uint8_t> stream, Dialogs& dialogs) {
    warn_about_size(form, index, dialogs);
    const int location = read_field(form, layer_controls[index].location, dialogs).value;
    if (!stream.empty())
        return save_stream(rom, location, stream, layer.layer_packed_size, layer_words[index],
                           dialogs);
    refuse_long_stream(layer_words[index], layer_stream_limit, ".", dialogs);
    return false;
}

} // namespace

bool is_missing_layer(const Form1& form, int index) {
    return index == 2 && form.*layer_controls[index].location == EMPTY_LAYER_TEXT;
}

std::optional<PackedLayers> pack_layers(const Form1& form,
                                        const std::array<Layer, layer_count>& layers,
                                        CompressOutput& output) {
    PackedLayers packed;
    for (int index = 0; index < layer_count; ++index) {
        const auto at = static_cast<std::size_t>(index);
        if (!obstacle(form, index, layers[at]).empty())
            return std::nullopt;
        const LayerSize size = saved_size(form, index);
        packed[at] = {size, packed_tiles(layers[at].map, size, output)};
    }
    return packed;
}

bool save_layers(RomImage& rom, Form1& form, const std::array<Layer, layer_count>& layers,
                 const std::optional<PackedLayers>& packed, Dialogs& dialogs) {
    if (refuse_sizes(form, layers, dialogs) || !packed)
        return false;
    for (const int index : layer_save_order) {
        const auto at = static_cast<std::size_t>(index);
        if (!save_layer(rom, form, index, layers[at], (*packed)[at].stream, dialogs))
            return false;
    }
    return true;
}

} // namespace veldrune
