#pragma once

#include <QIcon>

class QPalette;

namespace veldrune {

/// The small picture of a tool or button in the colours of its surroundings; empty for a control
/// that has none.
QIcon control_icon(const char* control, const QPalette& colours);

QIcon window_icon();

} // namespace veldrune
