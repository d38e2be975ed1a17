#include "events/script_decoder.h"

#include "dialogue/dialogue_text.h"
#include "events/command_table.h"
#include "rom/number_text.h"
#include "rom/patch_marks.h"
#include "rom/rom_layout.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <span>

namespace veldrune {
namespace {

std::string two_digits(std::uint32_t value) {
    return padded(format_hex(value), 2);
}

// The number of the dialogue that a reference shows; nothing where the one before it stays.
std::optional<int> dialogue_number(std::uint32_t reference) {
    if (reference >= 0x8000)
        return static_cast<int>(reference - 0x8000);
    if (reference >= 0x4000)
        return static_cast<int>(reference - 0x4000);
    if (reference < 0x0FA0)
        return static_cast<int>(reference);
    return std::nullopt;
}

constexpr int waiting_dialogue_height = 800; // of 0x48, whatever its text

class Decoder {
  public:
    Decoder(const RomImage& rom, bool dialogue_patched, std::span<const std::uint8_t> bytes,
            ScriptGrid& grid)
        : rom_(rom), dialogue_patched_(dialogue_patched), bytes_(bytes), grid_(grid) {}

    // The bytes that make up the script, and whether its end is among them.
    struct Decoded {
        std::size_t length;
        bool whole;
    };
    Decoded decode() {
        while (index_ < bytes_.size()) {
            const std::size_t rows_before = grid_.size();
            const std::uint8_t code = bytes_[index_];
            decode_command();
            if (index_ > bytes_.size()) { // cut: it is no command
                grid_.resize(rows_before);
                break;
            }
            if (code == return_command)
                return {index_, true};
        }
        return {bytes_.size(), false};
    }

  private:
    struct ShownDialogue {
        std::size_t row; // of its text
        std::uint8_t line_count;
        std::uint8_t option_count;
    };

    void decode_command() {
        command_ = index_;
        const ScriptCommand& command = script_command(byte_at(index_));
        add_row(primary, format_hex(take(1)), command.label.loaded);
        for (const Parameter& parameter : command.parameters())
            decode_parameter(parameter);
        if (command.is_queue())
            decode_queue(queue_size(byte_at(index_ - 1)));
    }

    void decode_parameter(const Parameter& parameter) {
        switch (parameter.kind) {
        case ParameterKind::dialogue:
            return decode_dialogue();
        case ParameterKind::map_data:
            return decode_map_data(parameter);
        case ParameterKind::offset_list:
            return decode_offsets(parameter);
        case ParameterKind::list_count:
            last_option_count_ = byte_at(index_);
            break;
        default:
            break;
        }
        add_row(secondary, take_value(parameter.kind), parameter.label.loaded);
    }

    // The text of a value of a fixed width.
    std::string take_value(ParameterKind kind) {
        switch (kind) {
        case ParameterKind::pointer:
            return format_hex(take(size_of(kind)) + rom_layout::event_scripts);
        case ParameterKind::high_nibble:
            return format_hex(byte_at(index_) >> 4);
        case ParameterKind::low_nibble:
            return format_hex(take(1) & 0xF);
        default:
            return format_hex(take(size_of(kind)));
        }
    }

    void decode_dialogue() {
        const bool tall = byte_at(command_) == 0x48;
        const std::uint32_t reference = take(size_of(ParameterKind::dialogue));
        last_dialogue_ = dialogue_number(reference).value_or(last_dialogue_);
        add_row(secondary, format_hex(reference), "");
        const ShownDialogue& dialogue = show_dialogue(last_dialogue_);
        last_option_count_ = dialogue.option_count;
        grid_.back().height =
            tall ? waiting_dialogue_height : dialogue.line_count * script_line_height;
    }

    // Puts the text into the last row. Each is read once, and kept where it was shown first:
    // bytes that make no sense may show the same long text again and again.
    const ShownDialogue& show_dialogue(int number) {
        const auto [entry, is_new] = dialogues_.try_emplace(number);
        ShownDialogue& shown = entry->second;
        std::string& cell = grid_.back().cells[explanation];
        if (is_new) {
            DialogueText dialogue = read_dialogue_text(rom_, dialogue_patched_, number);
            cell = std::move(dialogue.text);
            shown = {grid_.size() - 1, dialogue.line_count, dialogue.option_count};
        } else {
            cell = grid_[shown.row].cells[explanation];
        }
        return shown;
    }

    // Lines of as many bytes as the data is wide. What the height says beyond the 8 bits of their
    // product is no part of the command.
    void decode_map_data(const Parameter& parameter) {
        const std::uint8_t width = byte_at(command_ + 3);
        const std::uint8_t height = byte_at(command_ + 4);
        const int count = width * height % 256;
        std::string cell;
        for (int i = 0; i < count; ++i) {
            cell += two_digits(take(1)) + " ";
            if ((i + 1) % width == 0 || i + 1 == count)
                cell += "\r\n";
        }
        add_row(secondary, cell, parameter.label.loaded, height * script_line_height);
    }

    void decode_offsets(const Parameter& parameter) {
        std::string cell;
        for (int i = 0; i < last_option_count_; ++i)
            cell += take_value(ParameterKind::pointer) + "\r\n";
        add_row(secondary, cell, parameter.label.loaded, last_option_count_ * script_line_height);
    }

    void decode_queue(int size) {
        const std::size_t end = index_ + static_cast<std::size_t>(size);
        while (index_ < std::min(end, bytes_.size()))
            decode_action();
        index_ = std::max(index_, end); // beyond what was read, where that cuts the queue
    }

    void decode_action() {
        const ScriptCommand& action = queue_action(byte_at(index_));
        add_row(secondary, format_hex(take(1)), action.label.loaded);
        for (const Parameter& parameter : action.parameters())
            add_row(tertiary, take_value(parameter.kind), parameter.label.loaded);
    }

    void add_row(ScriptColumn column, std::string_view value, std::string_view label,
                 int height = 0) {
        grid_.push_back(script_row(column, value, label));
        grid_.back().height = height;
    }

    std::uint8_t byte_at(std::size_t index) const {
        return index < bytes_.size() ? bytes_[index] : 0;
    }

    // The next count bytes as a number, the lowest first.
    std::uint32_t take(int count) {
        std::uint32_t value = 0;
        for (int i = 0; i < count; ++i)
            value |= static_cast<std::uint32_t>(byte_at(index_++)) << (8 * i);
        return value;
    }

    const RomImage& rom_;
    const bool dialogue_patched_;
    const std::span<const std::uint8_t> bytes_;
    ScriptGrid& grid_;
    std::map<int, ShownDialogue> dialogues_;
    std::size_t index_ = 0;              // of the next byte; beyond the end where bytes are missing
    std::size_t command_ = 0;            // where the present command began
    int last_dialogue_ = 0;              // number of the dialogue shown last
    std::uint8_t last_option_count_ = 0; // its options, or the count of a list after it
};

// Lays bytes out in the grid as the script that they begin with.
Decoder::Decoded decode_script(const RomImage& rom, bool dialogue_patched,
                               std::span<const std::uint8_t> bytes, ScriptGrid& grid) {
    grid = empty_script_grid();
    grid.pop_back();
    grid.reserve(bytes.size() + 2); // about a row a byte
    const Decoder::Decoded script = Decoder(rom, dialogue_patched, bytes, grid).decode();
    grid.push_back(blank_script_row());
    return script;
}

// The cell of a 0xB6 and how many offsets it holds.
struct OptionList {
    int row;
    std::size_t offsets;
};

std::vector<OptionList> option_lists(const ScriptGrid& grid) {
    std::vector<OptionList> lists;
    int command = -1;
    for (int row = 1; row < static_cast<int>(grid.size()) && command != return_command; ++row)
        if (starts_command(grid, row)) {
            command = command_code_at(grid, row);
        } else if (command == option_list_command && !is_blank(row_at(grid, row))) {
            const auto offsets = offsets_in(row_at(grid, row).cells[secondary]);
            lists.push_back({row, offsets ? offsets->size() : 0});
        }
    return lists;
}

} // namespace

LoadedScript load_script(const RomImage& rom, std::int64_t offset, bool dialogue_patched,
                         ScriptGrid& grid) {
    std::array<std::uint8_t, max_script_bytes> bytes;
    const std::size_t count = rom.read(offset, bytes);
    const Decoder::Decoded script =
        decode_script(rom, dialogue_patched, std::span(bytes).first(count), grid);
    return {offset, {bytes.data(), bytes.data() + script.length}, script.whole};
}

// Before the first list that differs the bytes hold the same commands as the grid: its partner is
// the list of the same number, or none where the bytes then end within that one.
std::optional<int> row_of_misread_list(const RomImage& rom, std::span<const std::uint8_t> bytes,
                                       const ScriptGrid& grid) {
    const std::vector<OptionList> held = option_lists(grid);
    if (held.empty())
        return std::nullopt;
    const ReadWatch reads(rom);
    ScriptGrid loaded;
    decode_script(rom, has_dialogue_patch(rom), bytes, loaded);
    const std::vector<OptionList> read = option_lists(loaded);
    const auto first =
        std::ranges::mismatch(held, read, {}, &OptionList::offsets, &OptionList::offsets).in1;
    return first == held.end() || reads.refused() ? std::nullopt : std::optional(first->row);
}

} // namespace veldrune
