#pragma once

#include "compression/compress.h"
#include "forms/dialogs.h"
#include "forms/form1.h"
#include "map/layer_map.h"
#include "rom/rom_image.h"

#include <array>
#include <optional>
#include <vector>

namespace veldrune {

/// The order in which the layers are written.
inline constexpr int layer_save_order[layer_count] = {0, 2, 1};

/// Whether a layer, 0 to 2, is the one that a map without a layer 3 shares with all others like it.
bool is_missing_layer(const Form1& form, int index);

/// A layer as a save writes it.
struct PackedLayer {
    LayerSize size;
    std::vector<std::uint8_t> stream; // empty where it would be too long
};
using PackedLayers = std::array<PackedLayer, layer_count>;

/// The layers, packed with the sizes of the fields. Nothing where one of them can't be saved with
/// its size.
std::optional<PackedLayers> pack_layers(const Form1& form,
                                        const std::array<Layer, layer_count>& layers,
                                        CompressOutput& output);

/// Writes the three layers, as pack_layers has made them, each at the file offset in its "Map Data
/// Location" field, layer 1 first, then 3, then 2. Asks before it writes a stream longer than the
/// one loaded. True if all three were written. False ends the save: the user cancelled, or a
/// message has said why a layer can't be saved or written; the layers before it stay written.
bool save_layers(RomImage& rom, Form1& form, const std::array<Layer, layer_count>& layers,
                 const std::optional<PackedLayers>& packed, Dialogs& dialogs);

} // namespace veldrune
