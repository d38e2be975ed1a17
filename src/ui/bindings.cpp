#include "ui/bindings.h"

#include "ui/override_cursor.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSignalBlocker>

namespace veldrune {

Action bind_state(EditorState& state, void (*run)(EditorState&)) {
    if (!run)
        return {};
    return [&state, run] { run(state); };
}

void Bindings::edit(const Action& write, const Action& after) const {
    gate_([&] {
        write();
        if (after)
            after();
    });
}

void Bindings::edit_with_wait_cursor(const Action& write) const {
    edit([&] {
        const OverrideCursor busy(Qt::WaitCursor);
        write();
    });
}

void Bindings::show() const {
    for (const Action& update : updates_)
        update();
}

void Bindings::text(QLineEdit* field, std::string& value, const Action& on_change) {
    constexpr int longest_number = 16; // characters, in any form, with room for blanks
    field->setMaxLength(longest_number);
    QObject::connect(field, &QLineEdit::textEdited, field,
                     [this, &value, on_change](const QString& typed) {
                         edit([&] { value = typed.toStdString(); }, on_change);
                     });
    on_show([field, &value] {
        if (field->text().toStdString() != value)
            field->setText(QString::fromStdString(value));
    });
}

void Bindings::lines(QPlainTextEdit* field, std::string& value) {
    QObject::connect(field, &QPlainTextEdit::textChanged, field, [this, field, &value] {
        edit([&] { value = field->toPlainText().toStdString(); });
    });
    on_show([field, &value] {
        const QSignalBlocker blocked(field);
        const QString text = QString::fromStdString(value).replace("\r\n", "\n");
        if (field->toPlainText() != text)
            field->setPlainText(text);
    });
}

void Bindings::label(QLabel* label, const std::string& value) {
    on_show([label, &value] {
        if (label->text().toStdString() != value)
            label->setText(QString::fromStdString(value));
    });
}

void Bindings::box(QAbstractButton* box, bool& value, const Action& on_change) {
    QObject::connect(box, &QAbstractButton::toggled, box,
                     [this, &value, on_change](bool on) { edit([&] { value = on; }, on_change); });
    on_show([box, &value] { show_checked(box, value); });
}

void Bindings::bar(QScrollBar* bar, int& value, const int& maximum, const Action& on_change) {
    QObject::connect(bar, &QScrollBar::valueChanged, bar, [this, &value, on_change](int place) {
        edit([&] { value = place; }, on_change);
    });
    on_show([bar, &value, &maximum] {
        const QSignalBlocker blocked(bar);
        bar->setMaximum(maximum);
        bar->setValue(value);
    });
}

void Bindings::list(QComboBox* list, int& row, const Action& on_change) {
    QObject::connect(list, &QComboBox::activated, list, [this, &row, on_change](int chosen) {
        edit([&] { row = chosen; }, on_change);
    });
    on_show([list, &row] {
        const QSignalBlocker blocked(list);
        list->setCurrentIndex(row);
    });
}

void Bindings::tab_stop(QButtonGroup* group) {
    on_show([group] {
        const QAbstractButton* pressed = group->checkedButton();
        for (QAbstractButton* button : group->buttons())
            button->setFocusPolicy(!pressed || button == pressed ? Qt::StrongFocus
                                                                 : Qt::ClickFocus);
    });
}

void Bindings::enabled(QWidget* widget, const bool& value) {
    on_show([widget, &value] { widget->setEnabled(value); });
}

void Bindings::show_checked(QAbstractButton* button, bool checked) {
    const QSignalBlocker blocked(button);
    button->setChecked(checked);
}

} // namespace veldrune
