#include "rom/reported_access.h"

#include "rom/number_text.h"

namespace veldrune {

bool write_or_report(RomImage& rom, std::int64_t offset, std::span<const std::uint8_t> bytes,
                     Dialogs& dialogs) {
    if (rom.write(offset, bytes))
        return true;
    dialogs.error("Writing to " + rom.path() + " at " + format_hex(offset) +
                  " failed. What was written before stays; nothing more is written.");
    return false;
}

bool report_refused_reads(const ReadWatch& reads, const std::string& consequence,
                          Dialogs& dialogs) {
    if (!reads.refused())
        return false;
    dialogs.error("Reading " + reads.rom().path() + " failed. " + consequence);
    return true;
}

} // namespace veldrune
