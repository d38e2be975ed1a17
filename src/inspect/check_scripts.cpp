#include "inspect/check_ground.h"
#include "inspect/field_names.h"
#include "rom/number_text.h"

#include <algorithm>
#include <map>

namespace veldrune::inspect {
namespace {

std::string endless_words(const ImageReading& reading, std::int64_t start) {
    const WalkedScript* script = reading.scripts.script_at(start);
    if (script == nullptr)
        return "the script begins outside the file";
    // It is walked alone, since a walk that meets another one ends there.
    const bool endless =
        !script->length && is_surely_endless(reading.image, reading.dialogue_patched, start);
    return endless ? "the script has no end" : "";
}

void find_endless(const CheckGround& ground, FoundList& found) {
    const ImageReading& reading = ground.reading;
    std::map<std::int64_t, std::string> words; // by start: several objects may lead there
    for (const ScriptPointer& pointer : reading.scripts.pointers) {
        if (pointer.from != ScriptPointer::object)
            continue;
        const auto [why, is_new] = words.try_emplace(pointer.target);
        if (is_new)
            why->second = endless_words(reading, pointer.target);
        const ObjectAt& object = reading.objects[static_cast<std::size_t>(pointer.holder)];
        if (!why->second.empty())
            found.push_back({object_place(object) + " event " + format_hex(pointer.target),
                             why->second, ground.objects_count(object.map)});
    }
}

void find_jumps_outside(const CheckGround& ground, FoundList& found) {
    for (const ScriptPointer& pointer : ground.reading.scripts.pointers)
        if (pointer.from != ScriptPointer::object && pointer.sure &&
            !ground.reading.image.holds(pointer.target, 1))
            found.push_back({ground.command_place(pointer.holder),
                             "leads to " + format_hex(pointer.target) + ", outside the file",
                             ground.command_counts(pointer.holder)});
}

void find_dialogues(const CheckGround& ground, FoundList& found) {
    const ImageReading& reading = ground.reading;
    if (patch_table_is_missing(reading))
        return; // one finding for all of them
    for (const WalkedCommand& command : reading.scripts.commands) {
        if (!command.sure || command.dialogue < 0)
            continue;
        const auto number = static_cast<std::size_t>(command.dialogue);
        const std::string name = "dialogue " + format_hex(command.dialogue);
        const bool counts = ground.command_counts(command.offset);
        if (number >= reading.dialogues.size())
            found.push_back(
                {ground.command_place(command.offset),
                 name + " is above the last, " + format_hex(std::ssize(reading.dialogues) - 1),
                 counts});
        else if (const DialogueAt& text = reading.dialogues[number];
                 !reading.image.holds(text.offset, text.size + !text.whole))
            found.push_back({ground.command_place(command.offset),
                             name + (text.size == 0 ? " lies outside the file"
                                                    : " goes beyond the end of the file"),
                             counts});
    }
}

void find_jumps_inside(const CheckGround& ground, FoundList& found) {
    const ScriptWalk& scripts = ground.reading.scripts;
    std::vector<bool> inside(ground.reading.image.bytes.size());
    for (const WalkedCommand& command : scripts.commands)
        if (command.sure)
            std::fill(inside.begin() + command.offset + 1, inside.begin() + command.end(), true);
    for (const ScriptPointer& pointer : scripts.pointers)
        if (pointer.from == ScriptPointer::command && pointer.sure &&
            ground.reading.image.holds(pointer.target, 1) &&
            inside[static_cast<std::size_t>(pointer.target)])
            found.push_back(
                {ground.command_place(pointer.holder),
                 "leads to " + format_hex(pointer.target) + ", inside of another command"});
}

// A list without pointers is where a walk becomes doubtful: only that one is shown, not what may
// look like one after it.
void find_empty_lists(const CheckGround& ground, FoundList& found) {
    const ScriptWalk& scripts = ground.reading.scripts;
    CommandItems items;
    for (const WalkedScript& script : scripts.scripts) {
        const auto commands = scripts.commands_of(script);
        const auto doubt = std::ranges::find(commands, false, &WalkedCommand::sure);
        if (doubt == commands.end() || !script.sure)
            continue;
        read_items(ground.reading.image, *doubt, items);
        const auto kind = items.items.back().kind;
        const bool empty_queue = items.items.size() == 2 &&
                                 items.items[1].kind == ParameterKind::queue_count &&
                                 items.items[1].value == 0;
        if (empty_queue || (kind == ParameterKind::offset_list && items.list.empty()))
            found.push_back({ground.command_place(doubt->offset), "has a count of 0"});
    }
}

void find_numbers(const CheckGround& ground, FoundList& found) {
    CommandItems items;
    for (const WalkedCommand& command : ground.reading.scripts.commands) {
        if (!command.sure || !loads_map(command.code))
            continue;
        read_items(ground.reading.image, command, items);
        const std::uint32_t map = items.items[1].value;
        const std::string why =
            map >= rom_layout::map_count
                ? "map " + format_hex(map) + " is above the last, " +
                      format_hex(rom_layout::map_count - 1)
                : beyond_map(ground.reading, map, items.items[2].value, items.items[3].value);
        if (!why.empty())
            found.push_back({ground.command_place(command.offset), why});
    }
}

constexpr Check checks[] = {
    {"script-endless", Grade::fault, find_endless, "the Event Editor can't save it"},
    {"jump-outside", Grade::fault, find_jumps_outside, "shown as it is"},
    {"dialogue-outside", Grade::fault, find_dialogues, "another text or none is shown"},
    {"jump-inside", Grade::unusual, find_jumps_inside, "an edit of that command breaks the jump"},
    {"list-empty", Grade::unusual, find_empty_lists, "what follows may be no script"},
    {"load-map", Grade::unusual, find_numbers, "shown as it is"},
};

} // namespace

std::span<const Check> script_checks() {
    return checks;
}

} // namespace veldrune::inspect
