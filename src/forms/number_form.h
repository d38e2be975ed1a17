#pragma once

#include "forms/table.h"

#include <string>

namespace veldrune {

/// The form of a number in a text: how it is parsed, formatted and described in the tool tip.
enum class NumberForm {
    // typed by the user
    decimal,
    width,  // decimal: 16, 32, 64 or 128 tiles
    height, // decimal: 16, 32 or 64 tiles
    hexadecimal,
    location,       // hexadecimal: file offset
    short_location, // the same, of less than six digits
    npc_flag,       // "xxxx:y": hexadecimal byte and bit, as 8 * byte + bit
    chest_flag,     // "xx:y": the same
    // only shown
    shown_decimal,
    shown_hexadecimal,
    quantity,    // decimal; the tool tip doesn't name the form
    high_number, // "N/A" for 0, else the value - 1 in decimal
    words,       // not a number
};
constexpr bool is_typed(NumberForm form) {
    return form < NumberForm::shown_decimal;
}
constexpr bool is_only_shown(NumberForm form) {
    return !is_typed(form) && form != NumberForm::words;
}
constexpr bool is_size(NumberForm form) {
    return form == NumberForm::width || form == NumberForm::height;
}
constexpr bool is_decimal(NumberForm form) {
    return form == NumberForm::decimal || is_size(form) || form == NumberForm::shown_decimal;
}
constexpr bool is_hexadecimal(NumberForm form) {
    return (is_typed(form) && !is_decimal(form)) || form == NumberForm::shown_hexadecimal;
}

/// A text of a window, the name of its control and its number form.
template <typename Form>
struct TextRow {
    std::string Form::*text;
    const char* control;
    NumberForm form;
};

} // namespace veldrune
