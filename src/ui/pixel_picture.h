#pragma once

#include "ui/pixel_view.h"

#include <QWidget>

#include <cstdint>
#include <span>

class QMouseEvent;

namespace veldrune {

/// A picture of packed colours in a border, which shows the focus where the picture can have it.
class PixelPicture : public QWidget {
  public:
    /// pixels stand row by row from the top left and must outlive the picture.
    PixelPicture(std::span<const std::uint32_t> pixels, QSize size);
    QSize sizeHint() const override;
    /// Shows as much of the picture's top as is that high.
    void show_height(int height);

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    /// The pixel under the pointer; outside the picture too.
    QPoint pixel_under(const QMouseEvent& event) const;
    bool contains(QPoint pixel) const { return QRect(QPoint(0, 0), size_).contains(pixel); }

  private:
    PixelView view() const;

    std::span<const std::uint32_t> pixels_;
    QSize size_;
};

} // namespace veldrune
