#pragma once

#include <QPointF>
#include <QRectF>

#include <cstdint>
#include <span>

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

/// Draws a picture of packed colours, row by row from the top left.
void draw_pixels(QPainter& painter, const PixelView& view, std::span<const std::uint32_t> pixels,
                 QSize size);

} // namespace veldrune
