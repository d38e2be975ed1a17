#pragma once

#include "ui/edit_gate.h"

#include <QMainWindow>

namespace veldrune {

/// Base of all windows except the main one. It is visible while the state says so.
class SideWindow : public QMainWindow {
  public:
    /// Updates the window from the state.
    void show_state();

  protected:
    /// close_in_editor is called when the user closes the window. parent is a window that this one
    /// stays in front of, or null.
    SideWindow(EditorState& state, EditGate& gate, const bool& visible,
               void (*close_in_editor)(EditorState&), QWidget* parent, Qt::WindowFlags flags);
    void closeEvent(QCloseEvent* event) override;
    /// Adds a line at the bottom that shows the hints of the menus' entries.
    void show_hints();
    /// Lets the window come to the front when raise_requested is set, and clears raise_requested
    /// then.
    void bind_raise_request(bool& raise_requested);

    EditorState& state_;
    Bindings bindings_;
    const EditGate& gate_;

  private:
    const bool& visible_;
    void (*close_)(EditorState&);
};

} // namespace veldrune
