#pragma once

#include <QComboBox>

namespace veldrune {

/// The list of the game's maps. Typing a map's number, with or without "map" before it, opens the
/// list on that map; Enter chooses it.
class MapList : public QComboBox {
    Q_OBJECT
  public:
    MapList();

  protected:
    void showPopup() override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

} // namespace veldrune
