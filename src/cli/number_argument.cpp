#include "cli/number_argument.h"

#include "rom/number_text.h"

#include <charconv>

namespace veldrune::cli {

std::optional<std::int64_t> parse_number(std::string_view text, NumberStyle style) {
    const bool marked = text.starts_with("0x") || text.starts_with("0X");
    if (marked)
        text.remove_prefix(2);
    const int base = marked || style == NumberStyle::hexadecimal ? 16 : 10;
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

std::string number_text(std::int64_t number, NumberStyle style) {
    return style == NumberStyle::hexadecimal ? format_hex(number) : std::to_string(number);
}

} // namespace veldrune::cli
