#include "ui/pixel_view.h"

#include "ui/memory.h"

#include <QPainter>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

namespace veldrune {

namespace {

constexpr double tolerance = 1.0 / 1024; // for rounding errors in positions

// The first whole screen pixel at or after offset, as a distance from place.
double snapped(double screen_ratio, double place, double offset) {
    return std::ceil((place + offset) * screen_ratio - tolerance) / screen_ratio - place;
}

// The colours of a row as pixels to be drawn. The highest byte of a packed colour is 0; here it is
// the opacity.
void make_opaque(const Colour* colours, std::span<QRgb> row) {
    std::transform(colours, colours + row.size(), row.begin(),
                   [](Colour colour) { return colour | 0xFF000000; });
}

// The rectangle, one pixel high, of the pixels of row y that differ.
QRect difference(std::span<const QRgb> row, const QRgb* other, int y) {
    const auto first = std::mismatch(row.begin(), row.end(), other).first - row.begin();
    if (first == std::ssize(row))
        return {};
    auto last = std::ssize(row) - 1;
    while (row[static_cast<std::size_t>(last)] == other[last])
        --last;
    return {QPoint(static_cast<int>(first), y), QPoint(static_cast<int>(last), y)};
}

} // namespace

QPoint PixelView::pixel_at(QPointF point) const {
    const QPointF distance = (point - origin) / pixel;
    return {static_cast<int>(std::floor(distance.x() + tolerance)),
            static_cast<int>(std::floor(distance.y() + tolerance))};
}

int natural_side(double screen_ratio) {
    return std::max(1, static_cast<int>(std::floor(screen_ratio + tolerance)));
}

PixelView pixel_view(double screen_ratio, int side, QPointF place, QPointF offset) {
    return {{snapped(screen_ratio, place.x(), offset.x()),
             snapped(screen_ratio, place.y(), offset.y())},
            side / screen_ratio};
}

PixelView pixel_view(const QWidget& widget, int side, QPointF offset) {
    const QPointF place = widget.mapTo(widget.window(), QPointF(0, 0));
    return pixel_view(widget.devicePixelRatioF(), side, place, offset);
}

PixelView pixel_view(const QWidget& widget, QPointF offset) {
    return pixel_view(widget, natural_side(widget.devicePixelRatioF()), offset);
}

int pixel_view_extent(const QWidget& widget, int side, int count) {
    const double ratio = widget.devicePixelRatioF();
    const bool whole = std::abs(ratio - std::round(ratio)) < tolerance;
    return static_cast<int>(std::ceil(count * side / ratio - tolerance)) + (whole ? 0 : 1);
}

int pixel_view_extent(const QWidget& widget, int count) {
    return pixel_view_extent(widget, natural_side(widget.devicePixelRatioF()), count);
}

QRect ScreenPicture::refresh() {
    if (!is_stale())
        return {};
    if (image_.isNull()) {
        image_ = make_image(size_, QImage::Format_ARGB32_Premultiplied);
        image_.fill(Qt::transparent); // which no pixel is
    }
    const auto width = static_cast<std::size_t>(size_.width());
    std::vector<QRgb> row(width);
    QRect changed;
    for (int y = 0; y < size_.height(); ++y) {
        auto* shown = reinterpret_cast<QRgb*>(image_.scanLine(y));
        make_opaque(pixels_ + static_cast<std::size_t>(y) * width, row);
        const QRect pixels = difference(row, shown, y);
        if (!pixels.isNull())
            std::copy(row.begin(), row.end(), shown);
        changed |= pixels;
    }
    drawn_version_ = version_;
    return changed;
}

void ScreenPicture::draw(QPainter& painter, const PixelView& view) {
    draw(painter, view, size_.height());
}

void ScreenPicture::draw(QPainter& painter, const PixelView& view, int rows) {
    refresh();
    const QRect shown(0, 0, size_.width(), rows);
    painter.drawImage(view.rectangle(shown), image_, shown);
}

} // namespace veldrune
