#pragma once

#include "ui/focused_wheel.h"

#include <QComboBox>

namespace veldrune {

/// The list of the game's maps. Typing a map's number, with or without "map" before it, opens the
/// list on that map; Enter chooses it.
class MapList : public FocusedWheel<QComboBox> {
  public:
    MapList();

  protected:
    void showPopup() override;
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace veldrune
