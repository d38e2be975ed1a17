#pragma once

#include "demo/assets/asset.h"
#include "demo/drawing/pixel_art.h"

namespace veldrune::demo {

/// A picture from a text in demo/assets/pictures: its lines of pixels and its palette rows.
struct DrawnPicture {
    AssetText lines;
    std::array<int, 3> rows{};

    /// The same picture with another first palette row.
    constexpr DrawnPicture in_row(int row) const { return {lines, {row, rows[1], rows[2]}}; }
    /// The pixel rows top to top + height - 1.
    constexpr DrawnPicture part(std::size_t top, std::size_t height) const {
        if (top + height > lines.size())
            throw "the picture is not so high";
        return {lines.subspan(top, height), rows};
    }
    Picture draw() const;
};

/// The meaning of a letter: 0 is no pixel, 1 to 15 are the colours of the picture's first palette
/// row, 16 to 30 and 31 to 45 those of the others; -1 is an unknown letter.
constexpr int pixel_number(char letter) {
    if (letter >= '1' && letter <= '9')
        return letter - '0';
    if (letter >= 'a' && letter <= 'u')
        return letter - 'a' + 10;
    if (letter >= 'A' && letter <= 'O')
        return letter - 'A' + 31;
    return letter == '.' ? 0 : -1;
}

/// The line above a picture: "=", its name, its size in pixels, and its palette rows.
struct PictureHeading {
    std::string_view name;
    std::size_t width = 0, height = 0;
    int row_count = 0;
    std::array<int, 3> rows{};
};
constexpr AssetError read_heading(std::string_view line, PictureHeading& heading) {
    take_word(line);
    heading = {take_word(line)};
    const std::string_view size = take_word(line);
    const std::size_t middle = std::min(size.find('x'), size.size() - 1);
    const int width = number_of(size.substr(0, middle)),
              height = number_of(size.substr(middle + 1));
    if (width < 1 || height < 1 || line.empty())
        return AssetError::no_number;
    heading.width = static_cast<std::size_t>(width);
    heading.height = static_cast<std::size_t>(height);
    while (!line.empty()) {
        const int row = number_of(take_word(line));
        if (row < 0 || row > 7 || heading.row_count == 3)
            return AssetError::no_number;
        heading.rows[static_cast<std::size_t>(heading.row_count++)] = row;
    }
    return AssetError::none;
}

constexpr FirstError check_pictures(AssetText text) {
    PictureHeading heading;
    std::size_t left = 0; // lines of pixels still missing
    return first_error_at(text, [&](std::size_t i) {
        const std::string_view line = text[i];
        if (is_note(line) || is_heading(line)) {
            if (left != 0)
                return AssetError::wrong_count_of_lines;
            const AssetError error = is_note(line) ? AssetError::none : read_heading(line, heading);
            left = is_note(line) ? 0 : heading.height;
            return error;
        }
        if (left == 0 || (left-- > 1 && i + 1 == text.size()))
            return AssetError::wrong_count_of_lines;
        if (line.size() != heading.width)
            return line.size() < heading.width ? AssetError::too_short : AssetError::too_long;
        for (const char letter : line)
            if (const int pixel = pixel_number(letter); pixel < 0 || pixel > 15 * heading.row_count)
                return AssetError::unknown_letter;
        return AssetError::none;
    });
}

/// The picture with a name, the first one for number 0; a compile error where there is none.
consteval DrawnPicture picture(AssetText text, std::string_view name, int number = 0) {
    PictureHeading heading;
    for (std::size_t i = 0; i < text.size(); ++i)
        if (is_heading(text[i]) && read_heading(text[i], heading) == AssetError::none &&
            heading.name == name && number-- == 0)
            return {text.subspan(i + 1, heading.height), heading.rows};
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
