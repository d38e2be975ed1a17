#pragma once

#include <QGuiApplication>

namespace veldrune {

/// Gives the pointer a shape, whatever it lies over, as long as it lives.
class OverrideCursor {
  public:
    explicit OverrideCursor(Qt::CursorShape shape) { QGuiApplication::setOverrideCursor(shape); }
    ~OverrideCursor() { QGuiApplication::restoreOverrideCursor(); }
    OverrideCursor(const OverrideCursor&) = delete;
    OverrideCursor& operator=(const OverrideCursor&) = delete;
};

} // namespace veldrune
