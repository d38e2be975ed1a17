#pragma once

#include <QWheelEvent>

namespace veldrune {

/// A list, scroll bar or tab bar that the wheel changes only while it has the keyboard focus.
/// Turning the wheel does not give it the focus.
template <typename Widget>
class FocusedWheel : public Widget {
  public:
    FocusedWheel() { this->setFocusPolicy(Qt::StrongFocus); }

  protected:
    void wheelEvent(QWheelEvent* event) override {
        if (this->hasFocus())
            Widget::wheelEvent(event);
        else
            event->ignore();
    }
};

} // namespace veldrune
