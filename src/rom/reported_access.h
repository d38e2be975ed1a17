#pragma once

#include "forms/dialogs.h"
#include "rom/rom_image.h"

#include <span>

namespace veldrune {

/// Writes bytes at a file offset. Where the disk refuses, or no file can have that offset, a
/// message says so and the result is false.
bool write_or_report(RomImage& rom, std::int64_t offset, std::span<const std::uint8_t> bytes,
                     Dialogs& dialogs);

/// Whether the disk has refused a read that was watched. A message then says so, with what follows
/// from it.
bool report_read_refusal(const ReadWatch& reads, const std::string& consequence, Dialogs& dialogs);

} // namespace veldrune
