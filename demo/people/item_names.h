#pragma once

#include "demo/assets/asset.h"
#include "demo/image/image_writer.h"
#include "rom/rom_layout.h"

namespace veldrune::demo {

/// The code of a letter in item names; 255 for a blank, or a letter without a code.
constexpr int item_letter_code(char letter) {
    constexpr std::string_view marks = "!?\1:\"'-.,_"; // code 192 is not a letter
    if (letter >= 'A' && letter <= 'Z')
        return 128 + letter - 'A';
    if (letter >= 'a' && letter <= 'z')
        return 154 + letter - 'a';
    if (letter >= '0' && letter <= '9')
        return 180 + letter - '0';
    const std::size_t mark = marks.find(letter);
    return mark == std::string_view::npos ? 255 : 190 + static_cast<int>(mark);
}

/// One name per line, as many as there are items.
constexpr FirstError check_names(AssetText text) {
    std::size_t count = 0;
    const auto error_of = [&](std::string_view line) {
        ++count;
        for (const char letter : line)
            if (letter != ' ' && item_letter_code(letter) == 255)
                return AssetError::unknown_letter;
        return line.size() > rom_layout::item_name_size ? AssetError::too_long : AssetError::none;
    };
    return first_error(text, error_of, [&] {
        return count == rom_layout::item_count ? AssetError::none
                                               : AssetError::wrong_count_of_lines;
    });
}

/// Writes the names in the game's letter code, padded with blanks.
void write_item_names(ImageWriter& writer);

} // namespace veldrune::demo
