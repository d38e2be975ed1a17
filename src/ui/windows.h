#pragma once

#include "editor/editor_state.h"
#include "ui/bindings.h"

#include <memory>

namespace veldrune {

class EventWindow;
class LayerPalette;
class MainWindow;
class ObjectWindow;
class QtDialogs;
class TileChooser;

/// All windows of the program. One edit runs at a time, whichever window it comes from, and then
/// every window shows the state that it leaves. Those beside the main window are made when they
/// show for the first time.
class Windows {
  public:
    Windows(EditorState& state, QtDialogs& dialogs);
    ~Windows();
    Windows(const Windows&) = delete;
    Windows& operator=(const Windows&) = delete;

    MainWindow& main_window() { return *form1_; }
    /// What lets the edits of a window through. A box that such an edit raises lies over window.
    Gate gate(QWidget& window);
    /// An edit runs, maybe behind a message box.
    bool busy() const { return busy_; }

  private:
    void show();

    EditorState& state_;
    QtDialogs& dialogs_;
    bool busy_ = false;
    // Each window is declared before those that lie in front of it.
    std::unique_ptr<MainWindow> form1_;
    std::unique_ptr<TileChooser> form8_;
    std::unique_ptr<LayerPalette> form2_;
    std::unique_ptr<ObjectWindow> form10_;
    std::unique_ptr<EventWindow> form9_;
};

} // namespace veldrune
