#pragma once

#include "ui/side_window.h"

class QLabel;
class QLayout;

namespace veldrune {

class ScriptView;

/// The Event Editor, Form9: a script as a table, with an edit box over the current cell.
class EventWindow : public SideWindow {
  public:
    EventWindow(EditorState& state, EditGate& gate);

  private:
    QLayout* make_bar();
    QLayout* make_status();
    void show_script();
    void show_grid_status();

    ScriptView* grid_;
    QLabel* size_;
    QLabel* changed_;
    int shown_load_ = 0;  // Form9::load_count when the view was updated last
    int shown_work_ = -1; // Form9::operation_count then, -1 if the operation was still running
};

} // namespace veldrune
