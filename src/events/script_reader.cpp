#include "events/script_reader.h"

#include "rom/rom_layout.h"

#include <algorithm>

namespace veldrune {
namespace {

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

class CommandReader {
  public:
    CommandReader(std::span<const std::uint8_t> bytes, ScriptContext& context, CommandItems& out)
        : bytes_(bytes), context_(context), out_(out) {}

    void read() {
        const ScriptCommand& command = script_command(byte_at(0));
        add(ScriptLevel::command, ParameterKind::byte, command.label, 1);
        for (const Parameter& parameter : command.parameters())
            read_parameter(parameter);
        if (command.is_queue())
            read_queue(queue_size(byte_at(index_ - 1)));
        out_.size = index_;
    }

  private:
    void read_parameter(const Parameter& parameter) {
        switch (parameter.kind) {
        case ParameterKind::map_data: {
            // What the height says beyond the 8 bits of the product is no part of the command.
            const int count = byte_at(3) * byte_at(4) % 256;
            return add_stretch(parameter, count);
        }
        case ParameterKind::offset_list:
            for (int i = 0; i < context_.option_count; ++i)
                out_.list.push_back(pointer_at(index_ + 3 * i));
            return add_stretch(parameter, 3 * context_.option_count);
        case ParameterKind::list_count:
            context_.option_count = byte_at(index_);
            break;
        default:
            break;
        }
        add(ScriptLevel::value, parameter.kind, parameter.label, size_of(parameter.kind));
        if (parameter.kind == ParameterKind::dialogue) {
            const std::uint32_t reference = out_.items.back().value;
            context_.last_dialogue = dialogue_number(reference).value_or(context_.last_dialogue);
            out_.dialogue = context_.last_dialogue;
        }
    }

    // A queue ends with its count; the last action may reach beyond it.
    void read_queue(int size) {
        const int end = index_ + size;
        while (index_ < std::min(end, static_cast<int>(bytes_.size()))) {
            const ScriptCommand& action = queue_action(byte_at(index_));
            add(ScriptLevel::action, ParameterKind::byte, action.label, 1);
            for (const Parameter& parameter : action.parameters())
                add(ScriptLevel::argument, parameter.kind, parameter.label,
                    size_of(parameter.kind));
        }
        index_ = std::max(index_, end); // bytes that are missing belong to it
    }

    void add(ScriptLevel level, ParameterKind kind, const Label& label, int size) {
        out_.items.push_back({level, kind, &label, value_at(index_, kind), index_, size});
        index_ += kind == ParameterKind::high_nibble ? 0 : size;
    }
    void add_stretch(const Parameter& parameter, int size) {
        out_.items.push_back(
            {ScriptLevel::value, parameter.kind, &parameter.label, 0, index_, size});
        index_ += size;
    }

    std::uint32_t value_at(int index, ParameterKind kind) const {
        switch (kind) {
        case ParameterKind::pointer:
            return pointer_at(index);
        case ParameterKind::word:
        case ParameterKind::dialogue:
            return byte_at(index) | byte_at(index + 1) << 8;
        case ParameterKind::high_nibble:
            return byte_at(index) >> 4;
        case ParameterKind::low_nibble:
            return byte_at(index) & 0xF;
        default:
            return byte_at(index);
        }
    }
    std::uint32_t pointer_at(int index) const {
        return rom_layout::event_scripts + static_cast<std::uint32_t>(byte_at(index)) +
               (static_cast<std::uint32_t>(byte_at(index + 1)) << 8) +
               (static_cast<std::uint32_t>(byte_at(index + 2)) << 16);
    }
    std::uint8_t byte_at(int index) const {
        const auto at = static_cast<std::size_t>(index);
        return at < bytes_.size() ? bytes_[at] : std::uint8_t{0};
    }

    const std::span<const std::uint8_t> bytes_;
    ScriptContext& context_;
    CommandItems& out_;
    int index_ = 0; // of the next byte
};

} // namespace

void read_command(std::span<const std::uint8_t> bytes, ScriptContext& context,
                  CommandItems& command) {
    command.items.clear();
    command.list.clear();
    command.dialogue.reset();
    CommandReader(bytes, context, command).read();
}

} // namespace veldrune
