#pragma once

#include <QScrollArea>

class QRect;

namespace veldrune {

/// Estimated size of a window's frame, which is known only once the window is visible.
inline constexpr QSize window_frame(16, 48);

/// The contents of a window, with scroll bars where the window is too small for them. A control
/// that gets the focus otherwise than by the mouse scrolls into view.
class ScrolledPanel : public QScrollArea {
  public:
    explicit ScrolledPanel(QWidget* contents);
    ~ScrolledPanel() override;
    /// The size at which everything is visible without scrolling.
    QSize sizeHint() const override { return widget()->sizeHint(); }

  private:
    void scroll_to_focus(const QWidget* from, const QWidget* to);
};

/// Gives a window its natural size, as far as the screen's available area has room for it and its
/// frame. The system chooses where it opens.
void fit_to_screen(QWidget& window);

/// The same, and moves it to a side or corner of a rectangle on the screen, or as close to that as
/// the available area allows.
void place_on_screen(QWidget& window, const QRect& beside, Qt::Alignment side);

} // namespace veldrune
