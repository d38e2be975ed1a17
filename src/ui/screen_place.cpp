#include "ui/screen_place.h"

#include <QApplication>
#include <QScreen>
#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace veldrune {

namespace {

// The natural size, or the part of it that there is room for. What is cut off in one direction
// only is scrolled by one bar, which needs room of its own.
QSize size_in(QSize room, const QWidget& window) {
    const QSize natural = window.sizeHint();
    const int bar = window.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const QSize bars(natural.height() > room.height() ? bar : 0,
                     natural.width() > room.width() ? bar : 0);
    return (natural + bars).boundedTo(room);
}

} // namespace

ScrolledPanel::ScrolledPanel(QWidget* contents) {
    setFrameStyle(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setWidget(contents);
    connect(qApp, &QApplication::focusChanged, this, &ScrolledPanel::scroll_to_focus);
}

ScrolledPanel::~ScrolledPanel() {
    disconnect(qApp, nullptr, this, nullptr); // the focus changes while the contents are destroyed
}

// Unlike Qt, which scrolls to the cursor of a text only, shows the whole control.
void ScrolledPanel::scroll_to_focus(const QWidget* from, const QWidget* to) {
    constexpr int margin = 8;
    const bool within = from && to && from->window() == window() && widget()->isAncestorOf(to);
    if (!within || QGuiApplication::mouseButtons())
        return;
    const QPoint middle = to->mapTo(widget(), to->rect().center());
    ensureVisible(middle.x(), middle.y(), to->width() / 2 + margin, to->height() / 2 + margin);
}

void fit_to_screen(QWidget& window) {
    window.resize(size_in(window.screen()->availableSize() - window_frame, window));
}

void place_on_screen(QWidget& window, const QRect& beside, Qt::Alignment side) {
    const QScreen* screen = QGuiApplication::screenAt(beside.center());
    const QRect area = (screen ? screen : window.screen())->availableGeometry();
    const QSize size = size_in(area.size() - window_frame, window);
    const QRect place = QStyle::alignedRect(Qt::LeftToRight, side, size + window_frame, beside);
    const QRect corners(area.topLeft(), area.size() - place.size() + QSize(1, 1));
    window.resize(size);
    window.move(std::clamp(place.left(), corners.left(), corners.right()),
                std::clamp(place.top(), corners.top(), corners.bottom()));
}

} // namespace veldrune
