#include "inspect/script_walk.h"

#include "dialogue/dialogue_text.h"
#include "events/script_decoder.h"

#include <algorithm>
#include <map>

namespace veldrune::inspect {
namespace {

bool is_doubtful(const CommandItems& command, bool dialogue_shown) {
    const auto code = static_cast<std::uint8_t>(command.items[0].value);
    const auto& rows = command.items;
    if (script_command(code).is_queue()) {
        const int count = queue_size(static_cast<std::uint8_t>(rows[1].value));
        return count == 0 || command.size > 2 + count;
    }
    switch (code) {
    case 0x51:
    case 0x53:
        return true;
    case option_list_command:
        return !dialogue_shown || command.list.empty();
    case 0xBE:
        return command.list.empty();
    case 0x73:
    case 0x74: {
        const std::uint32_t bytes = rows[3].value * rows[4].value;
        return bytes == 0 || bytes > 0xFF;
    }
    default:
        return false;
    }
}

// Options of dialogues, each counted once.
class OptionCounts {
  public:
    OptionCounts(const RomImage& rom, bool dialogue_patched)
        : rom_(rom), dialogue_patched_(dialogue_patched), counts_(0x8000, unknown) {}
    std::uint8_t of(int dialogue) {
        std::int16_t& count = counts_[static_cast<std::size_t>(dialogue)];
        if (count == unknown)
            count = read_dialogue_text(rom_, dialogue_patched_, dialogue).option_count;
        return static_cast<std::uint8_t>(count);
    }

  private:
    static constexpr std::int16_t unknown = -1;
    const RomImage& rom_;
    bool dialogue_patched_;
    std::vector<std::int16_t> counts_;
};

// How a walk stands at an offset.
struct Walk {
    ScriptContext context;
    bool dialogue_shown = false;
    int left = max_script_bytes;
};
using Walks = std::map<std::int64_t, Walk>; // by offset: the lowest goes first

class Walker {
  public:
    Walker(const MemoryImage& image, const RomImage& rom, bool dialogue_patched)
        : image_(image), options_(rom, dialogue_patched), listed_(image.bytes.size()) {}

    ScriptWalk walk_all(std::span<const ScriptRoot> roots) {
        for (const ScriptRoot& root : roots)
            point({ScriptPointer::object, true, root.offset, root.object});
        walk_waiting(true);
        std::swap(waiting_, doubtful_);
        walk_waiting(false);
        sort_out();
        return std::move(result_);
    }

    // A command that begins within the limit is read whole, since its count may be a doubt.
    bool is_endless(std::int64_t offset) {
        constexpr int beyond = 1024; // no command is longer
        Walk walk{{}, false, max_script_bytes + beyond};
        for (; image_.holds(offset, 1) && walk.left > beyond; pass(offset, walk)) {
            const bool whole = read(offset, walk);
            if (is_doubtful(command_, walk.dialogue_shown) ||
                image_.bytes[static_cast<std::size_t>(offset)] == return_command)
                return false;
            if (!whole)
                break;
        }
        return true;
    }

  private:
    void walk_waiting(bool sure) {
        while (!waiting_.empty()) {
            const auto first = waiting_.extract(waiting_.begin());
            walk(first.key(), first.mapped(), sure);
        }
    }

    void walk(std::int64_t offset, Walk walk, bool sure) {
        while (image_.holds(offset, 1) && !listed_[static_cast<std::size_t>(offset)]) {
            const Walk before = walk;
            if (!read(offset, walk))
                return;
            if (sure && is_doubtful(command_, walk.dialogue_shown)) {
                doubtful_.emplace(offset, before);
                return;
            }
            list(offset, sure);
            if (image_.bytes[static_cast<std::size_t>(offset)] == return_command)
                return;
            pass(offset, walk);
        }
    }

    // Reads the command at an offset. False where it is not whole within the walk and the file.
    bool read(std::int64_t offset, Walk& walk) {
        const auto bytes = image_.at(offset, walk.left);
        read_command(bytes, walk.context, command_);
        return command_.size <= std::ssize(bytes);
    }
    // Goes on to the place after the command that has been read.
    void pass(std::int64_t& offset, Walk& walk) {
        if (command_.dialogue) {
            walk.context.option_count = options_.of(*command_.dialogue);
            walk.dialogue_shown = true;
        }
        walk.left -= command_.size;
        offset += command_.size;
    }

    void list(std::int64_t offset, bool sure) {
        listed_[static_cast<std::size_t>(offset)] = true;
        result_.commands.push_back({static_cast<std::int32_t>(offset),
                                    static_cast<std::uint16_t>(command_.size),
                                    static_cast<std::uint8_t>(command_.items[0].value), sure,
                                    static_cast<std::int16_t>(command_.dialogue.value_or(-1))});
        for (const ScriptItem& item : command_.items)
            if (item.kind == ParameterKind::pointer)
                point({item.level == ScriptLevel::argument ? ScriptPointer::queue
                                                           : ScriptPointer::command,
                       sure, item.value, offset});
        for (const std::int64_t target : command_.list)
            point({ScriptPointer::command, sure, target, offset});
    }

    void point(const ScriptPointer& pointer) {
        result_.pointers.push_back(pointer);
        if (pointer.from == ScriptPointer::queue || !image_.holds(pointer.target, 1))
            return;
        if (starts_.emplace(pointer.target, pointer.sure).second)
            waiting_.emplace(pointer.target, Walk{});
    }

    // Brings the commands into the order of the file, and then of the scripts.
    void sort_out() {
        std::ranges::stable_sort(result_.pointers, {}, &ScriptPointer::target);
        auto& commands = result_.commands;
        std::ranges::sort(commands, {}, &WalkedCommand::offset);
        const std::vector<int> lengths = lengths_to_end();
        std::vector<WalkedCommand> ordered;
        ordered.reserve(commands.size());
        std::vector<bool> taken(commands.size());
        for (const auto& [start, sure] : starts_) {
            WalkedScript script{start, sure, ordered.size(), 0, {}, {}};
            std::size_t at = index_of(start);
            if (at < commands.size() && lengths[at] != 0)
                script.length = lengths[at];
            while (at < commands.size() && !script.goes_on_at) {
                taken[at] = true;
                ordered.push_back(commands[at]);
                const WalkedCommand& last = commands[at];
                at = last.code == return_command ? commands.size() : index_of(last.end());
                if (at < commands.size() && (taken[at] || starts_.contains(last.end())))
                    script.goes_on_at = last.end();
            }
            script.count = ordered.size() - script.first;
            result_.scripts.push_back(script);
        }
        commands = std::move(ordered);
    }

    // Of each command, the bytes from it to the end of its script; 0 where there is none.
    std::vector<int> lengths_to_end() const {
        const auto& commands = result_.commands;
        std::vector<int> lengths(commands.size());
        for (std::size_t i = commands.size(); i-- > 0;) {
            const std::size_t next = index_of(commands[i].end());
            const int rest = commands[i].code == return_command ? 0
                             : next < commands.size()           ? lengths[next]
                                                                : max_script_bytes;
            const int length = commands[i].size + rest;
            const bool ends = commands[i].code == return_command || rest != 0;
            lengths[i] = ends && length <= max_script_bytes ? length : 0;
        }
        return lengths;
    }

    // The number of commands where none begins at the offset.
    std::size_t index_of(std::int64_t offset) const {
        const auto& commands = result_.commands;
        const auto at = std::ranges::lower_bound(commands, offset, {}, &WalkedCommand::offset);
        return at != commands.end() && at->offset == offset
                   ? static_cast<std::size_t>(at - commands.begin())
                   : commands.size();
    }

    const MemoryImage& image_;
    OptionCounts options_;
    std::vector<bool> listed_;            // by offset: a listed command begins there
    std::map<std::int64_t, bool> starts_; // of scripts, and whether surely
    Walks waiting_;
    Walks doubtful_;       // sure walks at the first command that is not
    CommandItems command_; // the present one
    ScriptWalk result_;
};

} // namespace

std::span<const ScriptPointer> ScriptWalk::pointers_to(std::int64_t offset) const {
    const auto first = std::ranges::lower_bound(pointers, offset, {}, &ScriptPointer::target);
    const auto end = std::ranges::upper_bound(pointers, offset, {}, &ScriptPointer::target);
    return {first, end};
}

const WalkedScript* ScriptWalk::script_at(std::int64_t offset) const {
    const auto at = std::ranges::lower_bound(scripts, offset, {}, &WalkedScript::offset);
    return at != scripts.end() && at->offset == offset ? &*at : nullptr;
}

ScriptWalk walk_scripts(const MemoryImage& image, bool dialogue_patched,
                        std::span<const ScriptRoot> roots) {
    const MemoryRom rom(image);
    return Walker(image, rom.rom(), dialogue_patched).walk_all(roots);
}

bool is_surely_endless(const MemoryImage& image, bool dialogue_patched, std::int64_t offset) {
    const MemoryRom rom(image);
    return Walker(image, rom.rom(), dialogue_patched).is_endless(offset);
}

void read_items(const MemoryImage& image, const WalkedCommand& command, CommandItems& items) {
    ScriptContext context;
    context.last_dialogue = std::max<int>(command.dialogue, 0);
    if (command.code == option_list_command)
        context.option_count = static_cast<std::uint8_t>(command.size / 3);
    read_command(image.at(command.offset, command.size), context, items);
}

} // namespace veldrune::inspect
