#pragma once

#include "forms/dialogs.h"
#include "rom/rom_image.h"

#include <span>

namespace veldrune {

/// Whether an operation may write into the open file. Where the path that it was opened by no
/// longer leads to it, the user is asked, once for each opening.
bool may_write(RomImage& rom, Dialogs& dialogs);

/// Writes bytes at a file offset. Where the disk refuses, or no file can have that offset, a
/// message says so and the result is false.
bool write_or_report(RomImage& rom, std::int64_t offset, std::span<const std::uint8_t> bytes,
                     Dialogs& dialogs);

/// Ends an operation that may have written: has the disk confirm it. Where it does not, a message
/// says so, unless a failed write has been reported already. False for either.
bool flush_or_report(RomImage& rom, Dialogs& dialogs);

/// Whether the disk has refused a read that was watched. A message then says so, with what follows
/// from it.
bool report_refused_reads(const ReadWatch& reads, const std::string& consequence, Dialogs& dialogs);

} // namespace veldrune
