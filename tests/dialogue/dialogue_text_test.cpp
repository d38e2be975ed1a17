#include "dialogue/dialogue_text.h"
#include "support/editor_fixture.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

std::string repeated(const std::string& piece, int count) {
    return count == 0 ? "" : piece + repeated(piece, count - 1);
}

TEST(DialogueText, TextsAreWrappedAndCounted) {
    const std::string a30(30, 'A'), a33(33, 'A');
    const std::tuple<std::string, std::string, int, int> cases[] = {
        {"> A\r\n> B\r\n> C", "> A\r\n> B\r\n> C", 4, 2}, // one at the very start is none
        {a30 + " AA", a30 + " AA", 2, 0},                 // short enough
        {a33 + " B", a33 + "\rB", 3, 0}, // the blank is at the 34th place, after the line
        {"A " + a30 + "\r\nB", "A " + a30 + "\r\nB", 3, 0},         // the break is in reach
        {"A " + a30 + " " + a33, "A " + a30 + "\r" + a33, 3, 0},    // the last one in reach
        {a33 + " " + a30 + " BB", a33 + "\r" + a30 + "\rBB", 4, 0}, // 33 characters are left
        // A word without a blank in reach stays whole; the next blank or break ends it.
        {a33 + a33, a33 + a33, 2, 0},
        {"A " + a33 + a33 + " B C", "A\r" + a33 + a33 + "\rB C", 4, 0},
        {a33 + a33 + "\r\n" + a33 + "B C", a33 + a33 + "\r\n" + a33 + "B\rC", 4, 0},
        // A marker whose blank ends a line is none any more.
        {std::string(31, 'A') + "> " + a33, std::string(31, 'A') + ">\r" + a33, 3, 0},
        // Counts have eight bits.
        {a33 + repeated("\r\n> ", 260), a33 + repeated("\r\n> ", 260), 6, 4},
    };
    for (const auto& [text, wrapped, lines, options] : cases) {
        const DialogueText dialogue = wrap_dialogue(text);
        EXPECT_EQ(dialogue.text, wrapped);
        EXPECT_EQ(dialogue.line_count, lines) << wrapped;
        EXPECT_EQ(dialogue.option_count, options) << wrapped;
    }
}

TEST(DialogueText, BytesExpandByTheTable) {
    const char* bytes = "02 0F 10 13 1F 20 5D 5F 60 62 73 74 7E 7F 67 80 C7 F6 FE FF 00";
    std::string text;
    for (const std::uint8_t byte : hex_bytes(bytes))
        text += decode_dialogue_byte(byte);
    EXPECT_EQ(text, "VARNAYETTI(10)\r\n(1F)A9?(60)\"\" ...e ow!!gee...");
}

std::string text_of(const Bytes& image, bool patched, int number) {
    return read_dialogue_text(OpenImage(image).rom, patched, number).text;
}

TEST(DialogueText, NumbersAreFoundByEitherTable) {
    Bytes image(0x302930, 0);
    put_bytes(image, 0xCE802 + 2 * 1590, hex_bytes("34 12 34 12")); // entries 1590 and 1591
    put_bytes(image, 0xD0200 + 0x1234, hex_bytes("20 21 00"));
    put_bytes(image, 0xE0200 + 0x1234, hex_bytes("22 23 00"));
    put_bytes(image, 0x300200 + 3 * 1590, hex_bytes("34 12 CE 34 12 CD 00 00 10"));
    EXPECT_EQ(text_of(image, false, 1590), "AB");
    EXPECT_EQ(text_of(image, false, 1591), "CD");
    EXPECT_EQ(text_of(image, true, 1590), "CD");
    EXPECT_EQ(text_of(image, true, 1591), "AB");
    EXPECT_EQ(text_of(image, true, 1592), ""); // it points before the image
}

TEST(DialogueText, ATextEndsWithTheFileAndAfter4096Bytes) {
    for (const std::size_t left : {0u, 3u, 256u, 700u, 4096u, 5000u}) {
        Bytes image(0xD0200 + left, 0x20);
        put_word(image, 0xCE802, 0);
        EXPECT_EQ(text_of(image, false, 0), std::string(std::min<std::size_t>(left, 4096), 'A'));
    }
    EXPECT_EQ(text_of(Bytes(0xCE803, 0x20), false, 0), ""); // half an entry
}

} // namespace
} // namespace veldrune::test
