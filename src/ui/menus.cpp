#include "ui/menus.h"

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include <vector>

namespace veldrune {

namespace {

void set_shortcut(QAction& action, const Shortcut& shortcut) {
    const QList<QKeySequence> keys = QKeySequence::keyBindings(shortcut.key);
    if (shortcut.otherwise)
        action.setShortcuts(keys.isEmpty() ? QList{QKeySequence(shortcut.otherwise)} : keys);
}

void add_entry(QMenu& menu, const MenuRow& row, QMainWindow& window, EditorState& state,
               const Bindings& bindings) {
    QAction* action = row.caption ? menu.addAction(row.caption) : menu.addSeparator();
    action->setObjectName(row.control);
    set_shortcut(*action, row.shortcut);
    action->setStatusTip(row.tip);
    action->setToolTip(row.tip);
    if (row.command)
        QObject::connect(action, &QAction::triggered, &window,
                         [&state, &bindings, command = *row.command] {
                             bindings.edit_with_wait_cursor([&] { run_command(state, command); });
                         });
    else if (row.caption)
        QObject::connect(action, &QAction::triggered, &window, &QWidget::close);
}

} // namespace

void build_menus(QMainWindow& window, std::span<const MenuRow> rows, EditorState& state,
                 const Bindings& bindings) {
    std::vector<QMenu*> menus; // that contain the row, the outermost first
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const MenuRow& row = rows[i];
        menus.resize(static_cast<std::size_t>(row.level));
        const bool is_menu = i + 1 < rows.size() && rows[i + 1].level > row.level;
        if (!is_menu) {
            add_entry(*menus.back(), row, window, state, bindings);
            continue;
        }
        menus.push_back(menus.empty() ? window.menuBar()->addMenu(row.caption)
                                      : menus.back()->addMenu(row.caption));
        menus.back()->setObjectName(row.control);
        menus.back()->setToolTipsVisible(true);
    }
}

} // namespace veldrune
