#pragma once

#include <string>

class QLineEdit;
class QPushButton;

namespace veldrune {

/// Makes a button stand out, or look like any other. why, for assistive technology, says what it
/// would do.
void emphasise(QPushButton* button, bool on, const char* why);

/// Marks a field by its colour and an icon whose tip is the sentence. An empty one removes the
/// mark.
void mark_field(QLineEdit* field, const std::string& sentence);

} // namespace veldrune
