#include "ui/pixel_view.h"

#include <QPainter>
#include <QWidget>

#include <cmath>

namespace veldrune {

namespace {

constexpr double tolerance = 1.0 / 1024; // for rounding errors in positions

// Side of a picture pixel in widget units.
double pixel_side(double screen_ratio) {
    return std::max(1.0, std::floor(screen_ratio + tolerance)) / screen_ratio;
}

// The first whole screen pixel at or after offset, as a distance from place.
double snapped(double screen_ratio, double place, double offset) {
    return std::ceil((place + offset) * screen_ratio - tolerance) / screen_ratio - place;
}

} // namespace

QPoint PixelView::pixel_at(QPointF point) const {
    const QPointF distance = (point - origin) / pixel;
    return {static_cast<int>(std::floor(distance.x() + tolerance)),
            static_cast<int>(std::floor(distance.y() + tolerance))};
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

int pixel_view_extent(const QWidget& widget, int side) {
    const double ratio = widget.devicePixelRatioF();
    const bool whole = std::abs(ratio - std::round(ratio)) < tolerance;
    return static_cast<int>(std::ceil(side * pixel_side(ratio) - tolerance)) + (whole ? 0 : 1);
}

void ScreenPicture::draw(QPainter& painter, const PixelView& view) {
    draw(painter, view, size_.height());
}

void ScreenPicture::draw(QPainter& painter, const PixelView& view, int rows) {
    if (is_stale()) {
        const QImage colours(reinterpret_cast<const uchar*>(pixels_), size_.width(), size_.height(),
                             4 * size_.width(), QImage::Format_RGB32);
        // The highest byte of a packed colour is 0; in an image to be drawn it is the opacity.
        image_ = colours.convertToFormat(QImage::Format_ARGB32_Premultiplied);
        drawn_version_ = version_;
    }
    const QRect shown(0, 0, size_.width(), rows);
    painter.drawImage(view.rectangle(shown.size()), image_, shown);
}

} // namespace veldrune
