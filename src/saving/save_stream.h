#pragma once

#include "forms/dialogs.h"
#include "rom/rom_image.h"

#include <cstdint>
#include <span>
#include <string>

namespace veldrune {

/// The parts of a save's messages that depend on what is saved.
struct StreamMessages {
    const char* name;          // begins a refusal
    const char* before_growth; // begins the question about growth; the number of bytes follows
    const char* after_growth;
};

/// Shows a message that says why something can't be saved.
void refuse_to_save(const StreamMessages& words, const std::string& why, Dialogs& dialogs);
/// The same where the stream would be longer than limit bytes; ending follows that and ends the
/// sentence.
void refuse_long_stream(const StreamMessages& words, std::size_t limit, const char* ending,
                        Dialogs& dialogs);

/// Writes a stream at a file offset, after a question if it is longer than former_size bytes. False
/// if the user cancelled or the write failed, which has been reported.
bool save_stream(RomImage& rom, std::int64_t location, std::span<const std::uint8_t> stream,
                 int former_size, const StreamMessages& words, Dialogs& dialogs);

} // namespace veldrune
