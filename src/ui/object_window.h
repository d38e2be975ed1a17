#pragma once

#include "editor/object_status.h"
#include "ui/side_window.h"

namespace veldrune {

/// The Object Info window, Form10: one object of the map, in fields that change with its kind.
class ObjectWindow : public SideWindow {
  public:
    ObjectWindow(EditorState& state, EditGate& gate, const QWidget& main_window);

  private:
    void build_panel();

    ObjectStatus status_;
};

} // namespace veldrune
