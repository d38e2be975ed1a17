#include "events/script_decoder.h"

#include "dialogue/dialogue_text.h"
#include "events/command_table.h"
#include "rom/number_text.h"
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

    LoadedScript decode() {
        while (index_ < bytes_.size()) {
            const std::size_t rows_before = grid_.size();
            const std::uint8_t code = bytes_[index_];
            decode_command();
            if (index_ > bytes_.size()) { // cut: it is no command
                grid_.resize(rows_before);
                break;
            }
            if (code == return_command)
                return {static_cast<int>(index_), true};
        }
        return {static_cast<int>(bytes_.size()), false};
    }

  private:
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
        const DialogueText& dialogue = dialogue_text(last_dialogue_);
        last_option_count_ = dialogue.option_count;
        add_row(secondary, format_hex(reference), dialogue.text,
                tall ? waiting_dialogue_height : dialogue.line_count * script_line_height);
    }

    // Each is read once: bytes that make no sense may show the same long text again and again.
    const DialogueText& dialogue_text(int number) {
        const auto [text, is_new] = dialogues_.try_emplace(number);
        if (is_new)
            text->second = read_dialogue_text(rom_, dialogue_patched_, number);
        return text->second;
    }

    // Lines of as many bytes as the data is wide. What the height tells beyond the 8 bits of their
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
    std::map<int, DialogueText> dialogues_;
    std::size_t index_ = 0;              // of the next byte; beyond the end where bytes are missing
    std::size_t command_ = 0;            // where the present command began
    int last_dialogue_ = 0;              // number of the dialogue shown last
    std::uint8_t last_option_count_ = 0; // its options, or the count of a list behind it
};

} // namespace

LoadedScript load_script(const RomImage& rom, std::int64_t offset, bool dialogue_patched,
                         ScriptGrid& grid) {
    std::array<std::uint8_t, max_script_bytes> bytes;
    const std::size_t count = rom.read(offset, bytes);
    grid = empty_script_grid();
    grid.pop_back();
    grid.reserve(count + 2); // about a row a byte
    const LoadedScript script =
        Decoder(rom, dialogue_patched, std::span(bytes).first(count), grid).decode();
    grid.push_back(blank_script_row());
    return script;
}

} // namespace veldrune
