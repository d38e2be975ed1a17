#include "saving/save_stream.h"

#include "rom/reported_access.h"

namespace veldrune {

void refuse_to_save(const StreamMessages& words, const std::string& why, Dialogs& dialogs) {
    dialogs.error(std::string(words.name) + " can't be saved: " + why);
}

void refuse_long_stream(const StreamMessages& words, std::size_t limit, const char* ending,
                        Dialogs& dialogs) {
    const std::string most = std::to_string(limit);
    refuse_to_save(words, "its stream would take more than " + most + " bytes" + ending, dialogs);
}

bool save_stream(RomImage& rom, std::int64_t location, std::span<const std::uint8_t> stream,
                 int former_size, const StreamMessages& words, Dialogs& dialogs) {
    const int growth = static_cast<int>(stream.size()) - former_size;
    if (growth > 0 &&
        !dialogs.question(words.before_growth + std::to_string(growth) + words.after_growth +
                          " this map to the oringal memory location will "
                          "undoubtably mess something up. Continue?"))
        return false;
    return write_or_report(rom, location, stream, dialogs);
}

} // namespace veldrune
