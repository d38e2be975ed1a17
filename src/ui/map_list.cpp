#include "ui/map_list.h"

#include "editor/editor_state.h"

#include <QKeyEvent>
#include <QListView>
#include <QRegularExpression>

namespace veldrune {

namespace {

// The drop-down list. It collects typed characters until it is opened the next time.
class MapListView : public QListView {
  public:
    void forget_typed() { typed_.clear(); }

    void keyboardSearch(const QString& text) override {
        typed_ += text;
        if (!find_typed()) {
            typed_ = text;
            find_typed();
        }
    }

  private:
    // Selects the map that has been typed. False where no map's name or number begins like that.
    bool find_typed() {
        static const QRegularExpression name("^\\s*(?:m|ma|map)?\\s*(\\d*)$",
                                             QRegularExpression::CaseInsensitiveOption);
        const QRegularExpressionMatch match = name.match(typed_);
        const int map = match.captured(1).toInt();
        if (!match.hasMatch() || map >= rom_layout::map_count)
            return false;
        if (!match.captured(1).isEmpty())
            setCurrentIndex(model()->index(map, 0));
        return true;
    }

    QString typed_;
};

} // namespace

MapList::MapList() {
    setStyleSheet("QComboBox { combobox-popup: 0; }"); // opens below the box, not full-screen
    setView(new MapListView);
    setMaxVisibleItems(24);
    for (int map = 0; map < rom_layout::map_count; ++map)
        addItem(QString("map %1").arg(map));
}

void MapList::showPopup() {
    static_cast<MapListView*>(view())->forget_typed();
    QComboBox::showPopup();
}

void MapList::keyPressEvent(QKeyEvent* event) {
    const QString text = event->text();
    if (text.isEmpty() || !text[0].isLetterOrNumber())
        return QComboBox::keyPressEvent(event);
    if (!view()->isVisible())
        showPopup();
    view()->keyboardSearch(text);
}

} // namespace veldrune
