#include "demo/people/item_names.h"

#include "rom/rom_layout.h"

#include <string>

namespace veldrune::demo {
namespace {

// A name is a make and a thing, 16 makes each of the first 12 kinds; the rest have their own.
constexpr std::string_view makes[] = {"Old",   "Oak",   "Copper", "Iron",  "Steel", "Silver",
                                      "Gold",  "Ember", "Frost",  "Storm", "Moss",  "Moon",
                                      "Sun's", "Raven", "Rune",   "Star"};
constexpr std::string_view things[] = {"Knife", "Sword", "Spear", "Axe",   "Bow",   "Staff",
                                       "Cap",   "Helm",  "Vest",  "Plate", "Boots", "Ring"};
constexpr std::string_view sundries[] = {
    "Bread",         "Honey",      "Red Herb",    "Blue Herb",    "Dew Drop",   "Hot Soup",
    "Smelling Salt", "Bandage",    "Torch",       "Rope, 10 ft.", "Lamp Oil",   "Skeleton Key",
    "Mill Key",      "Castle Key", "Well Bucket", "Lost Doll",    "Old Letter", "Map of Veld",
    "King's Seal",   "Flute",      "Drum",        "Lucky Coin",   "Wolf Tooth", "Owl Feather",
    "Bat Wing",      "Slime Jar",  "Toadstool",   "Rock Crystal", "Amber",      "Pearl",
    "Opal",          "Ruby",       "Smoke Bomb",  "Spark Stone",  "Wind Chime", "Hourglass",
    "Mirror",        "Silk Cloth", "Wool",        "Ink and Quill"};

int letter_code(char letter) {
    static constexpr std::string_view marks = "!?\1:\"'-.,_"; // 192 is no letter
    if (letter >= 'A' && letter <= 'Z')
        return 128 + letter - 'A';
    if (letter >= 'a' && letter <= 'z')
        return 154 + letter - 'a';
    if (letter >= '0' && letter <= '9')
        return 180 + letter - '0';
    const std::size_t mark = marks.find(letter);
    return mark == std::string_view::npos ? 255 : 190 + static_cast<int>(mark);
}

std::string item_name(std::size_t number) {
    const std::size_t made = std::size(makes) * std::size(things);
    if (number < made)
        return std::string(makes[number % std::size(makes)]) + ' ' +
               std::string(things[number / std::size(makes)]);
    const std::size_t sundry = number - made;
    if (sundry < std::size(sundries))
        return std::string(sundries[sundry]);
    return "Scroll No. " + std::to_string(sundry - std::size(sundries) + 1);
}

} // namespace

void write_item_names(ImageWriter& writer) {
    for (std::size_t number = 0; number < rom_layout::item_count; ++number) {
        std::string name = item_name(number);
        name.resize(rom_layout::item_name_size, ' ');
        Bytes bytes;
        for (const char letter : name)
            bytes.push_back(static_cast<std::uint8_t>(letter_code(letter)));
        writer.put(rom_layout::item_names +
                       static_cast<std::int32_t>(rom_layout::item_name_size * number),
                   bytes);
    }
}

} // namespace veldrune::demo
