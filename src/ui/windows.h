#pragma once

#include "editor/editor_state.h"
#include "ui/edit_gate.h"

#include <memory>

namespace veldrune {

class EventWindow;
class LayerPalette;
class MainWindow;
class ObjectWindow;
class QtDialogs;
class TileChooser;

/// All windows of the program. Those other than the main window are made when they are first shown.
class Windows {
  public:
    Windows(EditorState& state, QtDialogs& dialogs);
    ~Windows();
    Windows(const Windows&) = delete;
    Windows& operator=(const Windows&) = delete;

    MainWindow& main_window() { return *form1_; }
    EditGate& edit_gate() { return gate_; }

  private:
    void show();

    EditorState& state_;
    EditGate gate_;
    // A window is declared after its parent, so that it is destroyed before it.
    std::unique_ptr<MainWindow> form1_;
    std::unique_ptr<TileChooser> form8_;
    std::unique_ptr<LayerPalette> form2_;
    std::unique_ptr<ObjectWindow> form10_;
    std::unique_ptr<EventWindow> form9_;
};

} // namespace veldrune
