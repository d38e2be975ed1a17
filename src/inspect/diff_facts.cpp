#include "events/script_grid.h"
#include "inspect/diff_parts.h"
#include "inspect/dump.h"
#include "inspect/field_names.h"
#include "rom/number_text.h"

#include <algorithm>
#include <map>
#include <unordered_map>

namespace veldrune::inspect {
namespace {

// What a dump shows of something, and differs.
struct ChangedFact {
    std::string_view what;
    const std::string* before; // null where there is none
    const std::string* after;
};
// The facts about a thing, by the place of its section in the dump and its key.
using Changes = std::map<std::pair<std::size_t, std::string_view>, std::vector<ChangedFact>>;

// The keys of these things have two words. All others are tables of entries.
constexpr std::string_view numbered[] = {"map", "item", "dialogue"};

std::string_view first_words(std::string_view key, int count) {
    std::size_t end = 0;
    for (; count > 0 && end != std::string_view::npos; --count)
        end = key.find(' ', end + (end != 0));
    return key.substr(0, end);
}

std::vector<std::string_view> words_of(std::string_view key) {
    std::vector<std::string_view> words;
    while (!key.empty()) {
        words.push_back(first_words(key, 1));
        key.remove_prefix(std::min(key.size(), words.back().size() + 1));
    }
    return words;
}

bool is_number(std::string_view word) {
    return !word.empty() && word.find_first_not_of("0123456789") == std::string_view::npos;
}

// The thing that a fact speaks of: "map 012 npc 003" of "map 012 npc 003 row".
std::string_view thing_of(std::string_view key) {
    const std::string_view word = first_words(key, 1);
    if (std::ranges::find(numbered, word) == std::end(numbered))
        return word;
    const auto words = words_of(key);
    const bool is_object = word == "map" && words.size() > 3 && is_number(words[3]);
    return first_words(key, is_object ? 4 : 2);
}

std::string value(const std::string* text) {
    return text == nullptr ? "" : *text;
}

class FactComparison {
  public:
    explicit FactComparison(Comparison& c) : c_(c) {}

    void run() {
        for (int part = 0; part < value_part_count; ++part) {
            const std::vector<Fact> a = dump_values(c_.a, part);
            const std::vector<Fact> b = dump_values(c_.b, part);
            collect(a, b);
            for (const auto& [place, facts] : changes_)
                report(place.second, facts);
            changes_.clear();
            sections_.clear(); // which points into the part
        }
    }

  private:
    // The dumps of two images differ little: only what lies between the ends that have the same
    // keys needs a search.
    void collect(std::span<const Fact> a, std::span<const Fact> b) {
        const auto same_key = [](const Fact& x, const Fact& y) { return x.key == y.key; };
        const auto first = std::ranges::mismatch(a, b, same_key).in1 - a.begin();
        const auto first_ends = static_cast<std::size_t>(first);
        const auto rest_a = a.subspan(first_ends), rest_b = b.subspan(first_ends);
        const auto last =
            std::mismatch(rest_a.rbegin(), rest_a.rend(), rest_b.rbegin(), rest_b.rend(), same_key);
        const auto last_ends = static_cast<std::size_t>(last.first - rest_a.rbegin());
        compare_in_step(a.first(first_ends), b.first(first_ends));
        search(rest_a.first(rest_a.size() - last_ends), rest_b.first(rest_b.size() - last_ends));
        compare_in_step(a.last(last_ends), b.last(last_ends));
    }

    void compare_in_step(std::span<const Fact> a, std::span<const Fact> b) {
        for (std::size_t i = 0; i < a.size(); ++i)
            compare(a[i], &b[i].value);
    }

    void search(std::span<const Fact> a, std::span<const Fact> b) {
        std::unordered_map<std::string_view, const std::string*> of_b;
        for (const Fact& fact : b)
            of_b.emplace(fact.key, &fact.value);
        for (const Fact& fact : a) {
            const auto found = of_b.extract(fact.key);
            compare(fact, found ? found.mapped() : nullptr);
        }
        for (const Fact& fact : b)
            if (of_b.contains(fact.key))
                add(fact.key, nullptr, &fact.value);
    }

    void compare(const Fact& before, const std::string* after) {
        if (after == nullptr || *after != before.value)
            add(before.key, &before.value, after);
    }

    void add(std::string_view key, const std::string* before, const std::string* after) {
        const std::string_view section = first_words(key, 1);
        const std::string_view thing = thing_of(key);
        const std::size_t place = sections_.emplace(section, sections_.size()).first->second;
        changes_[{place, thing}].push_back({key.substr(thing.size() + 1), before, after});
    }

    void report(std::string_view thing, const std::vector<ChangedFact>& facts) {
        const auto words = words_of(thing);
        if (words.size() == 1 && words[0] != "image")
            return report_entries(thing, facts);
        note_owner(words);
        const bool added = std::ranges::all_of(facts, [](auto& f) { return f.before == nullptr; });
        const bool removed = std::ranges::all_of(facts, [](auto& f) { return f.after == nullptr; });
        if (words.size() == 4 && (added || removed))
            return c_.add(plain(thing), added ? "added" : "removed");
        for (const ChangedFact& fact : facts)
            c_.add(plain(thing), plain(fact.what), value(fact.before), value(fact.after));
    }

    // Entries of a table that follow each other are one finding.
    void report_entries(std::string_view table, const std::vector<ChangedFact>& facts) {
        const auto number = [&](std::size_t i) { return decimal_number(facts[i].what).value; };
        for (std::size_t i = 0, last = 0; i < facts.size(); i = last + 1) {
            last = i;
            while (last + 1 < facts.size() && number(last + 1) == number(last) + 1)
                ++last;
            const std::string first = std::to_string(number(i));
            if (last == i)
                c_.add(std::string(table), "entry " + first, value(facts[i].before),
                       value(facts[i].after));
            else
                c_.add(std::string(table), "entries " + first + "-" + std::to_string(number(last)));
        }
    }

    void note_owner(const std::vector<std::string_view>& words) {
        if (words[0] == "dialogue")
            c_.named.emplace(OwnerKind::dialogue, plain_hex(words[1]).value_or(0));
        const std::int64_t number = words.size() > 1 ? decimal_number(words[1]).value : 0;
        for (const ObjectKind kind : map_object_kinds)
            if (words.size() == 4 && words[2] == kind_name(kind))
                c_.named.emplace(list_owner(kind), number);
    }

    Comparison& c_;
    std::unordered_map<std::string_view, std::size_t> sections_; // by their first word
    Changes changes_;                                            // of the present part
};

} // namespace

void compare_facts(Comparison& comparison) {
    FactComparison(comparison).run();
}

} // namespace veldrune::inspect
