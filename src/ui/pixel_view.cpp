#include "ui/pixel_view.h"

#include <QImage>
#include <QPainter>
#include <QWidget>

#include <cmath>

namespace veldrune {

namespace {

constexpr double rounding = 1.0 / 1024; // positions are sums of fractions and slightly off

/// Side of a picture pixel in the widget's unit.
double pixel_side(double screen_ratio) {
    return std::max(1.0, std::floor(screen_ratio + rounding)) / screen_ratio;
}

/// The first whole screen pixel at or behind offset, as a distance from place.
double snapped(double screen_ratio, double place, double offset) {
    return std::ceil((place + offset) * screen_ratio - rounding) / screen_ratio - place;
}

} // namespace

QPoint PixelView::pixel_at(QPointF point) const {
    const QPointF distance = (point - origin) / pixel;
    return {static_cast<int>(std::floor(distance.x() + rounding)),
            static_cast<int>(std::floor(distance.y() + rounding))};
}

PixelView pixel_view(double screen_ratio, QPointF place, QPointF offset) {
    return {{snapped(screen_ratio, place.x(), offset.x()),
             snapped(screen_ratio, place.y(), offset.y())},
            pixel_side(screen_ratio)};
}

PixelView pixel_view(const QWidget& widget, QPointF offset) {
    const QPointF place = widget.mapTo(widget.window(), QPointF(0, 0));
    return pixel_view(widget.devicePixelRatioF(), place, offset);
}

int pixel_view_room(const QWidget& widget, int side) {
    const double ratio = widget.devicePixelRatioF();
    const bool whole = std::abs(ratio - std::round(ratio)) < rounding;
    return static_cast<int>(std::ceil(side * pixel_side(ratio) - rounding)) + (whole ? 0 : 1);
}

void draw_pixels(QPainter& painter, const PixelView& view, std::span<const std::uint32_t> pixels,
                 QSize size) {
    const QImage colours(reinterpret_cast<const uchar*>(pixels.data()), size.width(), size.height(),
                         4 * size.width(), QImage::Format_RGB32);
    // The highest byte of a packed colour is 0; the screen takes it for the opacity.
    painter.drawImage(view.rectangle(size),
                      colours.convertToFormat(QImage::Format_ARGB32_Premultiplied));
}

} // namespace veldrune
