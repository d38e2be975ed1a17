#pragma once

#include "forms/dialogs.h"
#include "rom/rom_image.h"

#include <span>

namespace veldrune {

/// Writes bytes at a file offset. Where the disk refuses, or no file can have that offset, the user
/// is told and the result is false.
bool told_write(RomImage& rom, std::int64_t offset, std::span<const std::uint8_t> bytes,
                Dialogs& dialogs);

} // namespace veldrune
