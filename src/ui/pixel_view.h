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

/// The position and scale of a picture in a widget. At any screen scaling the side of a picture
/// pixel is a whole number of screen pixels and the picture starts on a screen pixel, so that all
/// its pixels have the same size.
struct PixelView {
    QPointF origin;     // top left of the picture in the widget
    double pixel = 1.0; // side of a picture pixel in widget units

    QRectF rectangle(QSize size) const { return {origin, QSizeF(size) * pixel}; }
    /// The picture pixel under a point of the widget; it may be outside the picture.
    QPoint pixel_at(QPointF point) const;
};

/// The view of a picture that starts at offset in a widget, or at the first screen pixel after it.
/// screen_ratio is the number of screen pixels per widget unit, place the position of the widget
/// in its window.
PixelView pixel_view(double screen_ratio, QPointF place, QPointF offset);
PixelView pixel_view(const QWidget& widget, QPointF offset);

/// The extent in widget units that side pixels of a picture need, at any position of the widget.
int pixel_view_extent(const QWidget& widget, int side);

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
    /// Draws the upper rows only.
    void draw(QPainter& painter, const PixelView& view, int rows);

  private:
    const Colour* pixels_;
    const std::uint64_t& version_;
    QSize size_;
    QImage image_;
    std::uint64_t drawn_version_ = std::numeric_limits<std::uint64_t>::max();
};

} // namespace veldrune
