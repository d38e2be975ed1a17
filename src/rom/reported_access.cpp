#include "rom/reported_access.h"

#include "rom/number_text.h"

namespace veldrune {

bool may_write(RomImage& rom, Dialogs& dialogs) {
    if (rom.nameless_accepted || rom.path_leads_here() != Answer::no)
        return true;
    rom.nameless_accepted = dialogs.question(
        rom.path() +
        " is no longer the image that was opened: that file has been renamed, deleted or "
        "replaced by another program. What is written now goes into the file that was "
        "opened and may not be found again. \"Save As\" saves it under a name of your "
        "choice. Write all the same?");
    return rom.nameless_accepted;
}

bool write_or_report(RomImage& rom, std::int64_t offset, std::span<const std::uint8_t> bytes,
                     Dialogs& dialogs) {
    if (rom.write(offset, bytes))
        return true;
    dialogs.error("Writing to " + rom.path() + " at " + format_hex(offset) +
                  " failed. What was written before stays; nothing more is written.");
    return false;
}

bool flush_or_report(RomImage& rom, Dialogs& dialogs) {
    const bool reported = rom.has_failed_write();
    if (rom.flush())
        return true;
    if (!reported)
        dialogs.error("The disk has not confirmed what was written to " + rom.path() +
                      ". Some of it may be lost.");
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
