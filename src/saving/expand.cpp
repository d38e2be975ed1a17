#include "saving/expand.h"

#include "map/map_properties.h"
#include "rom/number_text.h"
#include "rom/reported_access.h"
#include "rom/rom_layout.h"
#include "world_map/worlds.h"

#include <optional>
#include <string>
#include <vector>

namespace veldrune {
namespace {

constexpr std::size_t dialogue_count = rom_layout::dialogue_count;
// The new table puts one text more into the first bank than the game's original code does.
constexpr std::size_t last_of_first_bank = rom_layout::first_dialogue_of_second_bank;
constexpr std::uint8_t first_bank = 0xCD;
constexpr std::uint8_t second_bank = 0xCE;

constexpr std::int32_t dialogue_mark_byte = rom_layout::patch_marks + 1;
constexpr std::uint8_t dialogue_mark = 0x02;

using PointerTable = std::array<std::uint8_t, 3 * dialogue_count>;

PointerTable wide_pointers(const RomImage& rom) {
    std::array<std::uint8_t, 2 * dialogue_count> narrow;
    rom.read(rom_layout::dialogue_pointers, narrow);
    PointerTable wide;
    for (std::size_t i = 0; i < dialogue_count; ++i) {
        wide[3 * i] = narrow[2 * i];
        wide[3 * i + 1] = narrow[2 * i + 1];
        wide[3 * i + 2] = i <= last_of_first_bank ? first_bank : second_bank;
    }
    return wide;
}

// Whether maps or worlds have their data in the added area before end.
bool has_moved_maps(const RomImage& rom, std::int64_t end) {
    const auto is_in_area = [end](std::int64_t offset) {
        return offset >= rom_layout::added_area && offset < end;
    };
    for (int number = 0; number < rom_layout::layer_data_pointer_count; ++number)
        if (is_in_area(rom_layout::layer_data + rom.read_pointer24(data_pointer_offset(number))))
            return true;
    for (const WorldRow& row : world_rows)
        if (is_in_area(offset_of_address(rom.read_pointer24(row.map_pointer))))
            return true;
    return false;
}

// What is known to be in the added area before end.
std::string known_contents(const RomImage& rom, std::int64_t end) {
    std::string known;
    if (has_dialogue_patch(rom))
        known = "the dialogue table of the Dialogue Patch";
    if (has_moved_maps(rom, end))
        known += std::string(known.empty() ? "" : " and ") + "the data of moved maps";
    return known.empty() ? "data that this editor does not know" : known;
}

// The question before bytes overwrite the beginning of the added area; an empty text where what
// would change is erased or zero.
std::string question_before(const RomImage& rom, std::span<const std::uint8_t> bytes) {
    const std::int64_t end = rom_layout::added_area + std::ssize(bytes);
    std::vector<std::uint8_t> held(bytes.size());
    rom.read(rom_layout::added_area, held);
    for (std::size_t i = 0; i < held.size(); ++i)
        if (held[i] != 0x00 && held[i] != 0xFF && held[i] != bytes[i])
            return "The image holds " + known_contents(rom, end) + " from " +
                   format_hex(rom_layout::added_area) + " on. It would be overwritten. Continue?";
    return "";
}

// Ends what a command reads before its first write.
bool may_go_on(RomImage& rom, const ReadWatch& reads, const std::string& question,
               Dialogs& dialogs) {
    return !report_refused_reads(reads, "Nothing has been changed.", dialogs) &&
           may_write(rom, dialogs) && (question.empty() || dialogs.question(question));
}

} // namespace

void expand_rom(RomImage& rom, Dialogs& dialogs) {
    const std::optional<std::int64_t> size = rom.size();
    if (!size)
        return dialogs.error("The length of " + rom.path() +
                             " can't be told. Nothing has been changed.");
    if (*size >= rom_layout::expanded_image_size)
        return dialogs.error("This image has been expanded to 32 Mbit already. Nothing has been "
                             "changed.");
    const std::vector<std::uint8_t> zeros(rom_layout::expanded_image_size - rom_layout::added_area);
    const ReadWatch reads(rom);
    if (!may_go_on(rom, reads, question_before(rom, zeros), dialogs))
        return;
    write_or_report(rom, rom_layout::added_area, zeros, dialogs);
    flush_or_report(rom, dialogs);
}

void apply_dialogue_patch(RomImage& rom, PatchFlags& flags, Dialogs& dialogs) {
    const ReadWatch reads(rom);
    // The mark is read before the table makes a short file longer.
    const auto mark = static_cast<std::uint8_t>(rom.read_byte(dialogue_mark_byte) & ~dialogue_mark);
    const PointerTable pointers = wide_pointers(rom);
    if (!may_go_on(rom, reads, question_before(rom, pointers), dialogs))
        return;
    const bool written =
        write_or_report(rom, rom_layout::new_dialogue_pointers, pointers, dialogs) &&
        write_or_report(rom, rom_layout::dialogue_routine, dialogue_patch_routine, dialogs) &&
        write_or_report(rom, dialogue_mark_byte, {&mark, 1}, dialogs);
    if (flush_or_report(rom, dialogs) && written)
        flags[dialogue_patch_flag] = true;
}

} // namespace veldrune
