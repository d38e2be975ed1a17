#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace veldrune::demo {

/// The lines of a text under demo/assets, which the build embeds and checks.
using AssetText = std::span<const std::string_view>;

/// What can be wrong with a line of an asset.
enum class Trouble {
    none,
    too_long,
    too_short,
    unknown_letter,
    unknown_word,
    unknown_place,
    no_number,
    no_end,
    wrong_count_of_lines
};

/// The first line that can't be read, counted from 1.
struct Fault {
    int line = 0;
    Trouble trouble = Trouble::none;
    constexpr Trouble on(int number) const { return number == line ? trouble : Trouble::none; }
};

/// Only a line without trouble is a complete type: a compiler that meets another one names it.
template <Trouble>
struct AssetLine;
template <>
struct AssetLine<Trouble::none> {};

/// Empty lines and those that begin with ';' are for people.
constexpr bool is_note(std::string_view line) {
    return line.empty() || line.front() == ';';
}

/// Lines that begin with "= " say what the lines after them are.
constexpr bool is_heading(std::string_view line) {
    return line.starts_with("= ");
}

/// The first line of whose index trouble_at knows something.
constexpr Fault first_fault_at(AssetText text, auto&& trouble_at) {
    for (std::size_t i = 0; i < text.size(); ++i)
        if (const Trouble trouble = trouble_at(i); trouble != Trouble::none)
            return {static_cast<int>(i + 1), trouble};
    return {};
}

/// Gives every line that is no note to trouble_of, until one has trouble; at the end asks what is
/// missing().
constexpr Fault first_fault(AssetText text, auto&& trouble_of, auto&& missing) {
    const Fault fault = first_fault_at(text, [&](std::size_t i) {
        return is_note(text[i]) ? Trouble::none : trouble_of(text[i]);
    });
    return fault.line != 0 ? fault : Fault{static_cast<int>(text.size()), missing()};
}

/// Takes the first word off a line, and the blanks around it.
constexpr std::string_view take_word(std::string_view& line) {
    std::size_t start = 0;
    while (start < line.size() && line[start] == ' ')
        ++start;
    std::size_t end = start;
    while (end < line.size() && line[end] != ' ')
        ++end;
    const std::string_view word = line.substr(start, end - start);
    while (end < line.size() && line[end] == ' ')
        ++end;
    line.remove_prefix(end);
    return word;
}

/// A decimal number; -1 where there is none.
constexpr int number_of(std::string_view digits) {
    int number = digits.empty() ? -1 : 0;
    for (const char digit : digits) {
        if (digit < '0' || digit > '9' || number > 99999)
            return -1;
        number = 10 * number + digit - '0';
    }
    return number;
}

} // namespace veldrune::demo
