#pragma once

#include "compression/compress.h"
#include "forms/dialogs.h"
#include "forms/form1.h"
#include "rom/rom_image.h"
#include "world_map/world_map.h"

#include <cstdint>
#include <span>

namespace veldrune {

/// Packs a world that has been read. The stream, in output, is empty where the world can't be
/// saved.
std::span<const std::uint8_t> pack_world(const OpenWorld& world, CompressOutput& output);

/// Whether the pointer to a world can name this file offset.
bool can_name_world_at(std::int32_t location);

/// Writes a world's stream, as pack_world has made it, at the file offset in Text24,
/// asking first where it has grown, and then the pointer to it. A place that no pointer can name is
/// reported and leaves the pointer as it was. False where nothing or not all was written: the user
/// cancelled, or was shown why.
bool save_world_map(RomImage& rom, Form1& form, OpenWorld& world,
                    std::span<const std::uint8_t> stream, Dialogs& dialogs);

} // namespace veldrune
