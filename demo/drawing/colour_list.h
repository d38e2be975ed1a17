#pragma once

#include "demo/assets/asset.h"

#include <array>

namespace veldrune::demo {

/// Red, green and blue, 0 to 31.
struct Rgb {
    int r, g, b;
};

/// The colours of a line of demo/assets/palettes.
struct ColourList {
    std::array<Rgb, 120> colours{};
    std::size_t count = 0;
};

/// How many colours a line holds, by its first word. Its second word is its name, and the others
/// are colours or names of earlier lines.
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

constexpr Trouble read_colours(AssetText earlier, std::string_view line, ColourList& list);

/// Appends the colours of the line of a name.
constexpr Trouble append_named(AssetText text, std::string_view name, ColourList& list) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        std::string_view rest = text[i];
        if (is_note(rest) || (take_word(rest), take_word(rest) != name))
            continue;
        return read_colours(text.first(i), text[i], list);
    }
    return Trouble::unknown_word;
}

/// Appends the colours of a line that comes after the earlier ones. What follows a ';' is a note.
constexpr Trouble read_colours(AssetText earlier, std::string_view line, ColourList& list) {
    line = line.substr(0, line.find(';'));
    take_word(line), take_word(line);
    while (!line.empty()) {
        const std::string_view word = take_word(line);
        if (list.count == list.colours.size())
            return Trouble::too_long;
        Trouble trouble = Trouble::none;
        if (word.find(',') == word.npos)
            trouble = append_named(earlier, word, list);
        else if (!read_colour(word, list.colours[list.count++]))
            trouble = Trouble::no_number;
        if (trouble != Trouble::none)
            return trouble;
    }
    return Trouble::none;
}

constexpr Trouble trouble_of_colours(AssetText earlier, std::string_view line) {
    std::string_view rest = line;
    const std::string_view kind = take_word(rest);
    for (const auto& [name, fewest, most] : colour_lines)
        if (name == kind) {
            ColourList list;
            const Trouble trouble = read_colours(earlier, line, list);
            return trouble != Trouble::none ? trouble
                   : list.count < fewest    ? Trouble::too_short
                   : list.count > most      ? Trouble::too_long
                                            : Trouble::none;
        }
    return Trouble::unknown_word;
}
constexpr Fault check_palettes(AssetText text) {
    return first_fault_at(text, [&](std::size_t i) {
        return is_note(text[i]) ? Trouble::none : trouble_of_colours(text.first(i), text[i]);
    });
}

/// The colours of a name, count of them; the compiler complains where there are not.
template <std::size_t count>
consteval std::array<Rgb, count> colours(AssetText text, std::string_view name) {
    ColourList list;
    if (append_named(text, name, list) != Trouble::none || list.count != count)
        throw "no palette has this name and so many colours";
    std::array<Rgb, count> result{};
    for (std::size_t i = 0; i < count; ++i)
        result[i] = list.colours[i];
    return result;
}

} // namespace veldrune::demo
