#pragma once

#include "forms/number_form.h"

#include <QString>

namespace veldrune {

/// The tool tip of a control: its meaning and, for a number, the number form.
inline QString number_tip(const char* meaning, NumberForm form) {
    const char* sentence = is_decimal(form)       ? " Decimal."
                           : is_hexadecimal(form) ? " Hexadecimal."
                                                  : "";
    return QString(meaning) + sentence;
}

} // namespace veldrune
