#include "inspect/script_ways.h"

#include <algorithm>
#include <bit>
#include <deque>
#include <iterator>

namespace veldrune::inspect {

namespace {

using Marks = std::vector<std::uint64_t>; // of each script

// Gives the marks of every script to those after it. edges are in order.
void spread(Marks& marks, std::span<const std::pair<std::uint32_t, std::uint32_t>> edges) {
    std::deque<std::uint32_t> waiting;
    std::vector<bool> waits(marks.size());
    const auto wait = [&](std::uint32_t script) {
        if (!waits[script])
            waiting.push_back(script);
        waits[script] = true;
    };
    for (std::uint32_t script = 0; script < marks.size(); ++script)
        if (marks[script] != 0)
            wait(script);
    while (!waiting.empty()) {
        const std::uint32_t script = waiting.front();
        waiting.pop_front();
        waits[script] = false;
        auto edge = std::ranges::lower_bound(edges, std::pair{script, 0u});
        for (; edge != edges.end() && edge->first == script; ++edge)
            if ((marks[script] & ~marks[edge->second]) != 0) {
                marks[edge->second] |= marks[script];
                wait(edge->second);
            }
    }
}

} // namespace

std::vector<std::int64_t> map_numbers(const MapSet& maps) {
    std::vector<std::int64_t> numbers;
    for (std::size_t map = 0; map < maps.size(); ++map)
        if (maps[map])
            numbers.push_back(static_cast<std::int64_t>(map));
    return numbers;
}

ScriptWays::ScriptWays(const ImageReading& reading) : reading_(reading) {
    const ScriptWalk& walk = reading.scripts;
    for (std::uint32_t i = 0; i < walk.scripts.size(); ++i) {
        const auto first = static_cast<std::uint32_t>(walk.scripts[i].first);
        for (std::uint32_t at = first; at < first + walk.scripts[i].count; ++at)
            places_.push_back({walk.commands[at].offset, at, i});
    }
    std::ranges::sort(places_, {}, &Place::offset);
    for (std::uint32_t i = 0; i < walk.scripts.size(); ++i) {
        for (const ScriptPointer& pointer : walk.pointers_to(walk.scripts[i].offset))
            if (pointer.from == ScriptPointer::command)
                add_edge(place_of(pointer.holder)->script, i);
        if (const auto goes_on = walk.scripts[i].goes_on_at)
            add_edge(i, place_of(*goes_on)->script);
    }
    std::ranges::sort(forward_);
    std::ranges::sort(back_);
}

void ScriptWays::add_edge(std::uint32_t from, std::uint32_t to) {
    forward_.emplace_back(from, to);
    back_.emplace_back(to, from);
}

const ScriptWays::Place* ScriptWays::place_of(std::int64_t offset) const {
    const auto at = std::ranges::lower_bound(places_, offset, {}, &Place::offset);
    return at != places_.end() && at->offset == offset ? &*at : nullptr;
}

const WalkedCommand* ScriptWays::command_at(std::int64_t offset) const {
    const Place* place = place_of(offset);
    return place == nullptr ? nullptr : &reading_.scripts.commands[place->index];
}

std::int64_t ScriptWays::script_of(std::int64_t command) const {
    const Place* place = place_of(command);
    return place == nullptr ? -1 : reading_.scripts.scripts[place->script].offset;
}

ScriptWays::Commands ScriptWays::met_from(int map, const Commands& commands) const {
    const ScriptWalk& walk = reading_.scripts;
    Marks marks(walk.scripts.size());
    for (const ScriptPointer& pointer : walk.pointers)
        if (pointer.from == ScriptPointer::object &&
            reading_.objects[static_cast<std::size_t>(pointer.holder)].map == map)
            if (const WalkedScript* script = walk.script_at(pointer.target))
                marks[static_cast<std::size_t>(script - walk.scripts.data())] = 1;
    spread(marks, forward_);
    Commands met;
    std::ranges::copy_if(commands, std::back_inserter(met), [&](std::int64_t command) {
        return marks[place_of(command)->script] != 0;
    });
    return met;
}

void ScriptWays::visit_objects(std::span<const Commands> groups, const Visit& visit) const {
    const ScriptWalk& walk = reading_.scripts;
    constexpr std::size_t at_once = 64; // a bit each
    for (std::size_t first = 0; first < groups.size(); first += at_once) {
        Marks marks(walk.scripts.size());
        for (std::size_t i = first; i < std::min(groups.size(), first + at_once); ++i)
            for (const std::int64_t command : groups[i])
                marks[place_of(command)->script] |= std::uint64_t{1} << (i - first);
        spread(marks, back_);
        for (std::size_t script = 0; script < marks.size(); ++script)
            for (const ScriptPointer& pointer : walk.pointers_to(walk.scripts[script].offset)) {
                if (marks[script] == 0 || pointer.from != ScriptPointer::object)
                    continue;
                const ObjectAt& object = reading_.objects[static_cast<std::size_t>(pointer.holder)];
                for (std::uint64_t rest = marks[script]; rest != 0; rest &= rest - 1)
                    visit(first + static_cast<std::size_t>(std::countr_zero(rest)), object);
            }
    }
}

} // namespace veldrune::inspect
