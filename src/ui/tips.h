#pragma once

#include "forms/number_form.h"

#include <QString>
#include <QTextDocument>

namespace veldrune {

/// The tool tip of a control: its meaning and, for a number, the number form.
inline QString number_tip(const char* meaning, NumberForm form) {
    const char* sentence = is_decimal(form)       ? " Decimal."
                           : is_hexadecimal(form) ? " Hexadecimal."
                                                  : "";
    return QString(meaning) + sentence;
}

/// A tool tip that shows text as it is, whatever markup it seems to hold.
inline QString plain_tip(const QString& text) {
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

} // namespace veldrune
