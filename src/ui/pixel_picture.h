#pragma once

#include "ui/pixel_view.h"

#include <QWidget>

class QMouseEvent;

namespace veldrune {

/// A picture of packed colours in a border, which is highlighted while the widget has the focus.
class PixelPicture : public QWidget {
  public:
    explicit PixelPicture(ScreenPicture picture);
    /// Repaints the picture if it has changed.
    void update_if_changed();
    QSize sizeHint() const override;
    /// Shows only the upper height rows of the picture.
    void show_height(int height);

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    QSize picture_size() const { return {picture_.size().width(), height_}; }
    /// The picture pixel under the pointer, which may be outside the picture.
    QPoint pixel_under(const QMouseEvent& event) const;
    bool contains(QPoint pixel) const {
        return QRect(QPoint(0, 0), picture_size()).contains(pixel);
    }

  private:
    PixelView view() const;

    ScreenPicture picture_;
    int height_; // rows that are shown
};

} // namespace veldrune
