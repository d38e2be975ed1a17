#pragma once

#include "ui/edit_gate.h"

#include <QMainWindow>

namespace veldrune {

/// A window beside the main one: it is there while the state says so.
class SideWindow : public QMainWindow {
  public:
    /// Brings the window in line with the state.
    void show_state();

  protected:
    /// close_in_editor tells the editor that the user has closed the window. parent is a window
    /// that this one stays in front of, or null.
    SideWindow(EditorState& state, EditGate& gate, const bool& visible,
               void (*close_in_editor)(EditorState&), QWidget* parent, Qt::WindowType type);
    void closeEvent(QCloseEvent* event) override;
    /// Brings the window in front of all others when the state wants it there, which is then done.
    void follow_to_front(bool& to_front);

    EditorState& state_;
    Bindings bindings_;
    const EditGate& gate_;

  private:
    const bool& visible_;
    void (*close_)(EditorState&);
};

} // namespace veldrune
