#include "rom/patch_marks.h"

#include "rom/rom_layout.h"

namespace veldrune {
namespace {

// The bit of each mark, counted from the lowest of the first mark byte.
constexpr std::size_t mark_bits[std::tuple_size_v<PatchFlags>] = {0, 1, 2, 3,  4,  5, 6,
                                                                  7, 9, 8, 10, 11, 12};

} // namespace

void read_patch_flags(const RomImage& rom, PatchFlags& flags) {
    if (rom.size().value_or(0) < rom_layout::patch_marks + 2)
        return;
    const std::uint16_t marks = rom.read_word(rom_layout::patch_marks);
    for (std::size_t flag = 0; flag < flags.size(); ++flag)
        if ((marks >> mark_bits[flag] & 1) == 0)
            flags[flag] = true;
}

bool has_dialogue_patch(const RomImage& rom) {
    PatchFlags flags{};
    read_patch_flags(rom, flags);
    return flags[dialogue_patch_flag];
}

} // namespace veldrune
