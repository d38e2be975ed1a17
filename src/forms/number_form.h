#pragma once

#include "forms/table.h"

#include <string>

namespace veldrune {

/// How a text stands for a number: how it is read and shown, and what the user reads about it.
enum class NumberForm {
    decimal,
    size, // decimal: 16, 32, 64 or 128 tiles
    hexadecimal,
    location,    // hexadecimal: file offset of a stream
    high_number, // "N/A" for 0, else decimal: the value less 1; shown only
    words,       // no number
};
constexpr bool is_decimal(NumberForm form) {
    return form == NumberForm::decimal || form == NumberForm::size;
}
constexpr bool is_hexadecimal(NumberForm form) {
    return form == NumberForm::hexadecimal || form == NumberForm::location;
}

/// A text of a window, with the name of its control.
template <typename Form>
struct TextRow {
    std::string Form::*text;
    const char* control;
    NumberForm form;
};

} // namespace veldrune
