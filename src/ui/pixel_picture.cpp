#include "ui/pixel_picture.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <qdrawutil.h>

namespace veldrune {

namespace {

constexpr int border = 2;

} // namespace

PixelPicture::PixelPicture(ScreenPicture picture)
    : picture_(std::move(picture)), height_(picture_.size().height()) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize PixelPicture::sizeHint() const {
    return {pixel_view_extent(*this, picture_size().width()) + 2 * border,
            pixel_view_extent(*this, picture_size().height()) + 2 * border};
}

void PixelPicture::show_height(int height) {
    if (height_ == height)
        return;
    height_ = height;
    updateGeometry();
    update();
}

void PixelPicture::update_if_changed() {
    if (picture_.is_stale())
        update();
}

bool PixelPicture::event(QEvent* event) {
    if (event->type() == QEvent::ScreenChangeInternal) // the scaling may have changed
        updateGeometry();
    if (event->type() == QEvent::Move) // the alignment to screen pixels depends on the position
        update();
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
    const PixelView place = view();
    const QRectF frame = place.rectangle(picture_size()).adjusted(-border, -border, border, border);
    if (hasFocus())
        qDrawPlainRect(&painter, frame.toAlignedRect(), palette().color(QPalette::Highlight),
                       border);
    else
        qDrawShadePanel(&painter, frame.toAlignedRect(), palette(), true, border);
    picture_.draw(painter, place, height_);
}

} // namespace veldrune
