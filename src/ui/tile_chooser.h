#pragma once

#include "ui/side_window.h"

namespace veldrune {

/// The tile chooser, Form8: a picture of all tiles, where a click selects one.
class TileChooser : public SideWindow {
  public:
    TileChooser(EditorState& state, EditGate& gate, QWidget& parent);
};

} // namespace veldrune
