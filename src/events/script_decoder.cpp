#include "events/script_decoder.h"

#include "dialogue/dialogue_text.h"
#include "events/script_reader.h"
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

constexpr int waiting_dialogue_height = 800; // of 0x48, whatever its text

class Decoder {
  public:
    Decoder(const RomImage& rom, bool dialogue_patched, std::span<const std::uint8_t> bytes,
            ScriptGrid& grid)
        : rom_(rom), dialogue_patched_(dialogue_patched), bytes_(bytes), grid_(grid) {}

    struct Decoded {
        std::size_t length = 0; // of the bytes that make up the script
        bool whole = false;     // its end is among them
        std::vector<RowBytes> rows;
    };
    Decoded decode() {
        Decoded script;
        while (script.length < bytes_.size() && !script.whole) {
            const std::span<const std::uint8_t> rest = bytes_.subspan(script.length);
            read_command(rest, context_, command_);
            const auto size = static_cast<std::size_t>(command_.size);
            if (size > rest.size()) { // cut: it is no command
                script.length = bytes_.size();
                break;
            }
            for (const ScriptItem& item : command_.items) {
                add_item(rest.subspan(static_cast<std::size_t>(item.at)), item);
                script.rows.push_back({static_cast<int>(script.length) + item.at, item.size});
            }
            script.length += size;
            script.whole = rest[0] == return_command;
        }
        return script;
    }

  private:
    struct ShownDialogue {
        std::size_t row; // of its text
        std::uint8_t line_count;
        std::uint8_t option_count;
    };

    void add_item(std::span<const std::uint8_t> bytes, const ScriptItem& item) {
        constexpr ScriptColumn columns[] = {primary, secondary, secondary, tertiary};
        const ScriptColumn column = columns[static_cast<std::size_t>(item.level)];
        switch (item.kind) {
        case ParameterKind::map_data:
            return add_map_data(bytes.first(static_cast<std::size_t>(item.size)), item);
        case ParameterKind::offset_list:
            return add_offsets(item);
        default:
            add_row(column, format_hex(item.value), item.label->loaded);
        }
        if (item.kind == ParameterKind::dialogue)
            add_dialogue();
    }

    void add_dialogue() {
        const ShownDialogue& dialogue = show_dialogue(context_.last_dialogue);
        context_.option_count = dialogue.option_count;
        grid_.back().height = command_.items[0].value == 0x48
                                  ? waiting_dialogue_height
                                  : dialogue.line_count * script_line_height;
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

    // Lines of as many bytes as the data is wide.
    void add_map_data(std::span<const std::uint8_t> data, const ScriptItem& item) {
        const std::uint32_t width = command_.items[3].value;
        const auto height = static_cast<int>(command_.items[4].value);
        std::string cell;
        for (std::size_t i = 0; i < data.size(); ++i) {
            cell += two_digits(data[i]) + " ";
            if ((i + 1) % width == 0 || i + 1 == data.size())
                cell += "\r\n";
        }
        add_row(secondary, cell, item.label->loaded, height * script_line_height);
    }

    void add_offsets(const ScriptItem& item) {
        std::string cell;
        for (const std::int64_t offset : command_.list)
            cell += format_hex(offset) + "\r\n";
        add_row(secondary, cell, item.label->loaded, context_.option_count * script_line_height);
    }

    void add_row(ScriptColumn column, std::string_view value, std::string_view label,
                 int height = 0) {
        grid_.push_back(script_row(column, value, label));
        grid_.back().height = height;
    }

    const RomImage& rom_;
    const bool dialogue_patched_;
    const std::span<const std::uint8_t> bytes_;
    ScriptGrid& grid_;
    std::map<int, ShownDialogue> dialogues_;
    ScriptContext context_;
    CommandItems command_; // the present one
};

// Lays bytes out in the grid as the script that they begin with.
Decoder::Decoded decode_script(const RomImage& rom, bool dialogue_patched,
                               std::span<const std::uint8_t> bytes, ScriptGrid& grid) {
    grid = empty_script_grid();
    grid.pop_back();
    grid.reserve(bytes.size() + 2); // about a row a byte
    Decoder::Decoded script = Decoder(rom, dialogue_patched, bytes, grid).decode();
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
    Decoder::Decoded script =
        decode_script(rom, dialogue_patched, std::span(bytes).first(count), grid);
    return {
        offset, {bytes.data(), bytes.data() + script.length}, std::move(script.rows), script.whole};
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
