#pragma once

#include "forms/dialogs.h"
#include "rom/rom_image.h"

#include <cstdint>
#include <span>
#include <string>

namespace veldrune {

/// What the boxes of a save call that which is saved.
struct StreamWords {
    const char* name;          // begins a refusal
    const char* before_growth; // begins the question about growth, up to the number of bytes
    const char* after_growth;
};

/// Says why something can't be saved.
void refuse_to_save(const StreamWords& words, const std::string& why, Dialogs& dialogs);

/// Writes a stream at a file offset, after a question where it is longer than former_size bytes.
/// False where the user cancelled or the write failed, which has been reported.
bool save_stream(RomImage& rom, std::int64_t location, std::span<const std::uint8_t> stream,
                 int former_size, const StreamWords& words, Dialogs& dialogs);

} // namespace veldrune
