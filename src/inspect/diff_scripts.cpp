#include "events/command_table.h"
#include "inspect/diff_parts.h"
#include "inspect/dump.h"
#include "inspect/ownership.h"
#include "rom/number_text.h"

#include <algorithm>

namespace veldrune::inspect {
namespace {

// A command of an image, and its script.
struct Row {
    std::int64_t offset;
    std::int64_t script;
    std::span<const std::uint8_t> bytes;

    bool same(const Row& other) const { return std::ranges::equal(bytes, other.bytes); }
};
using Rows = std::span<const Row>;

std::vector<Row> all_rows(const ImageReading& reading) {
    std::vector<Row> rows;
    for (const WalkedScript& script : reading.scripts.scripts)
        for (const WalkedCommand& command : reading.scripts.commands_of(script))
            rows.push_back(
                {command.offset, script.offset, reading.image.at(command.offset, command.size)});
    std::ranges::sort(rows, {}, &Row::offset);
    return rows;
}

// From the first command of each script that holds a changed byte to the script's end: those after
// it may have moved.
void add_changed(const Comparison& c, const ImageReading& reading, std::vector<ByteRange>& ranges) {
    for (const WalkedScript& script : reading.scripts.scripts) {
        const auto commands = reading.scripts.commands_of(script);
        const auto first = std::ranges::find_if(commands, [&](const WalkedCommand& command) {
            return c.differs(command.offset, command.end());
        });
        if (first != commands.end())
            ranges.push_back({first->offset, commands.back().end()});
    }
}

std::vector<ByteRange> changed_ranges(const Comparison& c) {
    std::vector<ByteRange> all;
    add_changed(c, c.a, all);
    add_changed(c, c.b, all);
    std::ranges::sort(all, {}, &ByteRange::begin);
    std::vector<ByteRange> joined;
    for (const ByteRange& range : all)
        if (!joined.empty() && range.begin < joined.back().end)
            joined.back().end = std::max(joined.back().end, range.end);
        else
            joined.push_back(range);
    return joined;
}

Rows rows_in(const std::vector<Row>& rows, ByteRange range) {
    const auto first = std::ranges::lower_bound(rows, range.begin, {}, &Row::offset);
    const auto last = std::ranges::lower_bound(rows, range.end, {}, &Row::offset);
    return {first, last};
}

// A row as a dump has it, and what the command is called.
std::string row_text(const Row& row) {
    return hex_text(row.bytes).append(" (").append(script_command(row.bytes[0]).label.loaded) + ')';
}

struct Match {
    std::size_t a;
    std::size_t b;
};

// Adds rows that are the same, from (i, j) up to the ends, as many as there can be in the order of
// both.
void match_longest(Rows a, Rows b, std::size_t i, std::size_t j, std::vector<Match>& matches) {
    const std::size_t columns = b.size() + 1;
    std::vector<int> longest((a.size() + 1) * columns); // from each pair on
    const auto at = [&](std::size_t x, std::size_t y) -> int& { return longest[x * columns + y]; };
    for (std::size_t x = a.size(); x-- > i;)
        for (std::size_t y = b.size(); y-- > j;)
            at(x, y) =
                a[x].same(b[y]) ? at(x + 1, y + 1) + 1 : std::max(at(x + 1, y), at(x, y + 1));
    while (i < a.size() && j < b.size())
        if (a[i].same(b[j]))
            matches.push_back({i++, j++});
        else
            at(i + 1, j) >= at(i, j + 1) ? ++i : ++j;
}

// The rows that a and b have in common, and their ends as the last match. In scripts that are too
// long for it, only what is the same at both ends.
std::vector<Match> find_matches(Rows a, Rows b) {
    constexpr std::size_t most = 1 << 20;
    std::vector<Match> matches;
    const std::size_t shorter = std::min(a.size(), b.size());
    std::size_t before = 0, after = 0;
    while (before < shorter && a[before].same(b[before])) {
        matches.push_back({before, before});
        ++before;
    }
    while (after < shorter - before && a[a.size() - 1 - after].same(b[b.size() - 1 - after]))
        ++after;
    const Match rest{a.size() - after, b.size() - after};
    if ((rest.a + 1) * (rest.b + 1) <= most)
        match_longest(a.first(rest.a), b.first(rest.b), before, before, matches);
    for (std::size_t i = 0; i <= after; ++i)
        matches.push_back({rest.a + i, rest.b + i});
    return matches;
}

// The rows of either side alone, next to each other.
void report_rows(Comparison& c, Rows a, Rows b) {
    for (std::size_t i = 0; i < std::max(a.size(), b.size()); ++i) {
        const bool in_a = i < a.size(), in_b = i < b.size();
        const Row& row = in_a ? a[i] : b[i];
        c.add("script " + format_hex(row.script), "row at " + format_hex(row.offset),
              in_a ? row_text(a[i]) : "", in_b ? row_text(b[i]) : "");
    }
}

void compare_rows(Comparison& c, Rows a, Rows b) {
    Match from{0, 0};
    for (const Match match : find_matches(a, b)) {
        report_rows(c, a.subspan(from.a, match.a - from.a), b.subspan(from.b, match.b - from.b));
        from = {match.a + 1, match.b + 1};
    }
}

} // namespace

void compare_scripts(Comparison& comparison) {
    const std::vector<Row> before = all_rows(comparison.a);
    const std::vector<Row> after = all_rows(comparison.b);
    for (const ByteRange& range : changed_ranges(comparison))
        compare_rows(comparison, rows_in(before, range), rows_in(after, range));
}

} // namespace veldrune::inspect
