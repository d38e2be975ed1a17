#pragma once

#include "ui/side_window.h"

namespace veldrune {

/// The tile chooser, Form8: the picture of all tiles, of which a click takes one.
class TileChooser : public SideWindow {
  public:
    TileChooser(EditorState& state, EditGate& gate, QWidget& behind);
};

} // namespace veldrune
