#pragma once

#include <QImage>

namespace veldrune {

/// Ends the program with a line on standard error. After a failed allocation its state may be
/// inconsistent.
[[noreturn]] void end_without_memory();

/// A new image without contents. Ends the program where there is no memory for it: Qt then makes
/// an image that can't be drawn into.
QImage make_image(QSize size, QImage::Format format);

} // namespace veldrune
