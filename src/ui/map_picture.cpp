#include "ui/map_picture.h"

#include "editor/mouse.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
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

} // namespace

MapPicture::MapPicture(EditorState& state, const Bindings& bindings)
    : PixelPicture(ScreenPicture(state.display.picture)), state_(state), bindings_(bindings) {
    setObjectName("Picture1");
    setAccessibleName("Map picture");
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
}

void MapPicture::keyPressEvent(QKeyEvent* event) {
    for (const ScrollKey& row : scroll_keys)
        if (row.key == event->key())
            return emit scrolled(row.direction, row.tiles);
    QWidget::keyPressEvent(event);
}

void MapPicture::mousePressEvent(QMouseEvent* event) {
    const auto button = editor_button(event->button());
    if (!button)
        return;
    held_ |= event->button();
    const QPoint at = pixel_under(*event);
    bindings_.edit([&] { on_press(state_, *button, at.x(), at.y()); });
}

void MapPicture::mouseMoveEvent(QMouseEvent* event) {
    const QPoint at = pixel_under(*event);
    bindings_.edit([&] { on_move(state_, at.x(), at.y()); });
}

void MapPicture::mouseReleaseEvent(QMouseEvent* event) {
    if (!(held_ & event->button()))
        return;
    held_ &= ~Qt::MouseButtons(event->button());
    const QPoint at = pixel_under(*event);
    bindings_.edit([&] {
        on_release(state_);
        if (contains(at))
            on_click(state_, at.x(), at.y());
    });
}

void MapPicture::end_stroke() {
    if (held_)
        on_release(state_);
    held_ = Qt::NoButton;
}

void MapPicture::wheelEvent(QWheelEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier))
        scroll_by_wheel(*event);
    else if (const int notches = take_units(wheel_zoom_rest_, event->angleDelta().y(), notch))
        emit zoomed(notches);
    event->accept();
}

void MapPicture::scroll_by_wheel(const QWheelEvent& event) {
    QPoint turn = event.angleDelta();
    if (event.modifiers() & Qt::ShiftModifier && turn.x() == 0)
        turn = turn.transposed();
    const int unit = notch / std::clamp(QApplication::wheelScrollLines(), 1, notch);
    if (const int tiles = take_units(wheel_rest_.rx(), turn.x(), unit))
        emit scrolled(Qt::Horizontal, -tiles);
    if (const int tiles = take_units(wheel_rest_.ry(), turn.y(), unit))
        emit scrolled(Qt::Vertical, -tiles);
}

} // namespace veldrune
