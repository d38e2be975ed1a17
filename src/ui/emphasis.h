#pragma once

#include <string>

class QColor;
class QLineEdit;
class QPalette;
class QPushButton;
class QWidget;

namespace veldrune {

// All of these take the application's colours each time that they are called.

/// Makes a button stand out, or look like any other. why, for assistive technology, says what it
/// would do.
void emphasise(QPushButton* button, bool on, const char* why);

/// A tint that sets off what it lies over; texts stay readable on it.
QColor tint_of(const QPalette& palette);

/// Tints the background of a label, box or radio button, or takes the tint away.
void show_tint(QWidget& widget, bool on);

/// Marks a field by its colour and an icon whose tip is the sentence. An empty one removes the
/// mark.
void mark_field(QLineEdit* field, const std::string& sentence);

} // namespace veldrune
