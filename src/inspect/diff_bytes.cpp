#include "inspect/diff_parts.h"
#include "inspect/ownership.h"
#include "rom/number_text.h"

#include <algorithm>

namespace veldrune::inspect {
namespace {

constexpr std::int64_t joined_distance = 16; // ranges that are nearer count as one

// What a range of bytes holds; nothing beyond the end of the file.
std::string contents(const MemoryImage& image, std::int64_t begin, std::int64_t end) {
    const auto bytes = image.at(begin, end - begin);
    if (bytes.empty())
        return "";
    if (std::ranges::any_of(bytes, [&](std::uint8_t byte) { return byte != bytes[0]; }))
        return "data";
    return bytes[0] == 0x00 || bytes[0] == 0xFF ? "all " + std::string(bytes[0] ? "FF" : "00")
                                                : "data";
}

void add_range(Comparison& c, std::string thing, std::int64_t begin, std::int64_t end) {
    c.add(std::move(thing), counted(end - begin, "byte"), contents(c.a.image, begin, end),
          contents(c.b.image, begin, end));
}

// Bytes that differ from begin to end, those that are near each other as one range.
std::vector<ByteRange> differing_ranges(const Comparison& c, ByteRange within) {
    std::vector<ByteRange> ranges;
    const auto a = c.a.image.at(within.begin, within.end - within.begin);
    const auto b = c.b.image.at(within.begin, within.end - within.begin);
    for (std::size_t i = 0; i < std::max(a.size(), b.size()); ++i) {
        if (i < a.size() && i < b.size() && a[i] == b[i])
            continue;
        const std::int64_t at = within.begin + static_cast<std::int64_t>(i);
        if (ranges.empty() || at - ranges.back().end >= joined_distance)
            ranges.push_back({at, at});
        ranges.back().end = at + 1;
    }
    return ranges;
}

// Whether a dump shows all bytes of a range. It leaves out the game's own pointers to dialogues
// where the Dialogue Patch has others.
bool is_in_dumps(const Comparison& c, const OwnedRange& range) {
    if (range.begin == rom_layout::dialogue_pointers && range.kind == OwnerKind::structure)
        return !c.a.dialogue_patched && !c.b.dialogue_patched;
    return range.kind == OwnerKind::structure || range.kind == OwnerKind::script;
}

void compare_owned(Comparison& c, const Ownership& ownership) {
    for (const OwnedRange& range : ownership.ranges()) {
        if (is_in_dumps(c, range) || !c.differs(range.begin, range.end) ||
            !c.named.emplace(range.kind, range.number).second)
            continue;
        add_range(c, owner_name(range), range.begin, range.end);
    }
}

} // namespace

void compare_bytes(Comparison& c) {
    const Ownership of_a(c.a);
    const Ownership of_b(c.b);
    compare_owned(c, of_a);
    compare_owned(c, of_b);
    const std::int64_t size = std::max(c.a.image.size(), c.b.image.size());
    const std::vector<ByteRange> gaps_b = of_b.gaps_in(0, size);
    auto other = gaps_b.begin();
    for (const ByteRange& gap : of_a.gaps_in(0, size)) {
        while (other != gaps_b.end() && other->end <= gap.begin)
            ++other;
        for (auto at = other; at != gaps_b.end() && at->begin < gap.end; ++at)
            for (const ByteRange& range :
                 differing_ranges(c, {std::max(gap.begin, at->begin), std::min(gap.end, at->end)}))
                add_range(c, "bytes " + format_hex(range.begin) + "-" + format_hex(range.end - 1),
                          range.begin, range.end);
    }
}

} // namespace veldrune::inspect
