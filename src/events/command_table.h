#pragma once

#include <array>
#include <concepts>
#include <cstdint>
#include <span>

namespace veldrune {

/// What there is in a row under a command or a queue action, and in the script's bytes for it.
enum class ParameterKind : std::uint8_t {
    none,
    byte,        // 1 byte
    word,        // 2 bytes, the lowest first
    pointer,     // 3 bytes, the lowest first: a file offset less event_scripts
    dialogue,    // a word: number of a dialogue
    high_nibble, // bits 4 to 7 of a byte whose low nibble is in the next row
    low_nibble,  // bits 0 to 3 of that byte
    map_data,    // as many bytes as the product of the two rows above, modulo 256
    list_count,  // 1 byte: number of pointers in the next row
    offset_list, // pointers in one cell, as many as a list count above it or, without one, the
                 // options of the dialogue before it
    queue_count, // 1 byte: number of bytes of the actions that follow
};

/// Bytes of a value of a kind that has a width of its own.
constexpr int size_of(ParameterKind kind) {
    switch (kind) {
    case ParameterKind::pointer:
        return 3;
    case ParameterKind::word:
    case ParameterKind::dialogue:
        return 2;
    default:
        return 1;
    }
}

/// The words beside a row: those of a command that was loaded, and those of one that is added.
struct Label {
    const char* loaded;
    const char* added;
    constexpr Label(const char* both = "") : loaded(both), added(both) {}
    constexpr Label(const char* when_loaded, const char* when_added)
        : loaded(when_loaded), added(when_added) {}
};

struct Parameter {
    ParameterKind kind = ParameterKind::none;
    Label label;
};

inline constexpr std::size_t most_parameters = 9;

/// A command of the event scripts, or an action of their queues.
struct ScriptCommand {
    std::uint8_t code;
    Label label;
    std::array<Parameter, most_parameters> rows; // the rows under it, ended by kind none
    bool can_be_added = true;                    // a typed code makes rows

    template <std::same_as<Parameter>... Parameters>
    constexpr ScriptCommand(std::uint8_t its_code, Label its_label, Parameters... its_rows)
        : code(its_code), label(its_label), rows{its_rows...} {}

    constexpr std::span<const Parameter> parameters() const {
        std::size_t count = 0;
        while (count < rows.size() && rows[count].kind != ParameterKind::none)
            ++count;
        return std::span(rows).first(count);
    }
    constexpr bool is_queue() const { return rows[0].kind == ParameterKind::queue_count; }
};

/// The row of a code.
const ScriptCommand& script_command(std::uint8_t code);
const ScriptCommand& queue_action(std::uint8_t code);

/// Bytes of a queue action with its arguments.
int action_size(std::uint8_t code);

/// Bytes of a queue by its length byte: bit 7 is no part of the number, but 0x80 alone is 128.
constexpr int queue_size(std::uint8_t length) {
    return length > 0x80 ? length - 0x80 : length;
}

inline constexpr std::uint8_t option_list_command = 0xB6;
inline constexpr std::uint8_t return_command = 0xFE;
inline constexpr std::uint8_t end_queue_action = 0xFF;

} // namespace veldrune
