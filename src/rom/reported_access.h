#pragma once

#include "forms/dialogs.h"
#include "rom/rom_image.h"

#include <span>

namespace veldrune {

/// Writes bytes at a file offset. If the disk refuses, or no file can have that offset, reports it
/// in a message and returns false.
bool write_or_report(RomImage& rom, std::int64_t offset, std::span<const std::uint8_t> bytes,
                     Dialogs& dialogs);

/// Whether the disk has refused a watched read. If so, a message reports it, followed by the
/// consequence.
bool report_refused_reads(const ReadWatch& reads, const std::string& consequence, Dialogs& dialogs);

} // namespace veldrune
