#pragma once

#include "ui/side_window.h"

class QLayout;

namespace veldrune {

class ScriptView;

/// The Event Editor, Form9: a script as a table, with a box to type in that lies over one cell.
class EventWindow : public SideWindow {
  public:
    EventWindow(EditorState& state, EditGate& gate);

  private:
    QLayout* make_bar();
    void show_script();

    ScriptView* grid_;
    int shown_load_ = 0;  // the load that the view shows
    int shown_work_ = -1; // the work on it that the view shows, -1 where there may be more
};

} // namespace veldrune
