#pragma once

#include "inspect/grade.h"
#include "inspect/ownership.h"

#include <array>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace veldrune::inspect {

/// What all checks look at.
struct CheckGround {
    explicit CheckGround(const ImageReading& reading);

    const ImageReading& reading;
    Ownership ownership;
    /// An entrance of another map or a sure command leads to the map.
    std::array<bool, rom_layout::map_count> led_to{};

    /// Whether a fault of a map's record counts: it may not mean anything where nothing leads to
    /// the map, nor in the records of the two worlds.
    bool record_counts(int map) const {
        return map >= std::ssize(world_rows) && led_to[static_cast<std::size_t>(map)];
    }
    /// The same of a map's objects. The worlds use the lists of theirs.
    bool objects_count(int map) const {
        return map < std::ssize(world_rows) || led_to[static_cast<std::size_t>(map)];
    }
    /// Whether objects that count surely lead to a command.
    bool command_counts(std::int64_t offset) const {
        const auto place = commands.find(offset);
        return place != commands.end() && place->second.counts;
    }
    /// "script A0210 at A0213"
    std::string command_place(std::int64_t offset) const;

    struct CommandPlace {
        std::int64_t script = 0; // file offset of the script that it is listed in
        bool counts = false;
    };
    std::unordered_map<std::int64_t, CommandPlace> commands; // by file offset
};

/// What a check has found.
struct Found {
    std::string place;
    std::string why;
    bool counts = true; // false: only unusual, although the check finds faults
};
using FoundList = std::vector<Found>;

/// A check: a row of the table of its subject.
struct Check {
    const char* name;
    Grade grade;
    void (*find)(const CheckGround& ground, FoundList& found);
    const char* effect;
};
std::span<const Check> stream_checks();
std::span<const Check> object_checks();
std::span<const Check> script_checks();
std::span<const Check> value_checks();

/// Whether the image is marked as patched, and the patch's table of dialogues is not there.
bool patch_table_is_missing(const ImageReading& reading);

/// Why a place lies beyond the largest layer of a map, or an empty text. The worlds have room for
/// any; so has a number that is no map's.
std::string beyond_map(const ImageReading& reading, std::int64_t map, std::int64_t column,
                       std::int64_t row);

} // namespace veldrune::inspect
