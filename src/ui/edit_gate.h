#pragma once

#include "ui/bindings.h"

namespace veldrune {

class QtDialogs;

/// Lets one edit run at a time, whichever window it comes from, and has all windows show the state
/// after each.
class EditGate {
  public:
    EditGate(QtDialogs& dialogs, Action show_windows)
        : dialogs_(dialogs), show_windows_(std::move(show_windows)) {}
    EditGate(const EditGate&) = delete; // the gates of the windows refer to it
    EditGate& operator=(const EditGate&) = delete;

    /// The gate for the edits of a window. Message boxes of such an edit are modal to window.
    Gate gate(QWidget& window);
    /// An edit is running, maybe with a message box open.
    bool busy() const { return busy_; }

  private:
    QtDialogs& dialogs_;
    Action show_windows_;
    bool busy_ = false;
};

} // namespace veldrune
