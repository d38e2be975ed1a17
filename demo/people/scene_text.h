#pragma once

#include "demo/assets/asset.h"
#include "demo/people/cast.h"

#include <algorithm>

namespace veldrune::demo {

// A scene of a text of demo/assets/scripts begins with a line of '= ' and its part, or common. The
// language of its other lines is that of ScriptBook; besides there are %f, %i, %n, {town} and
// {next}.

constexpr bool begins_scene(std::string_view line) {
    return line.starts_with("= ");
}
constexpr bool is_spoken(std::string_view line) {
    return line.starts_with("| ");
}

constexpr bool can_be_spoken(std::string_view text) {
    for (std::string_view name : {"> ", "{town}", "{next}"})
        if (const std::size_t at = text.find(name); at != text.npos && (at == 0 || name[0] == '{'))
            return can_be_spoken(text.substr(0, at)) &&
                   can_be_spoken(text.substr(at + name.size()));
    return std::ranges::all_of(text, [](char letter) {
        return (letter >= 'A' && letter <= 'Z') || (letter >= 'a' && letter <= 'z') ||
               (letter >= '0' && letter <= '9') ||
               std::string_view(" !?:\"'-.,;#+()%~@=").find(letter) != std::string_view::npos;
    });
}

/// Two or four hexadecimal digits, some of which % and a letter may stand for.
constexpr bool is_value(std::string_view word) {
    int digits = 0;
    for (std::size_t i = 0; i < word.size(); ++i, ++digits)
        if (word[i] == '%' && ++i < word.size() && (word[i] == 'f' || word[i] == 'i'))
            ++digits;
        else if (std::string_view("0123456789ABCDEFn").find(word[i]) == std::string_view::npos ||
                 (word[i] == 'n') != (i > 0 && word[i - 1] == '%'))
            return false;
    return digits == 2 || digits == 4;
}

/// True where a line of the text begins with the mark of a place and its name.
constexpr bool has_place(AssetText text, std::string_view mark, std::string_view name) {
    return std::ranges::any_of(text, [&](std::string_view line) {
        return line.starts_with(mark) && take_word(line).substr(mark.size()) == name;
    });
}

/// The scene around a line.
constexpr AssetText scene_around(AssetText text, std::size_t line) {
    std::size_t first = line, end = line + 1;
    while (first > 0 && !begins_scene(text[first]))
        --first;
    while (end < text.size() && !begins_scene(text[end]))
        ++end;
    return text.subspan(first, end - first);
}

constexpr Trouble trouble_of_words(AssetText text, std::size_t number) {
    bool first = true, queue = false;
    for (std::string_view line = text[number]; !line.empty(); first = false) {
        std::string_view word = take_word(line);
        if (first && word.starts_with(':'))
            continue;
        if (word.starts_with('@')) {
            if (!has_place(scene_around(text, number), ":", word.substr(1)) &&
                !has_place(text, "::", word.substr(1)))
                return Trouble::unknown_place;
            continue;
        }
        if (const std::size_t bracket = word.find('['); bracket != word.npos) {
            if (queue || !is_value(word.substr(0, bracket)))
                return Trouble::unknown_word;
            queue = true;
            word.remove_prefix(bracket + 1);
        }
        if (queue && word.ends_with(']')) {
            queue = false;
            word.remove_suffix(1);
        }
        if (!is_value(word))
            return Trouble::unknown_word;
    }
    return queue ? Trouble::too_short : Trouble::none;
}

constexpr Fault check_scripts(AssetText text) {
    return first_fault_at(text, [&](std::size_t i) {
        const std::string_view line = text[i];
        if (is_note(line))
            return Trouble::none;
        if (begins_scene(line))
            return line == "= common" || std::ranges::count(part_names, line.substr(2)) == 1
                       ? Trouble::none
                       : Trouble::unknown_word;
        if (is_spoken(line))
            return can_be_spoken(line.substr(2)) ? Trouble::none : Trouble::unknown_letter;
        return trouble_of_words(text, i);
    });
}

} // namespace veldrune::demo
