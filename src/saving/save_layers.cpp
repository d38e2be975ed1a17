#include "saving/save_layers.h"

#include "rom/number_text.h"
#include "saving/save_stream.h"

#include <optional>

namespace veldrune {
namespace {

constexpr int missing_layer3_side = 16; // the layer that all maps without layer 3 share
constexpr std::int64_t max_tiles = max_layer_width * max_layer_height;

constexpr const char* after_growth = " bytes larger than the original map. Saving";
constexpr StreamMessages layer_words[layer_count] = {
    {"Layer 1", "Layer 1 is ", after_growth},
    {"Layer 2", "Layer 2 is ", after_growth},
    {"Layer 3", "Layer 3 is ", after_growth},
};

using LayerSizes = std::array<LayerSize, layer_count>;

// The size of the layer as it is saved.
LayerSize saved_size(const Form1& form, int index) {
    const LayerControls& controls = layer_controls[index];
    if (is_missing_layer(form, index))
        return {missing_layer3_side, missing_layer3_side};
    return {decimal_number(form.*controls.width).value,
            decimal_number(form.*controls.height).value};
}

// Warns about texts that are not numbers.
void warn_about_size(const Form1& form, int index, Dialogs& dialogs) {
    for (const auto size : {&LayerControls::width, &LayerControls::height})
        parse_decimal_text(form.*(layer_controls[index].*size), dialogs);
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

// The sizes of the layers as they are saved. Nothing where one of them can't be saved, which is
// reported.
std::optional<LayerSizes>
sizes_to_save(const Form1& form, const std::array<Layer, layer_count>& layers, Dialogs& dialogs) {
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
    const std::int32_t location = parse_hex_text(form.*layer_controls[index].location, dialogs);
    if (!stream.empty())
        return save_stream(rom, location, stream, layer.layer_packed_size, layer_words[index],
                           dialogs);
    refuse_to_save(layer_words[index],
                   "its stream would take more than " + std::to_string(layer_stream_limit) +
                       " bytes.",
                   dialogs);
    return false;
}

} // namespace

bool is_missing_layer(const Form1& form, int index) {
    return index == 2 && form.*layer_controls[index].location == EMPTY_LAYER_TEXT;
}

std::optional<PackedLayers> pack_layers(const Form1& form,
                                        const std::array<Layer, layer_count>& layers,
                                        CompressOutput& output) {
    SilentDialogs silent;
    const std::optional<LayerSizes> sizes = sizes_to_save(form, layers, silent);
    if (!sizes)
        return std::nullopt;
    PackedLayers packed;
    for (std::size_t at = 0; at < packed.size(); ++at)
        packed[at] = {(*sizes)[at], packed_tiles(layers[at].map, (*sizes)[at], output)};
    return packed;
}

bool save_layers(RomImage& rom, Form1& form, const std::array<Layer, layer_count>& layers,
                 const std::optional<PackedLayers>& packed, Dialogs& dialogs) {
    if (!sizes_to_save(form, layers, dialogs) || !packed)
        return false;
    for (const int index : layer_save_order) {
        const auto at = static_cast<std::size_t>(index);
        if (!save_layer(rom, form, index, layers[at], (*packed)[at].stream, dialogs))
            return false;
    }
    return true;
}

} // namespace veldrune
