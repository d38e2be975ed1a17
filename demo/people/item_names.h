#pragma once

#include "demo/assets/asset.h"
#include "demo/image/image_writer.h"
#include "rom/rom_layout.h"

namespace veldrune::demo {

/// A letter in the code of item names; 255 is a blank, or a letter without a code.
constexpr int item_letter_code(char letter) {
    constexpr std::string_view marks = "!?\1:\"'-.,_"; // 192 is no letter
    if (letter >= 'A' && letter <= 'Z')
        return 128 + letter - 'A';
    if (letter >= 'a' && letter <= 'z')
        return 154 + letter - 'a';
    if (letter >= '0' && letter <= '9')
        return 180 + letter - '0';
    const std::size_t mark = marks.find(letter);
    return mark == std::string_view::npos ? 255 : 190 + static_cast<int>(mark);
}

/// A name a line, as many as there are items.
constexpr Fault check_names(AssetText text) {
    std::size_t count = 0;
    const auto trouble_of = [&](std::string_view line) {
        ++count;
        for (const char letter : line)
            if (letter != ' ' && item_letter_code(letter) == 255)
                return Trouble::unknown_letter;
        return line.size() > rom_layout::item_name_size ? Trouble::too_long : Trouble::none;
    };
    return first_fault(text, trouble_of, [&] {
        return count == rom_layout::item_count ? Trouble::none : Trouble::wrong_count_of_lines;
    });
}

/// The names in the game's letter code, filled up with blanks.
void write_item_names(ImageWriter& writer);

} // namespace veldrune::demo
