#include "rom/number_text.h"
#include "support/scripted_dialogs.h"

#include <gtest/gtest.h>

namespace veldrune::test {

TEST(NumberText, HexadecimalTextIsNormalisedParsedAndWarnedAbout) {
    const std::tuple<std::string, std::string, std::uint32_t, std::size_t> cases[] = {
        {"1a\r \n2", "1A2", 0x1A2, 0},
        {"1\n", "1\n", 0x10, 1},                      // only a whole line break is dropped
        {"-2H", "-2H", 0x220, 2},                     // as the place to its right, 0 at the end
        {"1\u00e4", "1\u00e4", 0x10, 1},              // whatever bytes it takes
        {"123456789A", "123456789A", 0x3456789A, 0}}; // wraps to 32 bits
    for (auto [text, normalised, value, warnings] : cases) {
        ScriptedDialogs dialogs;
        EXPECT_EQ(static_cast<std::uint32_t>(parse_hex_text(text, dialogs)), value);
        EXPECT_EQ(text, normalised);
        EXPECT_EQ(dialogs.messages, Messages(warnings, no_number(normalised, "hex"))) << text;
    }
    ScriptedDialogs dialogs;
    std::string blank = "\r\n ";
    EXPECT_EQ(parse_hex_text(blank, dialogs), 0);
    EXPECT_EQ(dialogs.messages, Messages{blank_hex});
}

TEST(NumberText, DecimalTextCountsItsLeadingDigits) {
    const std::tuple<std::string, int, bool> cases[] = {{" 70 ", 70, true},
                                                        {"99999999999999999999", 2147483647, true},
                                                        {"  ", 0, false},
                                                        {"1 2", 1, false}};
    for (const auto& [text, value, is_number] : cases) {
        ScriptedDialogs dialogs;
        const TextNumber number = parse_decimal_text(text, dialogs);
        EXPECT_EQ(std::pair(number.value, number.is_number), std::pair(value, is_number));
        EXPECT_EQ(dialogs.messages, Messages(!is_number, no_number(text, "decimal")));
    }
}

TEST(NumberText, CharactersBitTextAndHexadecimal) {
    EXPECT_EQ(characters("a\u00fc\u20acb", 1, 2), "\u00fc\u20ac"); // of two and three bytes
    EXPECT_EQ(character_count("a\u00fc\u20acb"), 4u);
    EXPECT_EQ(word_to_bits(0x8001), "1000000000000001");
    EXPECT_EQ(bits_to_value("00101100", 3, 4), 0b1011u);
    EXPECT_EQ(bits_to_value("11", 2, 3), 0b100u); // zeros follow the text
    EXPECT_EQ(format_hex(0) + format_hex(0x19D3B0), "019D3B0");
}

} // namespace veldrune::test
