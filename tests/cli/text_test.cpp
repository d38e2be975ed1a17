// How the program reads and writes texts.

#include "cli/json_output.h"
#include "cli/number_argument.h"
#include "cli/text_output.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

TEST(Numbers, AreReadInTheStyleOfTheirPlace) {
    using cli::NumberStyle;
    const struct {
        const char* text;
        std::optional<std::int64_t> decimal, hexadecimal;
    } rows[] = {
        {"17", 17, 0x17}, {"0x1f", 0x1F, 0x1F}, {"1F", {}, 0x1F},       {"", {}, {}},
        {"0x", {}, {}},   {"-1", {}, {}},       {"0x-1", {}, {}},       {"1 ", {}, {}},
        {"+1", {}, {}},   {"0X10", 16, 16},     {"4294967296", {}, {}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(cli::parse_number(row.text, NumberStyle::decimal), row.decimal) << row.text;
        EXPECT_EQ(cli::parse_number(row.text, NumberStyle::hexadecimal), row.hexadecimal)
            << row.text;
    }
}

TEST(Text, AlignsColumnsAndBreaksLongCells) {
    using enum inspect::CellForm;
    const std::vector<std::int64_t> maps{1, 22};
    const std::vector<std::int64_t> many(21, 5);
    const std::vector<std::int64_t> sides{16, 8};
    const auto gap = [](std::size_t blanks) { return std::string(blanks, ' '); };
    const std::string fives = "  5 5 5 5 5 5 5 5 5 5 5 5 5 5 5 5 5 5 5 5";
    EXPECT_EQ(cli::text_of({{{"a", "Name", words},
                             {"b", "Count", decimal},
                             {"c", "Maps", decimal},
                             {"d", "Size", size},
                             {"e", "At", hexadecimal}},
                            {{"one", 7, maps, sides, 0x1F},
                             {"t\xC3\xA4o\r\n> lines", 123456, many, {}, {}},
                             {std::string(90, 'w'), 1, {}, {}, 2}}}),
              "Name" + gap(78) + " Count  Maps" + gap(35) + "  Size  At\n" + //
                  "one" + gap(84) + "7  1 22" + gap(35) + "  16x8  1F\n" +   //
                  "t\xC3\xA4o" + gap(79) + "123456" + fives + "\n" +         //
                  "> lines" + gap(83) + "5\n" +                              //
                  std::string(90, 'w') + "       1" + gap(50) + "2\n");
}

TEST(Json, KeepsAnyBytesOfAText) {
    const struct {
        std::string bytes, text;
    } rows[] = {
        {"a\\\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80", "a\\\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80"},
        {"\xFFz", "\uEFFFz"},
        {"\xC3", "\uEFC3"},                     // cut
        {"\xC0\x80", "\uEFC0\uEF80"},           // longer than needed
        {"\xED\xA0\x80", "\uEFED\uEFA0\uEF80"}, // half of a pair
        {"\xF4\x90\x80\x80", "\uEFF4\uEF90\uEF80\uEF80"},
        {"\uEF80", "\uEFEE\uEFBE\uEF80"}, // stands for a byte itself
    };
    for (const auto& row : rows)
        EXPECT_EQ(cli::utf8_text(row.bytes), row.text);
}

} // namespace
} // namespace veldrune::test
