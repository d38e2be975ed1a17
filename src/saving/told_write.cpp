#include "saving/told_write.h"

#include "rom/number_text.h"

namespace veldrune {

bool told_write(RomImage& rom, std::int64_t offset, std::span<const std::uint8_t> bytes,
                Dialogs& dialogs) {
    if (rom.write(offset, bytes))
        return true;
    dialogs.message("Writing to " + rom.path() + " at " + format_hex(offset) +
                        " failed. What was written before stays; nothing more is written.",
                    "Error");
    return false;
}

} // namespace veldrune
