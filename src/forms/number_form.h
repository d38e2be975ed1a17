#pragma once

#include "forms/table.h"

#include <string>

namespace veldrune {

/// The form of a number in a text: how it is parsed, formatted and described in the tool tip.
enum class NumberForm {
    decimal,
    size, // decimal: 16, 32, 64 or 128 tiles
    hexadecimal,
    location,    // hexadecimal: file offset of a stream
    high_number, // "N/A" for 0, else the value - 1 in decimal; never parsed
    words,       // not a number
};
constexpr bool is_decimal(NumberForm form) {
    return form == NumberForm::decimal || form == NumberForm::size;
}
constexpr bool is_hexadecimal(NumberForm form) {
    return form == NumberForm::hexadecimal || form == NumberForm::location;
}

/// A text of a window, the name of its control and its number form.
template <typename Form>
struct TextRow {
    std::string Form::*text;
    const char* control;
    NumberForm form;
};

} // namespace veldrune
