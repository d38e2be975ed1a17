#pragma once

#include "forms/dialogs.h"
#include "rom/rom_image.h"

#include <span>

namespace veldrune {

/// Writes bytes at a file offset. Where the disk refuses, or no file can have that offset, the user
/// is told and the result is false.
bool told_write(RomImage& rom, std::int64_t offset, std::span<const std::uint8_t> bytes,
                Dialogs& dialogs);

/// Whether the disk has refused a read since RomImage::take_read_refusal was asked last. The user
/// is then told, with what follows from it.
bool told_read_refusal(RomImage& rom, const std::string& consequence, Dialogs& dialogs);

} // namespace veldrune
