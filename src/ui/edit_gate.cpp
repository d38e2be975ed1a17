#include "ui/edit_gate.h"

#include "ui/qt_dialogs.h"

#include <QScopeGuard>

namespace veldrune {

Gate EditGate::gate(QWidget& window) {
    return [this, &window](const Action& edit) {
        if (busy_)
            return;
        busy_ = true;
        const auto finish = qScopeGuard([this] { // whether the edit returns or throws
            busy_ = false;
            show_windows_();
        });
        dialogs_.set_parent_window(&window);
        dialogs_.begin_operation();
        edit();
    };
}

} // namespace veldrune
