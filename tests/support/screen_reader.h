#pragma once

#include <QAccessible>
#include <QApplication>
#include <QWidget>

namespace veldrune::test {

/// Works a window as a screen reader does, through what its controls offer to one.
namespace screen_reader {

inline QAccessibleInterface& on(QWidget& widget) {
    return *QAccessible::queryAccessibleInterface(&widget);
}

/// Does an action of a control: presses a button, opens a list, selects a row.
inline void act(QAccessibleInterface& control, const QString& action) {
    control.actionInterface()->doAction(action);
    QCoreApplication::processEvents();
}

/// A row of a list. Rows that were asked for before may have been replaced, which the interface
/// learns only while there is a screen reader.
inline QAccessibleInterface& row(QAccessibleInterface& list, int row) {
    QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(list.child(0)));
    return *list.child(0)->child(row);
}

/// Sets a value, a text, a row of a list, a tab or a cell, or presses an option or a box.
inline void set(QWidget& widget, const QString& value) {
    QAccessibleInterface& control = on(widget);
    if (QAccessibleEditableTextInterface* text = control.editableTextInterface())
        text->replaceText(0, control.textInterface()->characterCount(), value);
    else if (QAccessibleValueInterface* number = control.valueInterface())
        number->setCurrentValue(value.toInt());
    else if (widget.inherits("QComboBox"))
        act(row(control, value.toInt()), QAccessibleActionInterface::toggleAction());
    else if (widget.inherits("QTabBar"))
        act(*control.child(value.toInt()), QAccessibleActionInterface::pressAction());
    else
        act(control, QAccessibleActionInterface::toggleAction());
}

} // namespace screen_reader

} // namespace veldrune::test
