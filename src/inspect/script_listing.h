#pragma once

#include "inspect/listing.h"
#include "inspect/reading.h"

namespace veldrune::inspect {

/// A line a script, by offset: its length, commands, and who points to it.
Listing list_scripts(const ImageReading& reading);

/// The rows of the Event Editor's grid for the script at a file offset, dialogues in place, each
/// with its own offset and, if wanted, its bytes. Where the commands of another script follow, a
/// row says where it goes on, and is the last. A script that nothing known leads to is one perhaps.
Listing list_script(const ImageReading& reading, std::int64_t offset, bool with_bytes);

} // namespace veldrune::inspect
