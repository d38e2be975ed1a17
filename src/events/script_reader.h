#pragma once

#include "events/command_table.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace veldrune {

/// What a command takes from those before it in the script.
struct ScriptContext {
    int last_dialogue = 0;         // number of the dialogue shown last
    std::uint8_t option_count = 0; // its options, or the count of a list after it
};

/// What a script's bytes hold: a command, a value of it, an action of its queue, an argument of
/// that.
enum class ScriptLevel { command, value, action, argument };

struct ScriptItem {
    ScriptLevel level;
    ParameterKind kind;  // of a value or an argument
    const Label* label;  // of the tables
    std::uint32_t value; // a file offset for a pointer; 0 for a list and for map data
    int at;              // first byte, from the command's own
    int size;            // bytes; both nibbles of a pair count the byte that they share
};

/// A command as it stands in a script.
struct CommandItems {
    std::vector<ScriptItem> items;  // the first is the command itself
    int size = 0;                   // bytes, also where fewer follow
    std::optional<int> dialogue;    // the number of the one that it shows
    std::vector<std::int64_t> list; // file offsets of its list of pointers
};

/// Reads the command that bytes begin with; bytes that are missing count as 0. Of its dialogue, the
/// caller puts the number of options into context before the next command is read.
void read_command(std::span<const std::uint8_t> bytes, ScriptContext& context,
                  CommandItems& command);

} // namespace veldrune
