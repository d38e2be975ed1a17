#include "ui/pixel_picture.h"

#include <QAccessibleWidget>
#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <qdrawutil.h>

namespace veldrune {

namespace {

constexpr int border = 2;
constexpr int largest_factor = 3;

// Name and description for assistive technology are the widget's, which announces them itself.
QAccessibleInterface* picture_interface(const QString&, QObject* object) {
    auto* picture = dynamic_cast<PixelPicture*>(object);
    return picture ? new QAccessibleWidget(picture, QAccessible::Graphic) : nullptr;
}

} // namespace

PixelPicture::PixelPicture(ScreenPicture picture)
    : picture_(std::move(picture)), height_(picture_.size().height()) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    QAccessible::installFactory(picture_interface); // the same one is installed only once
}

QSize PixelPicture::size_at(int side) const {
    return {pixel_view_extent(*this, side, picture_size().width()) + 2 * border,
            pixel_view_extent(*this, side, picture_size().height()) + 2 * border};
}

QSize PixelPicture::sizeHint() const {
    return size_at(side());
}

QSize PixelPicture::natural_size() const {
    return size_at(natural());
}

void PixelPicture::fit(QSize room, int step) {
    int fitting = largest_factor * natural() / step * step;
    while (fitting > step && size_at(fitting) != size_at(fitting).boundedTo(room))
        fitting -= step;
    if (fitting == side())
        return;
    side_ = fitting;
    updateGeometry();
    update();
}

void PixelPicture::show_height(int height) {
    if (height_ == height)
        return;
    height_ = height;
    updateGeometry();
    update();
}

void PixelPicture::update_if_changed() {
    const QRect changed = picture_.refresh();
    if (!changed.isNull())
        update(view().rectangle(changed).toAlignedRect());
}

bool PixelPicture::event(QEvent* event) {
    if (event->type() == QEvent::ScreenChangeInternal) // the scaling may have changed
        updateGeometry();
    if (event->type() == QEvent::Move) // the alignment to screen pixels depends on the position
        update();
    return QWidget::event(event);
}

PixelView PixelPicture::view() const {
    return pixel_view(*this, side(), QPointF(border, border));
}

QPoint PixelPicture::pixel_under(const QSinglePointEvent& event) const {
    return view().pixel_at(event.position());
}

void PixelPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const PixelView place = view();
    const QRectF frame =
        place.rectangle(QRect({}, picture_size())).adjusted(-border, -border, border, border);
    if (hasFocus())
        qDrawPlainRect(&painter, frame.toAlignedRect(), palette().color(QPalette::Highlight),
                       border);
    else
        qDrawShadePanel(&painter, frame.toAlignedRect(), palette(), true, border);
    picture_.draw(painter, place, height_);
    draw_marks(painter, place);
}

} // namespace veldrune
