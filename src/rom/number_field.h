#pragma once

#include "forms/dialogs.h"
#include "forms/form1.h"
#include "forms/form9.h"
#include "rom/number_text.h"

#include <cstdint>
#include <string>
#include <type_traits>

namespace veldrune {

/// Reads a text that the user types in its form, with the messages of that form. A decimal text
/// with anything but digits gives a warning, a short location or a flag that breaks its form an
/// error; such a text is no number. Hexadecimal text always counts as a number, with a warning for
/// each character that is no digit. Texts of hexadecimal numbers, except flags and short locations,
/// are left in upper case and without blanks.
TextNumber parse_number_text(NumberForm form, std::string& text, Dialogs& dialogs);

/// A text read without messages.
struct ReadText {
    TextNumber number;
    bool is_valid; // there would have been no message
};
ReadText read_text(NumberForm form, std::string text);

/// The text of a value in a form.
std::string format_number(NumberForm form, std::int64_t value);

/// Reads a text of a window in the form that its row gives.
template <typename Form>
TextNumber read_field(Form& form, std::string std::type_identity_t<Form>::*text, Dialogs& dialogs) {
    return parse_number_text(text_row(text).form, form.*text, dialogs);
}

/// The same without messages. The text stays as it was typed.
template <typename Form>
TextNumber field_number(const Form& form, std::string std::type_identity_t<Form>::*text) {
    SilentDialogs silent;
    std::string copy = form.*text;
    return parse_number_text(text_row(text).form, copy, silent);
}

} // namespace veldrune
