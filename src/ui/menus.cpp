#include "ui/menus.h"

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include <string_view>

namespace veldrune {

namespace {

struct Shortcut {
    std::string_view control;
    QKeySequence::StandardKey key;
    const char* otherwise; // on platforms that have no standard for it
};
constexpr Shortcut shortcuts[] = {
    {"Open", QKeySequence::Open, "Ctrl+O"},
    {"Save", QKeySequence::Save, "Ctrl+S"},
    {"SaveAs", QKeySequence::SaveAs, "Ctrl+Shift+S"},
    {"Exit", QKeySequence::Quit, "Ctrl+Q"},
};

void set_shortcut(QAction& action, std::string_view control) {
    for (const Shortcut& shortcut : shortcuts) {
        if (shortcut.control != control)
            continue;
        const QList<QKeySequence> keys = QKeySequence::keyBindings(shortcut.key);
        action.setShortcuts(keys.isEmpty() ? QList{QKeySequence(shortcut.otherwise)} : keys);
    }
}

bool is_menu(const Command& command, std::span<const Command> commands) {
    for (const Command& other : commands)
        if (std::string_view(other.menu) == command.control)
            return true;
    return false;
}

void connect_entry(QAction& action, const Command& command, QMainWindow& window, EditorState& state,
                   const Bindings& bindings) {
    if (std::string_view(command.control) == "Exit")
        QObject::connect(&action, &QAction::triggered, &window, &QWidget::close);
    if (!command.run)
        return;
    QObject::connect(&action, &QAction::triggered, &window, [&state, &bindings, &command] {
        bindings.edit_busily([&] { run_command(state, command.guard, command.run); });
    });
}

/// Fills menu, or the bar, with the commands that stand in the menu of that control name.
template <typename Menu>
void fill(Menu& menu, std::string_view control, std::span<const Command> commands,
          QMainWindow& window, EditorState& state, const Bindings& bindings) {
    for (const Command& command : commands) {
        if (command.menu != control)
            continue;
        if (is_menu(command, commands)) {
            QMenu* inner = menu.addMenu(command.caption);
            inner->setObjectName(command.control);
            fill(*inner, command.control, commands, window, state, bindings);
            continue;
        }
        const bool separator = std::string_view(command.caption) == "-";
        QAction* action = separator ? menu.addSeparator() : menu.addAction(command.caption);
        action->setObjectName(command.control);
        set_shortcut(*action, command.control);
        connect_entry(*action, command, window, state, bindings);
    }
}

} // namespace

void build_menus(QMainWindow& window, std::span<const Command> commands, EditorState& state,
                 const Bindings& bindings) {
    fill(*window.menuBar(), "", commands, window, state, bindings);
}

} // namespace veldrune
