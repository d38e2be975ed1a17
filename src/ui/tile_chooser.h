#pragma once

#include "ui/side_window.h"

class QLabel;
class QScrollArea;

namespace veldrune {

class CellPicture;

/// The tile chooser, Form8: a picture of all tiles, where a click selects one. It never is larger
/// than its screen: the picture is as large as fits there, and scrolls where even its smallest size
/// does not fit.
class TileChooser : public SideWindow {
  public:
    TileChooser(EditorState& state, EditGate& gate, QWidget& parent);

    void setVisible(bool visible) override;

  protected:
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    void fit_screen();

    CellPicture* sheet_;
    QScrollArea* area_;
    QLabel* line_; // says which tile pointer or cursor is on
};

} // namespace veldrune
