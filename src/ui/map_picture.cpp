#include "ui/map_picture.h"

#include "editor/cell_info.h"
#include "editor/mouse.h"
#include "editor/view.h"
#include "editor/view_place.h"
#include "ui/memory.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <optional>

namespace veldrune {

namespace {

constexpr int notch = 120; // of the wheel, in the unit of QWheelEvent::angleDelta

std::optional<MouseButton> editor_button(Qt::MouseButton button) {
    if (button == Qt::LeftButton)
        return MouseButton::left;
    if (button == Qt::RightButton)
        return MouseButton::right;
    return std::nullopt;
}

struct ScrollKey {
    int key;
    Qt::Orientation direction;
    int tiles;
};
constexpr ScrollKey scroll_keys[] = {
    {Qt::Key_Left, Qt::Horizontal, -1},  {Qt::Key_Right, Qt::Horizontal, 1},
    {Qt::Key_Up, Qt::Vertical, -1},      {Qt::Key_Down, Qt::Vertical, 1},
    {Qt::Key_PageUp, Qt::Vertical, -16}, {Qt::Key_PageDown, Qt::Vertical, 16},
};

// Adds turn to rest, and moves the whole units from rest into the result.
int take_units(int& rest, int turn, int unit) {
    rest += turn;
    const int units = rest / unit;
    rest %= unit;
    return units;
}

// The picture of a tile to be laid over a cell. Where it has no pixel it is clear.
QImage half_clear(const Picture<preview_side, preview_side>& tile) {
    QImage image = make_image({preview_side, preview_side}, QImage::Format_ARGB32);
    for (int y = 0; y < preview_side; ++y)
        std::transform(tile.row(y), tile.row(y) + preview_side,
                       reinterpret_cast<QRgb*>(image.scanLine(y)),
                       [](Colour colour) { return colour ? colour | 0x80000000 : 0; });
    return image;
}

} // namespace

MapPicture::MapPicture(EditorState& state, const Bindings& bindings)
    : CellPicture(ScreenPicture(state.display.picture)), state_(state), bindings_(bindings) {
    setObjectName("Picture1");
    setAccessibleName("Map picture");
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
}

int MapPicture::cell_side() const {
    return tile_size(state_.zoom);
}

QString MapPicture::text_at(QPoint pixel) const {
    return QString::fromStdString(map_cell_text(state_, pixel.x(), pixel.y()));
}

std::vector<Mark> MapPicture::marks() const {
    std::vector<Mark> marks = CellPicture::marks();
    const auto at = place();
    if (at && would_paint(state_, at->x(), at->y()))
        marks.insert(marks.begin(),
                     {MarkKind::ghost, cell_at(*at), state_.form1.Picture3.version()});
    return marks;
}

void MapPicture::draw_ghost(QPainter& painter, QRectF cell) const {
    painter.drawImage(cell, half_clear(state_.form1.Picture3));
}

void MapPicture::keyPressEvent(QKeyEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier))
        for (const ScrollKey& row : scroll_keys)
            if (row.key == event->key())
                return emit scrolled(row.direction, row.tiles);
    CellPicture::keyPressEvent(event);
}

void MapPicture::press_at(Qt::MouseButton button, QPoint at) {
    const auto pressed = editor_button(button);
    if (!pressed)
        return;
    held_ |= button;
    bindings_.edit([&] { on_press(state_, *pressed, at.x(), at.y()); });
}

void MapPicture::move_to(QPoint at) {
    bindings_.edit([&] { on_move(state_, at.x(), at.y()); });
}

void MapPicture::release_at(Qt::MouseButton button, QPoint at) {
    if (!(held_ & button))
        return;
    held_ &= ~Qt::MouseButtons(button);
    bindings_.edit([&] {
        on_release(state_);
        if (contains(at))
            on_click(state_, at.x(), at.y());
    });
}

void MapPicture::end_stroke() {
    CellPicture::end_stroke();
    if (held_)
        on_release(state_);
    held_ = Qt::NoButton;
}

void MapPicture::leave_picture(QPoint cells) {
    scroll_by(cells);
}

void MapPicture::scroll_by(QPoint tiles) {
    if (tiles.x())
        emit scrolled(Qt::Horizontal, tiles.x());
    if (tiles.y())
        emit scrolled(Qt::Vertical, tiles.y());
}

void MapPicture::wheelEvent(QWheelEvent* event) {
    if (event->modifiers() & Qt::ControlModifier)
        zoom_by_wheel(*event);
    else
        scroll_by_wheel(*event);
    event->accept();
}

void MapPicture::zoom_by_wheel(const QWheelEvent& event) {
    const QPoint at = pixel_under(event);
    if (const int notches = take_units(wheel_zoom_rest_, event.angleDelta().y(), notch))
        bindings_.edit([&] { zoom_about(state_, notches, at.x(), at.y()); });
}

void MapPicture::scroll_by_wheel(const QWheelEvent& event) {
    QPoint turn = event.angleDelta();
    if (event.modifiers() & Qt::ShiftModifier && turn.x() == 0)
        turn = turn.transposed();
    const int unit = notch / std::clamp(QApplication::wheelScrollLines(), 1, notch);
    scroll_by({-take_units(wheel_rest_.rx(), turn.x(), unit),
               -take_units(wheel_rest_.ry(), turn.y(), unit)});
}

} // namespace veldrune
