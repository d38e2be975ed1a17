#pragma once

#include "ui/side_window.h"

namespace veldrune {

/// The layer palette, Form2: a small window in front of the tile chooser that says which layer's
/// tiles it shows.
class LayerPalette : public SideWindow {
  public:
    LayerPalette(EditorState& state, EditGate& gate, QWidget& behind);

  protected:
    void showEvent(QShowEvent* event) override;
};

} // namespace veldrune
