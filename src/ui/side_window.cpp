#include "ui/side_window.h"

#include "ui/icons.h"

#include <QCloseEvent>
#include <QStatusBar>

#include <utility>

namespace veldrune {

SideWindow::SideWindow(EditorState& state, EditGate& gate, const bool& visible,
                       void (*close_in_editor)(EditorState&), QWidget* parent,
                       Qt::WindowFlags flags)
    : QMainWindow(parent, flags), state_(state), bindings_(gate.gate(*this)), gate_(gate),
      visible_(visible), close_(close_in_editor) {
    setWindowIcon(window_icon());
    setContextMenuPolicy(Qt::NoContextMenu);
}

void SideWindow::show_state() {
    if (visible_)
        bindings_.show();
    setVisible(visible_);
}

void SideWindow::bind_raise_request(bool& raise_requested) {
    bindings_.on_show([this, &raise_requested] {
        if (!std::exchange(raise_requested, false))
            return;
        setWindowState(windowState() & ~Qt::WindowMinimized);
        show();
        raise();
        activateWindow();
    });
}

void SideWindow::show_hints() {
    statusBar()->setSizeGripEnabled(false);
    statusBar()->setObjectName("Hint");
}

void SideWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(!gate_.busy());
    bindings_.edit([this] { close_(state_); });
}

} // namespace veldrune
