#pragma once

#include "ui/pixel_view.h"

#include <QWidget>

class QMouseEvent;

namespace veldrune {

/// A picture of packed colours in a border, which shows the focus where the picture can have it.
class PixelPicture : public QWidget {
  public:
    explicit PixelPicture(ScreenPicture picture);
    /// Shows the picture anew where it has changed.
    void follow();
    QSize sizeHint() const override;
    /// Shows as much of the picture's top as is that high.
    void show_height(int height);

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    QSize picture_size() const { return {picture_.size().width(), height_}; }
    /// The pixel under the pointer; outside the picture too.
    QPoint pixel_under(const QMouseEvent& event) const;
    bool contains(QPoint pixel) const {
        return QRect(QPoint(0, 0), picture_size()).contains(pixel);
    }

  private:
    PixelView view() const;

    ScreenPicture picture_;
    int height_; // rows that show
};

} // namespace veldrune
