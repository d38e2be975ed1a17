#pragma once

#include "forms/picture.h"

#include <QImage>
#include <QPointF>
#include <QRectF>

#include <cstdint>
#include <limits>

class QPainter;
class QPoint;
class QWidget;

namespace veldrune {

/// Where a picture lies in a widget. A picture pixel is a whole number of screen pixels on a
/// side and the picture starts on one, whatever the scaling of the screen, so that no pixel comes
/// out wider than its neighbour.
struct PixelView {
    QPointF origin;     // top left of the picture in the widget
    double pixel = 1.0; // side of a picture pixel, in the widget's unit

    QRectF rectangle(QSize size) const { return {origin, QSizeF(size) * pixel}; }
    /// The picture pixel under a point of the widget; outside the picture too.
    QPoint pixel_at(QPointF point) const;
};

/// The view of a picture that starts at offset in a widget, or as little behind it as it can.
/// screen_ratio is the number of screen pixels to the widget's unit, place the widget's place in
/// its window.
PixelView pixel_view(double screen_ratio, QPointF place, QPointF offset);
PixelView pixel_view(const QWidget& widget, QPointF offset);

/// Room that so many pixels of a picture need in a widget, wherever the widget lies.
int pixel_view_room(const QWidget& widget, int side);

/// A picture of the state, converted for the screen where it has changed since it was drawn last.
class ScreenPicture {
  public:
    /// picture must outlive this.
    template <int width, int height>
    explicit ScreenPicture(const Picture<width, height>& picture)
        : pixels_(picture.pixels().data()), version_(picture.version()), size_(width, height) {}

    QSize size() const { return size_; }
    /// Whether the picture has changed since it was drawn last.
    bool is_stale() const { return drawn_version_ != version_; }
    void draw(QPainter& painter, const PixelView& view);
    /// The same for the upper rows alone.
    void draw(QPainter& painter, const PixelView& view, int rows);

  private:
    const Colour* pixels_;
    const std::uint64_t& version_;
    QSize size_;
    QImage image_;
    std::uint64_t drawn_version_ = std::numeric_limits<std::uint64_t>::max();
};

} // namespace veldrune
