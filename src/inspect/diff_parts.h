#pragma once

#include "inspect/difference.h"
#include "inspect/owner_kind.h"
#include "inspect/reading.h"

#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace veldrune::inspect {

/// The parts of a comparison of images, each in a file of its own.
struct Comparison {
    const ImageReading& a;
    const ImageReading& b;
    const TakeDifference& take;
    std::set<std::pair<OwnerKind, std::int64_t>> named{}; // owners that findings speak of

    void add(std::string thing, std::string what, std::string before = "", std::string after = "") {
        take({std::move(thing), std::move(what), std::move(before), std::move(after)});
    }
    /// Whether any of the bytes differs, or is only in one of the files.
    bool differs(std::int64_t begin, std::int64_t end) const;
};

void compare_facts(Comparison& comparison);   // maps, objects, tables, items, dialogues
void compare_streams(Comparison& comparison); // all kinds of streams
void compare_scripts(Comparison& comparison);
/// Owners of bytes that differ, and that nothing else speaks of; then bytes without an owner.
void compare_bytes(Comparison& comparison);

/// Words of a dump's key without zeros before their numbers: "map 12" of "map 012".
std::string plain(std::string_view key);
/// "1 byte", "3 bytes".
std::string counted(std::int64_t count, std::string_view unit);
/// "column 4", "columns 4-6".
std::string spread(std::string_view unit, std::int64_t first, std::int64_t last);
/// Numbers in rising order: "map 5", "maps 5, 9-12".
std::string number_list(std::string_view unit, const std::vector<int>& numbers);

} // namespace veldrune::inspect
