#include "dialogue/dialogue_text.h"

#include "rom/snes_address.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <span>

namespace veldrune {
namespace {

using namespace rom_layout;

constexpr std::size_t line_width = 33;
constexpr std::string_view line_break = "\r\n";
constexpr std::string_view option_marker = "> ";
constexpr std::size_t none = std::string_view::npos;

// clang-format off
constexpr std::string_view pieces[256] = {
    "",       "\r\n",   "VARNA",  "DORIN",  "HALE",   "MOROSE", "BRANNO", "TOBIN",    // 00
    "FAELA",  "ORMOND", "LISK",   "KASPER", "PIP",    "JOX",    "MIMI",   "YETTI",    // 08
    "(10)",   "(11)",   "(12)",   "\r\n",   "(14)",   "> ",     "(16)",   "(17)",     // 10
    "(18)",   "(19)",   "(1A)",   "(1B)",   "(1C)",   "(1D)",   "(1E)",   "(1F)",     // 18
    "A",      "B",      "C",      "D",      "E",      "F",      "G",      "H",        // 20
    "I",      "J",      "K",      "L",      "M",      "N",      "O",      "P",        // 28
    "Q",      "R",      "S",      "T",      "U",      "V",      "W",      "X",        // 30
    "Y",      "Z",      "a",      "b",      "c",      "d",      "e",      "f",        // 38
    "g",      "h",      "i",      "j",      "k",      "l",      "m",      "n",        // 40
    "o",      "p",      "q",      "r",      "s",      "t",      "u",      "v",        // 48
    "w",      "x",      "y",      "z",      "0",      "1",      "2",      "3",        // 50
    "4",      "5",      "6",      "7",      "8",      "9",      "!",      "?",        // 58
    "(60)",   ":",      "\"",     "'",      "-",      ".",      ",",      "...",      // 60
    ";",      "#",      "+",      "(",      ")",      "%",      "~",      "(6F)",     // 68
    "@",      "(71)",   "=",      "\"",     "",       "",       "",       "",         // 70
    "",       "",       "",       "",       "",       "",       "",       " ",        // 78
    "e ",     " t",     ": ",     "th",     "t ",     "he",     "s ",     "er",       // 80
    " a",     "re",     "in",     "ou",     "d ",     " w",     " s",     "an",       // 88
    "o ",     " h",     " o",     "r ",     "n ",     "at",     "to",     " i",       // 90
    ", ",     "ve",     "ng",     "ha",     " m",     "Th",     "st",     "on",       // 98
    "yo",     " b",     "me",     "y ",     "en",     "it",     "ar",     "ll",       // A0
    "ea",     "I ",     "ed",     " f",     " y",     "hi",     "is",     "es",       // A8
    "or",     "l ",     " c",     "ne",     "'s",     "nd",     "le",     "se",       // B0
    " I",     "a ",     "te",     " l",     "pe",     "as",     "ur",     "u ",       // B8
    "al",     " p",     "g ",     "om",     " d",     "f ",     " g",     "ow",       // C0
    "rs",     "be",     "ro",     "us",     "ri",     "wa",     "we",     "Wh",       // C8
    "et",     " r",     "nt",     "m ",     "ma",     "I'",     "li",     "ho",       // D0
    "of",     "Yo",     "h ",     " n",     "ee",     "de",     "so",     "gh",       // D8
    "ca",     "ra",     "n'",     "ta",     "ut",     "el",     "! ",     "fo",       // E0
    "ti",     "We",     "lo",     "e!",     "ld",     "no",     "ac",     "ce",       // E8
    "k ",     " u",     "oo",     "ke",     "ay",     "w ",     "!!",     "ag",       // F0
    "il",     "ly",     "co",     ". ",     "ch",     "go",     "ge",     "e...",     // F8
};
// clang-format on

// A piece in eight bytes, which are copied as one whatever its length.
struct Piece {
    std::array<char, 7> text{};
    std::uint8_t length = 0;
};
constexpr std::array<Piece, 256> packed_pieces = [] {
    std::array<Piece, 256> packed;
    for (std::size_t byte = 0; byte < packed.size(); ++byte) {
        std::ranges::copy(pieces[byte], packed[byte].text.begin());
        packed[byte].length = static_cast<std::uint8_t>(pieces[byte].size());
    }
    return packed;
}();

// How often two different characters are side by side from a place on. Without branches, so that
// many places are looked at in one step.
std::uint8_t count_from(std::string_view text, std::string_view pair, std::size_t at) {
    std::uint8_t count = 0;
    for (; at + 1 < text.size(); ++at) {
        const bool is_first = text[at] == pair[0], is_second = text[at + 1] == pair[1];
        count = static_cast<std::uint8_t>(count + (is_first & is_second));
    }
    return count;
}

// The first blank or carriage return from a place on. Both are looked for a stretch at a time, so
// that a text with but one of the two is not searched to its end for every line.
std::size_t word_end(std::string_view text, std::size_t start) {
    constexpr std::size_t stretch = 128;
    for (; start < text.size(); start += stretch) {
        const std::string_view part = text.substr(start, stretch);
        if (const std::size_t at = std::min(part.find(' '), part.find('\r')); at != none)
            return start + at;
    }
    return none;
}

// Where the line that begins at start ends: at a line break within its width, at the last blank
// there, or else at whichever of the two comes first after it.
std::size_t line_end(std::string_view text, std::size_t start) {
    const std::size_t end = std::min(start + line_width, text.size());
    std::size_t blank = none;
    for (std::size_t at = start; at < end; ++at) {
        if (text[at] == '\r' && text.substr(at, line_break.size()) == line_break)
            return at;
        if (text[at] == ' ')
            blank = at;
    }
    return blank != none ? blank : word_end(text, start);
}

std::uint8_t count_options(std::string_view text) {
    return count_from(text, option_marker, 1);
}

// What bytes up to the final 0 stand for.
std::string expanded(std::span<const std::uint8_t> bytes) {
    std::array<char, max_dialogue_bytes * sizeof(Piece)> text;
    std::size_t length = 0;
    for (const std::uint8_t byte : bytes) {
        if (byte == 0)
            break;
        std::memcpy(&text[length], &packed_pieces[byte], sizeof(Piece));
        length += packed_pieces[byte].length;
    }
    return {text.data(), length};
}

} // namespace

std::string_view decode_dialogue_byte(std::uint8_t byte) {
    return pieces[byte];
}

DialogueText wrap_dialogue(std::string text) {
    std::size_t lines = 1;
    std::size_t start = 0; // after the last place that has ended a line
    std::size_t end = 0;
    while (text.size() > line_width && text.size() - start >= line_width) {
        end = line_end(text, start);
        if (end == none)
            break;
        if (text[end] == ' ')
            text[end] = '\r';
        start = end + 1;
        ++lines;
    }
    // A last line without an end is one word, in which there is nothing to be counted.
    const std::string_view counted = std::string_view(text).substr(0, end == none ? start : none);
    lines += count_from(counted, line_break, start) + 1;
    const std::uint8_t options = count_options(counted);
    return {std::move(text), static_cast<std::uint8_t>(lines), options};
}

std::int64_t dialogue_offset(const RomImage& rom, bool dialogue_patched, int number) {
    constexpr std::int64_t outside = -1;
    std::array<std::uint8_t, 3> entry{};
    if (dialogue_patched) {
        if (rom.read(new_dialogue_pointers + std::int64_t{3} * number, entry) < 3)
            return outside;
        return offset_of_address(entry[0] | entry[1] << 8 | entry[2] << 16);
    }
    if (rom.read(dialogue_pointers + std::int64_t{2} * number, std::span(entry).first(2)) < 2)
        return outside;
    const std::int64_t bank = number < first_dialogue_of_second_bank ? dialogues : dialogues_2;
    return bank + (entry[0] | entry[1] << 8);
}

DialogueText read_dialogue_text(const RomImage& rom, bool dialogue_patched, int number) {
    constexpr std::size_t first_read = 256; // most texts end there
    const std::int64_t at = dialogue_offset(rom, dialogue_patched, number);
    std::array<std::uint8_t, max_dialogue_bytes> bytes;
    const std::span<std::uint8_t> first = std::span(bytes).first(first_read);
    std::size_t count = rom.read(at, first);
    if (count == first_read && std::ranges::find(first, std::uint8_t{0}) == first.end())
        count += rom.read(at + std::int64_t{first_read}, std::span(bytes).subspan(first_read));
    return wrap_dialogue(expanded(std::span(bytes).first(count)));
}

} // namespace veldrune
