#include "rom/number_text.h"

#include <algorithm>
#include <bitset>
#include <charconv>
#include <cstddef>
#include <limits>
#include <optional>

namespace veldrune {
namespace {

void normalise(std::string& text) {
    std::erase(text, ' ');
    for (std::size_t at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n", at))
        text.erase(at, 2);
    for (char& c : text)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
}

// Whether c is a UTF-8 byte that does not begin a character.
bool is_continuation_byte(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

std::string_view skip_characters(std::string_view text, std::size_t count) {
    for (; count > 0 && !text.empty(); --count)
        do
            text.remove_prefix(1);
        while (!text.empty() && is_continuation_byte(text.front()));
    return text;
}

std::optional<std::uint32_t> hex_digit(char c) {
    if (c >= '0' && c <= '9')
        return static_cast<std::uint32_t>(c - '0');
    if (c >= 'A' && c <= 'F')
        return static_cast<std::uint32_t>(c - 'A' + 10);
    return std::nullopt;
}

} // namespace

std::int32_t parse_hex_text(std::string& text, Dialogs& dialogs) {
    normalise(text);
    if (text.empty()) {
        dialogs.message(MessageKind::number, "invalid hex", "I Pity The Fool");
        return 0;
    }
    // The text may change while a message box is open; this copy is what gets parsed.
    const std::string digits = text;
    std::uint32_t value = 0;
    std::uint32_t digit = 0; // the last good one, which a bad character to its left repeats
    int place = 0;
    for (auto c = digits.rbegin(); c != digits.rend(); ++c) {
        if (is_continuation_byte(*c))
            continue;
        const std::optional<std::uint32_t> good = hex_digit(*c);
        if (!good)
            dialogs.message(MessageKind::number,
                            "The number " + digits + " you've entered is not valid hex",
                            warning_title);
        digit = good.value_or(digit);
        if (place < 8)
            value |= digit << (4 * place++);
    }
    return static_cast<std::int32_t>(value);
}

std::string format_hex(std::int64_t value) {
    std::string text(8, '0');
    const auto bits = static_cast<std::uint32_t>(value);
    const auto end = std::to_chars(text.data(), text.data() + text.size(), bits, 16).ptr;
    text.resize(static_cast<std::size_t>(end - text.data()));
    normalise(text);
    return text;
}

TextNumber decimal_number(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    text = text.substr(first, text.find_last_not_of(' ') + 1 - first);
    TextNumber number;
    std::size_t i = 0;
    for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i) {
        const std::int64_t value = std::int64_t{number.value} * 10 + (text[i] - '0');
        number.value =
            static_cast<int>(std::min<std::int64_t>(value, std::numeric_limits<int>::max()));
    }
    number.is_number = i == text.size();
    return number;
}

TextNumber parse_decimal_text(const std::string& text, Dialogs& dialogs) {
    const TextNumber number = decimal_number(text);
    if (!number.is_number)
        dialogs.message(MessageKind::number,
                        "The number " + text + " you've entered is not valid decimal",
                        warning_title);
    return number;
}

std::size_t character_count(std::string_view text) {
    std::size_t count = 0;
    for (; !text.empty(); text = skip_characters(text, 1))
        ++count;
    return count;
}

std::string_view characters(std::string_view text, std::size_t first, std::size_t count) {
    text = skip_characters(text, first);
    return text.substr(0, text.size() - skip_characters(text, count).size());
}

std::string byte_to_bits(std::uint8_t value) {
    return std::bitset<8>(value).to_string();
}

std::string word_to_bits(std::uint16_t value) {
    return std::bitset<16>(value).to_string();
}

std::uint32_t bits_to_value(std::string_view bits, std::size_t first, std::size_t length) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < length; ++i) {
        const std::size_t at = first - 1 + i;
        value = value * 2 + (at < bits.size() && bits[at] == '1' ? 1u : 0u);
    }
    return value;
}

} // namespace veldrune
