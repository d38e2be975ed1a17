#pragma once

#include "demo/assets/asset.h"

#include <array>

namespace veldrune::demo {

/// Red, green and blue, 0 to 31.
struct Rgb {
    int r, g, b;
};

/// The colours of a line in demo/assets/palettes.
struct ColourList {
    std::array<Rgb, 120> colours{};
    std::size_t count = 0;
};

/// The number of colours in a line, by its first word. The second word is its name, the others are
/// colours or names of earlier lines.
struct ColourLine {
    std::string_view kind;
    std::size_t fewest, most;
};
inline constexpr ColourLine colour_lines[] = {
    {"ramp", 1, 15}, {"row", 15, 15}, {"place", 120, 120}, {"mood", 2, 2}};

constexpr bool read_colour(std::string_view word, Rgb& colour) {
    for (int* const value : {&colour.r, &colour.g, &colour.b}) {
        const std::size_t comma = word.find(',');
        *value = number_of(word.substr(0, comma));
        word.remove_prefix(comma == word.npos ? word.size() : comma + 1);
        if (*value < 0 || *value > 31)
            return false;
    }
    return word.empty();
}

constexpr AssetError read_colours(AssetText earlier, std::string_view line, ColourList& list);

/// Appends the colours of the line with a name.
constexpr AssetError append_named(AssetText text, std::string_view name, ColourList& list) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        std::string_view rest = text[i];
        if (is_note(rest) || (take_word(rest), take_word(rest) != name))
            continue;
        return read_colours(text.first(i), text[i], list);
    }
    return AssetError::unknown_word;
}

/// Appends the colours of a line, which may name earlier lines. Text after a ';' is a comment.
constexpr AssetError read_colours(AssetText earlier, std::string_view line, ColourList& list) {
    line = line.substr(0, line.find(';'));
    take_word(line), take_word(line);
    while (!line.empty()) {
        const std::string_view word = take_word(line);
        if (list.count == list.colours.size())
            return AssetError::too_long;
        AssetError error = AssetError::none;
        if (word.find(',') == word.npos)
            error = append_named(earlier, word, list);
        else if (!read_colour(word, list.colours[list.count++]))
            error = AssetError::no_number;
        if (error != AssetError::none)
            return error;
    }
    return AssetError::none;
}

constexpr AssetError error_in_colours(AssetText earlier, std::string_view line) {
    std::string_view rest = line;
    const std::string_view kind = take_word(rest);
    for (const auto& [name, fewest, most] : colour_lines)
        if (name == kind) {
            ColourList list;
            const AssetError error = read_colours(earlier, line, list);
            return error != AssetError::none ? error
                   : list.count < fewest     ? AssetError::too_short
                   : list.count > most       ? AssetError::too_long
                                             : AssetError::none;
        }
    return AssetError::unknown_word;
}
constexpr FirstError check_palettes(AssetText text) {
    return first_error_at(text, [&](std::size_t i) {
        return is_note(text[i]) ? AssetError::none : error_in_colours(text.first(i), text[i]);
    });
}

/// The count colours of the line with a name; a compile error where there is no such line.
template <std::size_t count>
consteval std::array<Rgb, count> colours(AssetText text, std::string_view name) {
    ColourList list;
    if (append_named(text, name, list) != AssetError::none || list.count != count)
        throw "no palette has this name and so many colours";
    std::array<Rgb, count> result{};
    for (std::size_t i = 0; i < count; ++i)
        result[i] = list.colours[i];
    return result;
}

} // namespace veldrune::demo
