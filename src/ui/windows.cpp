#include "ui/windows.h"

#include "ui/event_window.h"
#include "ui/layer_palette.h"
#include "ui/main_window.h"
#include "ui/object_window.h"
#include "ui/qt_dialogs.h"
#include "ui/tile_chooser.h"

namespace veldrune {

namespace {

// Updates the window; creates it when it is to be shown for the first time.
template <typename Window, typename... Arguments>
void show_side_window(std::unique_ptr<Window>& window, bool visible, Arguments&&... arguments) {
    if (visible && !window)
        window = std::make_unique<Window>(arguments...);
    if (window)
        window->show_state();
}

} // namespace

Windows::Windows(EditorState& state, QtDialogs& dialogs)
    : state_(state), gate_(dialogs, [this] { show(); }),
      form1_(std::make_unique<MainWindow>(state, gate_)) {
    dialogs.attach([this] {
        form1_->end_stroke();
        show();
    });
    show();
}

Windows::~Windows() = default;

void Windows::show() {
    form1_->show_state();
    show_side_window(form8_, state_.form8.visible, state_, gate_, *form1_);
    if (form8_)
        show_side_window(form2_, state_.form2.visible, state_, gate_, *form8_);
    show_side_window(form10_, state_.form10.visible, state_, gate_, *form1_);
    show_side_window(form9_, state_.form9.visible, state_, gate_);
}

} // namespace veldrune
