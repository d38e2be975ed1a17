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

    /// Where pixels of the picture lie in the widget.
    QRectF rectangle(QRect pixels) const {
        return {origin + QPointF(pixels.topLeft()) * pixel, QSizeF(pixels.size()) * pixel};
    }
    /// The picture pixel under a point of the widget; it may be outside the picture.
    QPoint pixel_at(QPointF point) const;
};

/// The side of a picture pixel in screen pixels where it is about one widget unit. screen_ratio is
/// the number of screen pixels per widget unit.
int natural_side(double screen_ratio);

/// The view of a picture that starts at offset in a widget, or at the first screen pixel after it.
/// side is that of a picture pixel in screen pixels, place the position of the widget in its
/// window.
PixelView pixel_view(double screen_ratio, int side, QPointF place, QPointF offset);
PixelView pixel_view(const QWidget& widget, int side, QPointF offset);
/// The same at the natural side.
PixelView pixel_view(const QWidget& widget, QPointF offset);

/// The extent in widget units that count pixels of a picture need, at any position of the widget.
int pixel_view_extent(const QWidget& widget, int side, int count);
int pixel_view_extent(const QWidget& widget, int count);

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
    /// Converts what has changed. Returns the rectangle that holds it, in picture pixels.
    QRect refresh();
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
