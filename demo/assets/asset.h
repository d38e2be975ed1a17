#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace veldrune::demo {

/// The lines of a text under demo/assets, which the build embeds and checks.
using AssetText = std::span<const std::string_view>;

/// The errors in a line of an asset.
enum class AssetError {
    none,
    too_long,
    too_short,
    unknown_letter,
    unknown_word,
    unknown_label,
    no_number,
    no_end,
    wrong_count_of_lines
};

/// The first line with an error, counted from 1; 0 where there is none.
struct FirstError {
    int line = 0;
    AssetError error = AssetError::none;
    constexpr AssetError on(int number) const { return number == line ? error : AssetError::none; }
};

/// Complete only for AssetError::none, so that the compile error for another one names it.
template <AssetError>
struct AssetLine;
template <>
struct AssetLine<AssetError::none> {};

/// Empty lines and those that begin with ';' are comments.
constexpr bool is_note(std::string_view line) {
    return line.empty() || line.front() == ';';
}

/// Lines that begin with "= " are the headings of the lines after them.
constexpr bool is_heading(std::string_view line) {
    return line.starts_with("= ");
}

/// The first line for whose index error_at returns an error.
constexpr FirstError first_error_at(AssetText text, auto&& error_at) {
    for (std::size_t i = 0; i < text.size(); ++i)
        if (const AssetError error = error_at(i); error != AssetError::none)
            return {static_cast<int>(i + 1), error};
    return {};
}

/// The first line, notes left out, for which error_of returns an error. Without one, the result of
/// missing() at the last line.
constexpr FirstError first_error(AssetText text, auto&& error_of, auto&& missing) {
    const FirstError found = first_error_at(text, [&](std::size_t i) {
        return is_note(text[i]) ? AssetError::none : error_of(text[i]);
    });
    return found.line != 0 ? found : FirstError{static_cast<int>(text.size()), missing()};
}

/// Removes the first word, and the blanks around it, from a line and returns it.
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

/// Parses a decimal number; -1 where it is none or too large.
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
