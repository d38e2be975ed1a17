#include "ui/map_list.h"

#include "editor/select_map.h"

#include <QKeyEvent>
#include <QListView>
#include <QRegularExpression>

namespace veldrune {

namespace {

/// The opened list. Collects what is typed until it is opened again.
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
    /// False where what has been typed can't be the beginning of a map's name or number.
    bool find_typed() {
        static const QRegularExpression name("^\\s*(?:m|ma|map)?\\s*(\\d*)$",
                                             QRegularExpression::CaseInsensitiveOption);
        const QRegularExpressionMatch match = name.match(typed_);
        const int map = match.captured(1).toInt();
        if (!match.hasMatch() || map >= map_list_rows)
            return false;
        if (!match.captured(1).isEmpty())
            setCurrentIndex(model()->index(map, 0));
        return true;
    }

    QString typed_;
};

} // namespace

MapList::MapList() {
    setStyleSheet("QComboBox { combobox-popup: 0; }"); // below the box, not over the whole screen
    setView(new MapListView);
    setMaxVisibleItems(24);
    for (int map = 0; map < map_list_rows; ++map)
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
