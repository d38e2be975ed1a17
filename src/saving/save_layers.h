#pragma once

#include "compression/compress.h"
#include "forms/dialogs.h"
#include "forms/form1.h"
#include "map/layer_map.h"
#include "rom/rom_image.h"

#include <array>
#include <optional>

namespace veldrune {

/// The order in which the layers are written.
inline constexpr int layer_save_order[layer_count] = {0, 2, 1};

/// Whether a layer, 0 to 2, is the one that a map without a layer 3 shares with all others like it.
bool is_missing_layer(const Form1& form, int index);

using LayerSizes = std::array<LayerSize, layer_count>;
/// The sizes of the layers as they are saved. Nothing where one of them can't be saved, which is
/// reported.
std::optional<LayerSizes> sizes_to_save(Form1& form, const std::array<Layer, layer_count>& layers,
                                        Dialogs& dialogs);

/// Compresses width times height tiles, 1 to 8192, of a layer. Returns the length of the stream in
/// output, or nothing where it would be too long.
std::optional<std::size_t> compress_tiles(const LayerMap& map, LayerSize size,
                                          CompressOutput& output);

/// Compresses the three layers and writes each stream at the file offset in its "Map Data Location"
/// field, layer 1 first, then 3, then 2. Asks before it writes a stream longer than the one loaded.
/// True if all three were written. False ends the save: the user cancelled, or a message has said
/// why a layer can't be saved or written; the layers before it stay written.
bool save_layers(RomImage& rom, Form1& form, const std::array<Layer, layer_count>& layers,
                 CompressOutput& output, Dialogs& dialogs);

} // namespace veldrune
