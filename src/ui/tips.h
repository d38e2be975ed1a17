#pragma once

#include "forms/number_form.h"

#include <QString>

namespace veldrune {

/// What a user reads on a control with a number: its meaning, and the form of the number.
inline QString number_tip(const char* meaning, NumberForm form) {
    const char* sentence = is_decimal(form)       ? " Decimal."
                           : is_hexadecimal(form) ? " Hexadecimal."
                                                  : "";
    return QString(meaning) + sentence;
}

} // namespace veldrune
