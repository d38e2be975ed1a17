#pragma once

#include <QColor>

class QPalette;
class QWidget;

namespace veldrune {

/// A tint that sets off what it lies over; texts stay readable on it.
QColor mark_colour(const QPalette& palette);

/// Tints the background of a label, box or radio button, or takes the tint away.
void show_mark(QWidget& widget, bool marked);

} // namespace veldrune
