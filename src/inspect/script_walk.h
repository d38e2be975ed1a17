#pragma once

#include "events/script_reader.h"
#include "inspect/memory_image.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace veldrune::inspect {

// Scripts have no table. One begins where an object or a jump of another script points, and runs to
// its first 0xFE command. A walk from an object's pointer is sure up to the first command whose
// length the bytes alone do not settle: 0x51 and 0x53, a 0xB6 without a dialogue before it in the
// walk, a count of 0, map data of 0 or of more than 255 bytes, a queue that overruns its count.
// That command, all after it and all that is reached from there is a script only perhaps.

/// A command that a walk has come to.
struct WalkedCommand {
    std::int32_t offset; // file offset
    std::uint16_t size;  // bytes, all in the file
    std::uint8_t code;
    bool sure;
    std::int16_t dialogue; // number of the one that it shows, -1 for none

    std::int64_t end() const { return std::int64_t{offset} + size; }
};

/// A script, or the part of one up to the place where another's commands follow.
struct WalkedScript {
    std::int64_t offset; // file offset
    bool sure;           // a sure pointer leads here
    std::size_t first;   // its commands in ScriptWalk::commands: they follow each other in the file
    std::size_t count;
    std::optional<std::int64_t> goes_on_at; // the command of another script that follows
    std::optional<int> length; // bytes with the final 0xFE, as the Event Editor would load them;
                               // nothing without an end within 10001 bytes and the file
};

/// A pointer to a script, or, in a queue, to actions.
struct ScriptPointer {
    enum From : std::uint8_t { object, command, queue } from;
    bool sure;
    std::int64_t target; // file offset, perhaps outside the file
    std::int64_t holder; // index of the object, or file offset of the command that holds it
};

struct ScriptWalk {
    std::vector<WalkedScript> scripts;   // by offset; only those that begin in the file
    std::vector<WalkedCommand> commands; // by script; each stands once
    std::vector<ScriptPointer> pointers; // by target

    std::span<const WalkedCommand> commands_of(const WalkedScript& script) const {
        return std::span(commands).subspan(script.first, script.count);
    }
    /// The pointers to a file offset.
    std::span<const ScriptPointer> pointers_to(std::int64_t offset) const;
    /// The script that begins at a file offset; null where none does.
    const WalkedScript* script_at(std::int64_t offset) const;
};

/// An object's pointer: the file offset of its script, and the object's index.
struct ScriptRoot {
    std::int64_t offset;
    std::int64_t object;
};

/// Walks all scripts that the roots lead to.
ScriptWalk walk_scripts(const MemoryImage& image, bool dialogue_patched,
                        std::span<const ScriptRoot> roots);

/// Whether a walk from the start of a script meets neither its end nor a doubtful command within
/// 10001 bytes and the file.
bool is_surely_endless(const MemoryImage& image, bool dialogue_patched, std::int64_t offset);

/// Whether a command loads the map of its first value, at the place of the two after it.
constexpr bool loads_map(std::uint8_t code) {
    return code == 0x6A || code == 0x6B;
}

/// The values of a walked command.
void read_items(const MemoryImage& image, const WalkedCommand& command, CommandItems& items);

} // namespace veldrune::inspect
