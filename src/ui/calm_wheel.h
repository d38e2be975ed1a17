#pragma once

#include <QWheelEvent>

namespace veldrune {

/// A list, bar or strip that the wheel changes only while it has the focus, which the wheel alone
/// does not give it.
template <typename Widget>
class CalmWheel : public Widget {
  public:
    CalmWheel() { this->setFocusPolicy(Qt::StrongFocus); }

  protected:
    void wheelEvent(QWheelEvent* event) override {
        if (this->hasFocus())
            Widget::wheelEvent(event);
        else
            event->ignore();
    }
};

} // namespace veldrune
