#include "ui/windows.h"

#include "ui/event_window.h"
#include "ui/layer_palette.h"
#include "ui/main_window.h"
#include "ui/object_window.h"
#include "ui/qt_dialogs.h"
#include "ui/tile_chooser.h"

#include <QScopeGuard>

namespace veldrune {

namespace {

/// Makes the window when it is first to be seen, in front of behind, and brings it in line with the
/// state.
template <typename Window>
void show_side_window(std::unique_ptr<Window>& window, bool visible, EditorState& state,
                      Windows& windows, QWidget* behind) {
    if (visible && !window)
        window = std::make_unique<Window>(state, windows, behind);
    if (window)
        window->show_state();
}

} // namespace

Windows::Windows(EditorState& state, QtDialogs& dialogs)
    : state_(state), dialogs_(dialogs), form1_(std::make_unique<MainWindow>(state, *this)) {
    dialogs_.attach([this] {
        form1_->end_stroke();
        show();
    });
    show();
}

Windows::~Windows() = default;

Gate Windows::gate(QWidget& window) {
    return [this, &window](const Action& edit) {
        if (busy_)
            return;
        busy_ = true;
        const auto finish = qScopeGuard([this] { // whether the edit returns or throws
            busy_ = false;
            show();
        });
        dialogs_.lie_over(&window);
        edit();
    };
}

void Windows::show() {
    form1_->show_state();
    show_side_window(form8_, state_.form8.visible, state_, *this, form1_.get());
    show_side_window(form2_, state_.form2.visible, state_, *this, form8_.get());
    show_side_window(form10_, state_.form10.visible, state_, *this, nullptr);
    show_side_window(form9_, state_.form9.visible, state_, *this, nullptr);
}

} // namespace veldrune
