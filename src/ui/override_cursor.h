#pragma once

#include <QGuiApplication>

namespace veldrune {

/// Sets the shape of the mouse pointer, over all windows, for the lifetime of the object.
class OverrideCursor {
  public:
    explicit OverrideCursor(Qt::CursorShape shape) { QGuiApplication::setOverrideCursor(shape); }
    ~OverrideCursor() { QGuiApplication::restoreOverrideCursor(); }
    OverrideCursor(const OverrideCursor&) = delete;
    OverrideCursor& operator=(const OverrideCursor&) = delete;
};

} // namespace veldrune
