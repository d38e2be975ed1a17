#pragma once

#include "demo/assets/asset.h"
#include "demo/people/cast.h"

#include <algorithm>
#include <array>

namespace veldrune::demo {

// In a text of demo/assets/scripts the heading of a scene is its role, or "common". The other lines
// are in the language of ScriptBook, with the placeholders %f, %i, %n, {town} and {next}.

constexpr bool is_spoken(std::string_view line) {
    return line.starts_with("| ");
}

/// The letters of dialogues that have a code.
inline constexpr std::array<bool, 256> spoken_letters = [] {
    std::array<bool, 256> letters{};
    for (const unsigned char letter : std::string_view("ABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                                       "abcdefghijklmnopqrstuvwxyz"
                                                       "0123456789 !?:\"'-.,;#+()%~@="))
        letters[letter] = true;
    return letters;
}();
constexpr bool can_be_spoken(std::string_view text) {
    if (text.starts_with("> ")) // an option
        text.remove_prefix(2);
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] == '{' && (text.substr(i, 6) == "{town}" || text.substr(i, 6) == "{next}"))
            i += 5;
        else if (!spoken_letters[text[i] & 255u])
            return false;
    return true;
}

/// Two or four hexadecimal digits; %f and %i stand for two, %n for one.
constexpr bool is_value(std::string_view word) {
    int digits = 0;
    for (std::size_t i = 0; i < word.size(); ++i) {
        const char letter = word[i], after = i + 1 < word.size() ? word[i + 1] : ' ';
        if (letter == '%' && (after == 'f' || after == 'i' || after == 'n')) {
            digits += after == 'n' ? 1 : 2;
            ++i;
        } else if ((letter >= '0' && letter <= '9') || (letter >= 'A' && letter <= 'F')) {
            ++digits;
        } else {
            return false;
        }
    }
    return digits == 2 || digits == 4;
}

/// Whether a line of the text begins with the label mark and name.
constexpr bool has_label(AssetText text, std::string_view mark, std::string_view name) {
    return std::ranges::any_of(text, [&](std::string_view line) {
        return line.starts_with(mark) && take_word(line).substr(mark.size()) == name;
    });
}

/// The scene that contains a line.
constexpr AssetText scene_around(AssetText text, std::size_t line) {
    std::size_t first = line, end = line + 1;
    while (first > 0 && !is_heading(text[first]))
        --first;
    while (end < text.size() && !is_heading(text[end]))
        ++end;
    return text.subspan(first, end - first);
}

constexpr AssetError error_in_words(AssetText text, std::size_t number) {
    bool first = true, queue = false;
    for (std::string_view line = text[number]; !line.empty(); first = false) {
        std::string_view word = take_word(line);
        if (first && word.starts_with(':'))
            continue;
        if (word.starts_with('@')) {
            if (!has_label(scene_around(text, number), ":", word.substr(1)) &&
                !has_label(text, "::", word.substr(1)))
                return AssetError::unknown_label;
            continue;
        }
        if (const std::size_t bracket = word.find('['); bracket != word.npos) {
            if (queue || !is_value(word.substr(0, bracket)))
                return AssetError::unknown_word;
            queue = true;
            word.remove_prefix(bracket + 1);
        }
        if (queue && word.ends_with(']')) {
            queue = false;
            word.remove_suffix(1);
        }
        if (!is_value(word))
            return AssetError::unknown_word;
    }
    return queue ? AssetError::too_short : AssetError::none;
}

constexpr bool ends_scene(AssetText text, std::size_t number) {
    for (++number; number < text.size() && !is_heading(text[number]); ++number)
        if (!is_note(text[number]))
            return false;
    return true;
}

constexpr FirstError check_scripts(AssetText text) {
    return first_error_at(text, [&](std::size_t i) {
        const std::string_view line = text[i];
        if (is_note(line))
            return AssetError::none;
        if (ends_scene(text, i) && !line.ends_with("FE"))
            return AssetError::no_end;
        if (is_heading(line))
            return line == "= common" || std::ranges::count(role_names, line.substr(2)) == 1
                       ? AssetError::none
                       : AssetError::unknown_word;
        if (is_spoken(line))
            return can_be_spoken(line.substr(2)) ? AssetError::none : AssetError::unknown_letter;
        return error_in_words(text, i);
    });
}

} // namespace veldrune::demo
