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
std::string obstacle(const Form1& form, int index, LayerSize size, const Layer& layer) {
    const std::int64_t tiles = std::int64_t{size.width} * size.height;
    if (layer.rows_missing && !is_missing_layer(form, index))
        return "it is 128 tiles high, and only 64 of its rows could be loaded.";
    if (tiles > 0 && tiles <= max_tiles)
        return "";
    return "it must have from 1 to " + std::to_string(max_tiles) + " tiles, not " +
           std::to_string(size.width) + " times " + std::to_string(size.height) + ".";
}

bool save_layer(RomImage& rom, Form1& form, int index, LayerSize size, const Layer& layer,
                CompressOutput& output, Dialogs& dialogs) {
    warn_about_size(form, index, dialogs);
    const int location = read_field(form, layer_controls[index].location, dialogs).value;
    const std::optional<std::size_t> length = compress_tiles(layer.map, size, output);
    if (!length) {
        refuse_long_stream(layer_words[index], layer_stream_limit, ".", dialogs);
        return false;
    }
    return save_stream(rom, location, std::span(output).first(*length), layer.layer_packed_size,
                       layer_words[index], dialogs);
}

} // namespace

bool is_missing_layer(const Form1& form, int index) {
    return index == 2 && form.*layer_controls[index].location == EMPTY_LAYER_TEXT;
}

std::optional<LayerSizes> sizes_to_save(Form1& form, const std::array<Layer, layer_count>& layers,
                                        Dialogs& dialogs) {
    LayerSizes sizes;
    for (const int index : layer_save_order) {
        const auto at = static_cast<std::size_t>(index);
        sizes[at] = saved_size(form, index);
        const std::string why = obstacle(form, index, sizes[at], layers[at]);
        if (why.empty())
            continue;
        warn_about_size(form, index, dialogs); // a text that is no number may be the cause
        refuse_to_save(layer_words[index], why, dialogs);
        return std::nullopt;
    }
    return sizes;
}

std::optional<std::size_t> compress_tiles(const LayerMap& map, LayerSize size,
                                          CompressOutput& output) {
    std::array<std::uint8_t, max_tiles> tiles;
    const auto source = std::span(tiles).first(static_cast<std::size_t>(size.width * size.height));
    pack_layer(map, size.width, size.height, source);
    return compress_layer(source, output);
}

bool save_layers(RomImage& rom, Form1& form, const std::array<Layer, layer_count>& layers,
                 CompressOutput& output, Dialogs& dialogs) {
    const std::optional<LayerSizes> sizes = sizes_to_save(form, layers, dialogs);
    if (!sizes)
        return false;
    for (const int index : layer_save_order) {
        const auto at = static_cast<std::size_t>(index);
        if (!save_layer(rom, form, index, (*sizes)[at], layers[at], output, dialogs))
            return false;
    }
    return true;
}

} // namespace veldrune
