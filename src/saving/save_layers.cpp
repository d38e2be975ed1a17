#include "saving/save_layers.h"

#include "rom/number_text.h"
#include "rom/told_access.h"

#include <optional>

namespace veldrune {
namespace {

constexpr int save_order[] = {0, 2, 1};
constexpr int missing_layer3_side = 16; // the layer that all maps without layer 3 share
constexpr std::int64_t max_tiles = max_layer_width * max_layer_height;

struct LayerSize {
    int width;
    int height;
};

std::string layer_name(int index) {
    return "Layer " + std::to_string(index + 1);
}

void refuse(int index, const std::string& why, Dialogs& dialogs) {
    dialogs.message(layer_name(index) + " can't be saved: " + why, "Error");
}

bool is_missing(const Form1& form, int index) {
    return index == 2 && form.*layer_controls[index].location == EMPTY_LAYER_TEXT;
}

// The size of the layer as it is saved. read takes a number from a field.
template <typename Read>
LayerSize saved_size(const Form1& form, int index, Read read) {
    const LayerControls& controls = layer_controls[index];
    const LayerSize size{read(form.*controls.width).value, read(form.*controls.height).value};
    return is_missing(form, index) ? LayerSize{missing_layer3_side, missing_layer3_side} : size;
}

LayerSize told_size(const Form1& form, int index, Dialogs& dialogs) {
    return saved_size(form, index,
                      [&](const std::string& text) { return parse_decimal_text(text, dialogs); });
}

// Why the layer can't be saved, or an empty text.
std::string obstacle(const Form1& form, int index, const Layer& layer) {
    const LayerSize size = saved_size(form, index, decimal_number);
    const std::int64_t tiles = std::int64_t{size.width} * size.height;
    if (layer.rows_missing && !is_missing(form, index))
        return "it is 128 tiles high, and only 64 of its rows could be loaded.";
    if (tiles > 0 && tiles <= max_tiles)
        return "";
    return "it must have from 1 to " + std::to_string(max_tiles) + " tiles, not " +
           std::to_string(size.width) + " times " + std::to_string(size.height) + ".";
}

// Looks at all layers before anything is written.
bool all_can_be_saved(const Form1& form, const std::array<Layer, layer_count>& layers,
                      Dialogs& dialogs) {
    for (const int index : save_order) {
        const std::string why = obstacle(form, index, layers[static_cast<std::size_t>(index)]);
        if (why.empty())
            continue;
        told_size(form, index, dialogs); // a text that is no number may be the cause
        refuse(index, why, dialogs);
        return false;
    }
    return true;
}

bool may_grow(int index, int growth, Dialogs& dialogs) {
    return growth <= 0 ||
           dialogs.question(layer_name(index) + " is " + std::to_string(growth) +
                            " bytes larger than the original map. Saving this map to the oringal "
                            "memory location will undoubtably mess something up. Continue?");
}

bool save_layer(RomImage& rom, Form1& form, int index, const Layer& layer, CompressOutput& output,
                Dialogs& dialogs) {
    const LayerSize size = told_size(form, index, dialogs);
    const std::int32_t location = parse_hex_text(form.*layer_controls[index].location, dialogs);
    std::array<std::uint8_t, max_tiles> tiles;
    const auto source = std::span(tiles).first(static_cast<std::size_t>(size.width * size.height));
    pack_layer(layer.map, size.width, size.height, source);
    const std::optional<std::size_t> length = compress_layer(source, output);
    if (!length) {
        refuse(index,
               "its stream would take more than " + std::to_string(layer_stream_limit) + " bytes.",
               dialogs);
        return false;
    }
    return may_grow(index, static_cast<int>(*length) - layer.layer_packed_size, dialogs) &&
           told_write(rom, location, std::span(output).first(*length), dialogs);
}

} // namespace

bool save_layers(RomImage& rom, Form1& form, const std::array<Layer, layer_count>& layers,
                 CompressOutput& output, Dialogs& dialogs) {
    if (!all_can_be_saved(form, layers, dialogs))
        return false;
    for (const int index : save_order)
        if (!save_layer(rom, form, index, layers[static_cast<std::size_t>(index)], output, dialogs))
            return false;
    return true;
}

} // namespace veldrune
