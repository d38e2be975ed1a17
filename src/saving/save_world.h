#pragma once

#include "compression/compress.h"
#include "forms/dialogs.h"
#include "rom/rom_image.h"
#include "world_map/world_map.h"

#include <string>

namespace veldrune {

/// Packs a world that has been read and writes its stream at the file offset in location_text,
/// asking first if it has grown, and then the pointer to it. A location that no pointer can hold is
/// reported and leaves the pointer as it was. False if the user cancelled, or if the stream or the
/// pointer could not be written, which has been reported.
bool save_world_map(RomImage& rom, std::string& location_text, OpenWorld& world,
                    CompressOutput& output, Dialogs& dialogs);

} // namespace veldrune
