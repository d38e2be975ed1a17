#pragma once

#include "forms/number_form.h"

#include <QString>

#include <cstdint>

namespace veldrune {

/// The tool tip of a control: its meaning, with limit in place of "%1" and largest, the largest
/// number that its bits hold, in place of "%2", and what its number form says of it.
QString number_tip(const char* meaning, NumberForm form, std::int64_t limit = 0,
                   std::int64_t largest = 0);

/// A tool tip that shows text as it is, whatever markup it seems to hold.
QString plain_tip(const QString& text);

} // namespace veldrune
