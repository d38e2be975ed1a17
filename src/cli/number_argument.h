#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace veldrune::cli {

/// How a number on the command line is read; "0x" in front makes any of them hexadecimal.
enum class NumberStyle { decimal, hexadecimal };

/// The number that a text stands for: digits of its style, or of 16 after "0x". Nothing for any
/// other text, and for a number above 32 bits.
std::optional<std::int64_t> parse_number(std::string_view text, NumberStyle style);

/// A number as a user of that style would type it.
std::string number_text(std::int64_t number, NumberStyle style);

} // namespace veldrune::cli
