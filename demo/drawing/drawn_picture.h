#pragma once

#include "demo/assets/asset.h"
#include "demo/drawing/pixel_art.h"

namespace veldrune::demo {

/// A picture as a text of demo/assets/pictures draws it. A line of words, its name and up to three
/// palette rows, comes before its lines of pixels.
struct DrawnPicture {
    AssetText lines;
    std::array<int, 3> rows{};

    /// The same in another palette row than its first.
    constexpr DrawnPicture in_row(int row) const { return {lines, {row, rows[1], rows[2]}}; }
    /// height rows of its pixels from top on.
    constexpr DrawnPicture part(std::size_t top, std::size_t height) const {
        return {lines.subspan(top, height), rows};
    }
    Picture draw() const;
};

/// What a letter draws: 0 is no pixel, 1 to 15 the colours of the picture's first row, 16 to 30 and
/// 31 to 45 those of the others. -1 for any other letter.
constexpr int pixel_number(char letter) {
    if (letter >= '1' && letter <= '9')
        return letter - '0';
    if (letter >= 'a' && letter <= 'u')
        return letter - 'a' + 10;
    if (letter >= 'A' && letter <= 'O')
        return letter - 'A' + 31;
    return letter == '.' ? 0 : -1;
}

constexpr bool names_a_picture(std::string_view line) {
    return line.find(' ') != line.npos && !is_note(line);
}

/// Reads a picture's palette rows; returns how many there are, 0 where they can't be read.
constexpr int read_rows(std::string_view line, std::array<int, 3>& rows) {
    int count = 0;
    for (take_word(line); !line.empty(); ++count) {
        const int row = number_of(take_word(line));
        if (row < 0 || row > 7 || count == 3)
            return 0;
        rows[static_cast<std::size_t>(count)] = row;
    }
    return count;
}

/// A picture ends with the next note.
constexpr Fault check_pictures(AssetText text) {
    int colours = 0;
    std::size_t width = 0;
    return first_fault_at(text, [&](std::size_t i) {
        const std::string_view line = text[i];
        if (is_note(line) || names_a_picture(line)) {
            std::array<int, 3> rows{};
            colours = is_note(line) ? 0 : 15 * read_rows(line, rows);
            width = 0;
            return colours == 0 && !is_note(line) ? Trouble::no_number : Trouble::none;
        }
        width = width == 0 ? line.size() : width;
        if (colours == 0)
            return Trouble::no_name;
        if (line.size() != width)
            return line.size() < width ? Trouble::too_short : Trouble::too_long;
        for (const char letter : line)
            if (const int pixel = pixel_number(letter); pixel < 0 || pixel > colours)
                return Trouble::unknown_letter;
        return Trouble::none;
    });
}

/// The first, second, ... picture of a name; the compiler complains where there is none.
consteval DrawnPicture picture(AssetText text, std::string_view name, int number = 0) {
    for (std::size_t i = 0; i < text.size(); ++i)
        if (std::string_view line = text[i];
            names_a_picture(line) && take_word(line) == name && number-- == 0) {
            std::size_t end = i + 1;
            while (end < text.size() && !is_note(text[end]))
                ++end;
            DrawnPicture found{text.subspan(i + 1, end - i - 1)};
            read_rows(text[i], found.rows);
            return found;
        }
    throw "no picture has this name";
}
template <std::size_t count>
consteval std::array<DrawnPicture, count> pictures(AssetText text, std::string_view name) {
    std::array<DrawnPicture, count> found{};
    for (std::size_t i = 0; i < count; ++i)
        found[i] = picture(text, name, static_cast<int>(i));
    return found;
}

} // namespace veldrune::demo
