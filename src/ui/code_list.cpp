#include "ui/code_list.h"

#include "editor/code_offers.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QScrollBar>

#include <algorithm>

namespace veldrune {

namespace {

constexpr int visible_offers = 10;

// Room for the longest offer, as far as the window has it.
int width_of(const QAbstractItemView& list, const QWidget& window) {
    const int bar = list.verticalScrollBar()->sizeHint().width();
    return std::min(list.sizeHintForColumn(0) + bar + 2 * list.frameWidth(), window.width());
}

} // namespace

CodeList::CodeList(QPlainTextEdit& box, const EditorState& state) : box_(box), state_(state) {
    setModel(&offers_);
    setWidget(&box);
    setMaxVisibleItems(visible_offers);
    popup()->setAccessibleName("Codes");
    connect(this, qOverload<const QString&>(&QCompleter::activated), this,
            [this](const QString& offer) {
                box_.selectAll();
                box_.insertPlainText(QString::fromStdString(code_of(offer.toStdString())));
            });
}

void CodeList::offer() {
    QStringList rows;
    for (const std::string& row : offered_codes(state_))
        rows << QString::fromStdString(row);
    if (rows.isEmpty())
        return close();
    popup()->setFont(box_.font());
    offers_.setStringList(rows);
    complete(QRect(0, 0, width_of(*popup(), *box_.window()), box_.height()));
}

void CodeList::close() {
    popup()->hide();
}

bool CodeList::takes(const QKeyEvent& key) const {
    if (!popup()->isVisible())
        return false;
    const bool enter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
    return key.key() == Qt::Key_Escape || (enter && popup()->currentIndex().isValid());
}

} // namespace veldrune
