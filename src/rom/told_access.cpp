#include "rom/told_access.h"

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

bool told_read_refusal(RomImage& rom, const std::string& consequence, Dialogs& dialogs) {
    if (!rom.take_read_refusal())
        return false;
    dialogs.message("Reading " + rom.path() + " failed. " + consequence, "Error");
    return true;
}

} // namespace veldrune
