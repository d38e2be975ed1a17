#pragma once

#include "compression/compress.h"
#include "forms/dialogs.h"
#include "forms/form1.h"
#include "map/layer_map.h"
#include "rom/rom_image.h"

#include <array>

namespace veldrune {

/// Compresses the three layers and writes each stream at the file offset in its "Map Data Location"
/// field, layer 1 first, then 3, then 2. A stream that has outgrown the one loaded is asked about.
/// True where all three were written. False ends the save: the user cancelled, or was told why a
/// layer can't be saved or written; layers before it stay written.
bool save_layers(RomImage& rom, Form1& form, const std::array<Layer, layer_count>& layers,
                 CompressOutput& output, Dialogs& dialogs);

} // namespace veldrune
