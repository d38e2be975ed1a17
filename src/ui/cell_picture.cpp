#include "ui/cell_picture.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollArea>

#include <algorithm>
#include <initializer_list>

namespace veldrune {

namespace {

struct CursorKey {
    int key;
    QPoint cells;
};
constexpr CursorKey cursor_keys[] = {
    {Qt::Key_Left, {-1, 0}},
    {Qt::Key_Right, {1, 0}},
    {Qt::Key_Up, {0, -1}},
    {Qt::Key_Down, {0, 1}},
};

struct StrokeKey {
    int key;
    Qt::MouseButton button;
};
constexpr StrokeKey stroke_keys[] = {
    {Qt::Key_Space, Qt::LeftButton},
    {Qt::Key_Return, Qt::LeftButton},
    {Qt::Key_Enter, Qt::LeftButton},
    {Qt::Key_Insert, Qt::RightButton},
};

// The row of a table with that key, or null.
const auto* row_of_key(const auto& rows, int key) {
    const auto row = std::find_if(std::begin(rows), std::end(rows),
                                  [key](const auto& entry) { return entry.key == key; });
    return row == std::end(rows) ? nullptr : row;
}

// A frame just inside of a rectangle.
void draw_frame(QPainter& painter, QRectF frame, double width, const QColor& colour) {
    const QRectF inside = frame.adjusted(width, width, -width, -width);
    painter.fillRect(QRectF(frame.topLeft(), inside.topRight() + QPointF(width, 0)), colour);
    painter.fillRect(QRectF(inside.bottomLeft() - QPointF(width, 0), frame.bottomRight()), colour);
    painter.fillRect(QRectF(frame.left(), inside.top(), width, inside.height()), colour);
    painter.fillRect(QRectF(inside.right(), inside.top(), width, inside.height()), colour);
}

// Frames one inside the other, dark and light, so that some of them stand out from any picture.
void draw_frames(QPainter& painter, QRectF cell, double width,
                 std::initializer_list<QColor> colours) {
    for (const QColor& colour : colours) {
        draw_frame(painter, cell, width, colour);
        cell.adjust(width, width, -width, -width);
    }
}

// Moves the view of every scroll area around a widget to a part of it.
void reveal(QWidget& widget, QRect part) {
    for (QWidget* around = widget.parentWidget(); around; around = around->parentWidget())
        if (auto* area = qobject_cast<QScrollArea*>(around)) {
            const QPoint middle = widget.mapTo(area->widget(), part.center());
            area->ensureVisible(middle.x(), middle.y(), part.width(), part.height());
        }
}

} // namespace

void CellPicture::show_state() {
    update_if_changed();
    show_place();
}

QRect CellPicture::cell_at(QPoint pixel) const {
    const int side = cell_side();
    return {pixel.x() / side * side, pixel.y() / side * side, side, side};
}

std::optional<QPoint> CellPicture::place() const {
    const bool pointed = pointer_ && contains(*pointer_);
    if (hasFocus() && (by_keys_ || !pointed))
        return cursor();
    return pointed ? pointer_ : std::nullopt;
}

std::vector<Mark> CellPicture::marks() const {
    std::vector<Mark> marks;
    if (pointer_ && contains(*pointer_))
        marks.push_back({MarkKind::pointer, cell_at(*pointer_)});
    if (hasFocus())
        marks.push_back({MarkKind::cursor, cell_at(cursor_)});
    return marks;
}

void CellPicture::show_place() {
    update_marks();
    const auto at = place();
    const QString text = at ? text_at(*at) : QString();
    const QString description = text.isEmpty() ? whatsThis() : text;
    if (description == accessibleDescription())
        return;
    setAccessibleDescription(description);
    emit place_told(text);
}

// Repaints the cells of marks that come or go.
void CellPicture::update_marks() {
    const std::vector<Mark> now = marks();
    const auto update_missing = [this](const std::vector<Mark>& from, const std::vector<Mark>& in) {
        for (const Mark& mark : from)
            if (std::find(in.begin(), in.end(), mark) == in.end())
                update(view().rectangle(mark.cell).toAlignedRect());
    };
    update_missing(shown_marks_, now);
    update_missing(now, shown_marks_);
    shown_marks_ = now;
}

void CellPicture::draw_marks(QPainter& painter, const PixelView& view) {
    const double line = natural_side(devicePixelRatioF()) / devicePixelRatioF();
    for (const Mark& mark : shown_marks_) {
        const QRectF cell = view.rectangle(mark.cell);
        switch (mark.kind) {
        case MarkKind::ghost:
            painter.setOpacity(0.5);
            painter.drawImage(cell, mark.ghost);
            painter.setOpacity(1);
            break;
        case MarkKind::current:
            draw_frames(painter, cell, line, {Qt::black, Qt::yellow, Qt::yellow});
            break;
        case MarkKind::pointer:
            draw_frames(painter, cell, line, {Qt::black, Qt::white});
            break;
        case MarkKind::cursor:
            draw_frames(painter, cell, line,
                        {Qt::black, Qt::white, palette().color(QPalette::Highlight)});
            break;
        }
    }
}

void CellPicture::set_cursor_cell(QPoint pixel) {
    cursor_ = pixel;
    reveal(*this, view().rectangle(cell_at(cursor_)).toAlignedRect());
    show_place();
}

void CellPicture::move_cursor(QPoint cells) {
    by_keys_ = true;
    if (key_)
        move_to(cursor()); // a stroke has its first cell, too
    const QPoint next = cursor() + cells * cell_side();
    if (contains(next))
        cursor_ = next;
    else
        leave_picture(cells);
    reveal(*this, view().rectangle(cell_at(cursor_)).toAlignedRect());
    move_to(cursor());
    show_place();
}

void CellPicture::keyPressEvent(QKeyEvent* event) {
    if (const CursorKey* row = row_of_key(cursor_keys, event->key()))
        return move_cursor(row->cells);
    const StrokeKey* row = row_of_key(stroke_keys, event->key());
    if (!row)
        return QWidget::keyPressEvent(event);
    if (key_ || event->isAutoRepeat())
        return;
    key_ = row->key;
    by_keys_ = true;
    press_at(row->button, cursor());
    show_place();
}

void CellPicture::keyReleaseEvent(QKeyEvent* event) {
    const StrokeKey* row = row_of_key(stroke_keys, event->key());
    if (!row)
        return QWidget::keyReleaseEvent(event);
    if (event->isAutoRepeat() || row->key != key_)
        return;
    key_ = 0;
    release_at(row->button, cursor());
}

void CellPicture::focusInEvent(QFocusEvent* event) {
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        by_keys_ = true;
    PixelPicture::focusInEvent(event);
    show_place();
}

void CellPicture::focusOutEvent(QFocusEvent* event) {
    if (key_)
        end_stroke();
    PixelPicture::focusOutEvent(event);
    show_place();
}

void CellPicture::mousePressEvent(QMouseEvent* event) {
    const QPoint at = pixel_under(*event);
    pointer_ = at;
    by_keys_ = false;
    if (contains(at))
        cursor_ = at;
    press_at(event->button(), at);
    show_place();
}

void CellPicture::mouseMoveEvent(QMouseEvent* event) {
    pointer_ = pixel_under(*event);
    by_keys_ = false;
    move_to(*pointer_);
    show_place();
}

void CellPicture::mouseReleaseEvent(QMouseEvent* event) {
    release_at(event->button(), pixel_under(*event));
}

void CellPicture::leaveEvent(QEvent* event) {
    pointer_.reset();
    PixelPicture::leaveEvent(event);
    show_place();
}

} // namespace veldrune
