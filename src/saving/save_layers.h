#pragma once

#include "compression/compress.h"
#include "forms/dialogs.h"
#include "forms/form1.h"
#include "map/layer_map.h"
#include "rom/rom_image.h"

#include <array>

namespace veldrune {

/// Compresses the three layers and writes each stream at the file offset in its "Map Data Location"
/// field, layer 1 first, then 3, then 2. Asks before it writes a stream longer than the one loaded.
/// True if all three were written. False ends the save: the user cancelled, or a message has said
/// why a layer can't be saved or written; the layers before it stay written.
bool save_layers(RomImage& rom, Form1& form, const std::array<Layer, layer_count>& layers,
                 CompressOutput& output, Dialogs& dialogs);

} // namespace veldrune
