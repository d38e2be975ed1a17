#include "ui/pixel_picture.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <qdrawutil.h>

namespace veldrune {

namespace {

constexpr int border = 2;

} // namespace

PixelPicture::PixelPicture(std::span<const std::uint32_t> pixels, QSize size)
    : pixels_(pixels), size_(size) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize PixelPicture::sizeHint() const {
    return {pixel_view_room(*this, size_.width()) + 2 * border,
            pixel_view_room(*this, size_.height()) + 2 * border};
}

void PixelPicture::show_height(int height) {
    if (size_.height() != height) {
        size_.setHeight(height);
        updateGeometry();
    }
    update();
}

bool PixelPicture::event(QEvent* event) {
    if (event->type() == QEvent::ScreenChangeInternal) // its scaling may differ
        updateGeometry();
    return QWidget::event(event);
}

PixelView PixelPicture::view() const {
    return pixel_view(*this, QPointF(border, border));
}

QPoint PixelPicture::pixel_under(const QMouseEvent& event) const {
    return view().pixel_at(event.position());
}

void PixelPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const PixelView picture = view();
    const QRectF frame = picture.rectangle(size_).adjusted(-border, -border, border, border);
    if (hasFocus())
        qDrawPlainRect(&painter, frame.toAlignedRect(), palette().color(QPalette::Highlight),
                       border);
    else
        qDrawShadePanel(&painter, frame.toAlignedRect(), palette(), true, border);
    draw_pixels(painter, picture, pixels_, size_);
}

} // namespace veldrune
