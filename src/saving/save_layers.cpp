#include "saving/save_layers.h"

#include "rom/number_text.h"
#include "saving/told_write.h"

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

// The size of the layer as it will be saved, or nothing where it can't be, which is told.
std::optional<LayerSize> saved_size(const Form1& form, int index, const Layer& layer,
                                    Dialogs& dialogs) {
    if (is_missing(form, index))
        return LayerSize{missing_layer3_side, missing_layer3_side};
    const LayerControls& controls = layer_controls[index];
    const LayerSize size{parse_decimal_text(form.*controls.width, dialogs).value,
                         parse_decimal_text(form.*controls.height, dialogs).value};
    const std::int64_t tiles = std::int64_t{size.width} * size.height;
    if (layer.rows_missing)
        refuse(index, "it is 128 tiles high, and only 64 of its rows could be loaded.", dialogs);
    else if (tiles <= 0 || tiles > max_tiles)
        refuse(index,
               "it must have from 1 to " + std::to_string(max_tiles) + " tiles, not " +
                   std::to_string(size.width) + " times " + std::to_string(size.height) + ".",
               dialogs);
    else
        return size;
    return std::nullopt;
}

bool may_grow(int index, int growth, Dialogs& dialogs) {
    return growth <= 0 ||
           dialogs.question(layer_name(index) + " is " + std::to_string(growth) +
                            " bytes larger than the original map. Saving this map to the oringal "
                            "memory location will undoubtably mess something up. Continue?");
}

bool save_layer(RomImage& rom, Form1& form, int index, const Layer& layer, LayerSize size,
                CompressOutput& output, Dialogs& dialogs) {
    const std::int32_t location = parse_hex_text(form.*layer_controls[index].location, dialogs);
    std::array<std::uint8_t, max_tiles> tiles;
    const auto source = std::span(tiles).first(static_cast<std::size_t>(size.width * size.height));
    pack_layer(layer.map, size.width, size.height, source);
    const std::optional<std::size_t> length = compress_layer(source, output);
    if (!length) {
        refuse(index, "its stream would take more than 9001 bytes.", dialogs);
        return false;
    }
    return may_grow(index, static_cast<int>(*length) - layer.layer_packed_size, dialogs) &&
           told_write(rom, location, std::span(output).first(*length), dialogs);
}

} // namespace

bool save_layers(RomImage& rom, Form1& form, const std::array<Layer, layer_count>& layers,
                 CompressOutput& output, Dialogs& dialogs) {
    std::array<LayerSize, layer_count> sizes{};
    for (const int index : save_order) {
        const auto i = static_cast<std::size_t>(index);
        const std::optional<LayerSize> size = saved_size(form, index, layers[i], dialogs);
        if (!size)
            return false;
        sizes[i] = *size;
    }
    for (const int index : save_order) {
        const auto i = static_cast<std::size_t>(index);
        if (!save_layer(rom, form, index, layers[i], sizes[i], output, dialogs))
            return false;
    }
    return true;
}

} // namespace veldrune
