#pragma once

#include "forms/dialogs.h"
#include "forms/form1.h"
#include "map/map_properties.h"
#include "rom/rom_image.h"

#include <cstdint>
#include <optional>
#include <string>

namespace veldrune {

/// Save: merges the fields into the record in memory and writes the layer pointers, the monster set
/// and the record of the map. A field that holds no valid size or decimal number leaves its bits as
/// they were. False where a write failed, after reporting it.
bool save_map_properties(RomImage& rom, Form1& form, MapProperties& record, int map_index,
                         Dialogs& dialogs);

/// The number that Save makes of a text in a field of a map, as a load after it shows it; for a
/// location, where its pointer leads. Nothing where Save keeps what the record has. field is one
/// that the user types in.
std::optional<std::int64_t> saved_property(std::string Form1::*field, std::string text);

/// Save As: writes the pointers of layers 2 and 1, and only some bytes of the record, directly into
/// the image. at_load is the record as it was when the map was chosen. False where a read or a
/// write failed, after reporting it.
bool save_map_properties_as(RomImage& rom, Form1& form, const MapProperties& at_load, int map_index,
                            Dialogs& dialogs);

} // namespace veldrune
