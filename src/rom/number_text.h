#pragma once

#include "forms/dialogs.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace veldrune {

/// Reads hexadecimal text. The text is left in upper case, without blanks and line breaks. An empty
/// text gives a warning and 0. Every character that is not a digit gives one warning and counts as
/// the digit to its right, or 0 at the end. Only the low 32 bits are kept.
std::int32_t parse_hex_text(std::string& text, Dialogs& dialogs);

/// Upper-case hexadecimal text of the low 32 bits, without leading zeros; 0 gives "0".
std::string format_hex(std::int64_t value);

/// A text read as a number.
struct TextNumber {
    int value = 0;
    bool is_number = false;
};
/// Reads decimal text: plain digits, blanks around them allowed. If the text holds anything else,
/// is_number is false and value is that of its leading digits, 0 without any. Values are capped at
/// the largest int.
TextNumber decimal_number(std::string_view text);
/// The same, with a warning if the text is not a number.
TextNumber parse_decimal_text(const std::string& text, Dialogs& dialogs);

/// The length of a text in characters, and count characters of it from number first on, fewer at
/// its end. A character may take several bytes: texts of fields are UTF-8.
std::size_t character_count(std::string_view text);
std::string_view characters(std::string_view text, std::size_t first, std::size_t count);

/// Bit text: one character "0" or "1" per bit, the highest first.
std::string byte_to_bits(std::uint8_t value);
std::string word_to_bits(std::uint16_t value);
/// The number that length characters of bit text stand for, from position first on, counted from 1.
/// Positions outside the text count as 0.
std::uint32_t bits_to_value(std::string_view bits, std::size_t first, std::size_t length);

} // namespace veldrune
