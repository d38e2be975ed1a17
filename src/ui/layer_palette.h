#pragma once

#include "ui/side_window.h"

namespace veldrune {

/// The layer palette, Form2: a small window in front of the tile chooser in which the user selects
/// the layer whose tiles the chooser shows.
class LayerPalette : public SideWindow {
  public:
    LayerPalette(EditorState& state, EditGate& gate, QWidget& parent);
    void setVisible(bool visible) override;

  protected:
    bool focusNextPrevChild(bool next) override;
};

} // namespace veldrune
