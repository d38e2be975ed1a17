#pragma once

#include "forms/dialogs.h"
#include "forms/number_form.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace veldrune {

/// Reads hexadecimal text. The text is left in upper case, without blanks and line breaks. An empty
/// text is told and counts 0. Every character that is no digit is told once and counts as the digit
/// to its right, or 0 at the end. Values wrap to 32 bits.
std::int32_t parse_hex_text(std::string& text, Dialogs& dialogs);

/// Upper-case hexadecimal text of the low 32 bits, without leading zeros; 0 gives "0".
std::string format_hex(std::int64_t value);

/// A text read as a number.
struct TextNumber {
    int value = 0;
    bool is_number = false;
};
/// Reads decimal text: plain digits, blanks around them allowed. A text that holds anything else
/// counts as its leading digits make, 0 without any, and is no number. Values stop at the largest
/// int.
TextNumber decimal_number(std::string_view text);
/// The same, with a warning where the text is no number.
TextNumber parse_decimal_text(const std::string& text, Dialogs& dialogs);

/// Reads a text that the user types in its form, with the warnings of that form. Hexadecimal text
/// always counts as a number.
TextNumber parse_number_text(NumberForm form, std::string& text, Dialogs& dialogs);
/// The text of a value in a form.
std::string format_number(NumberForm form, std::int64_t value);

/// The length of a text in characters, and a part of it; what lies behind its end is left out. A
/// character may take several bytes: texts of fields are UTF-8.
std::size_t character_count(std::string_view text);
std::string_view characters(std::string_view text, std::size_t first, std::size_t count);

/// Bit text: one character "0" or "1" a bit, the highest first.
std::string byte_to_bits(std::uint8_t value);
std::string word_to_bits(std::uint16_t value);
/// The number that length characters of bit text make, from position first on, counted from 1.
/// What lies outside the text counts 0.
std::uint32_t bits_to_value(std::string_view bits, std::size_t first, std::size_t length);

} // namespace veldrune
