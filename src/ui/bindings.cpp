#include "ui/bindings.h"

#include "ui/override_cursor.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSignalBlocker>

namespace veldrune {

Action following(EditorState& state, void (*then)(EditorState&)) {
    if (!then)
        return {};
    return [&state, then] { then(state); };
}

void Bindings::edit(const Action& write, const Action& then) const {
    gate_([&] {
        write();
        if (then)
            then();
    });
}

void Bindings::edit_busily(const Action& write) const {
    edit([&] {
        const OverrideCursor busy(Qt::WaitCursor);
        write();
    });
}

void Bindings::show() const {
    for (const Action& rule : rules_)
        rule();
}

void Bindings::text(QLineEdit* field, std::string& value, const Action& then) {
    QObject::connect(field, &QLineEdit::textEdited, field,
                     [this, &value, then](const QString& typed) {
                         edit([&] { value = typed.toStdString(); }, then);
                     });
    rule([field, &value] {
        if (field->text().toStdString() != value)
            field->setText(QString::fromStdString(value));
    });
}

void Bindings::lines(QPlainTextEdit* field, std::string& value) {
    QObject::connect(field, &QPlainTextEdit::textChanged, field, [this, field, &value] {
        edit([&] { value = field->toPlainText().toStdString(); });
    });
    rule([field, &value] {
        const QSignalBlocker blocked(field);
        const QString text = QString::fromStdString(value).replace("\r\n", "\n");
        if (field->toPlainText() != text)
            field->setPlainText(text);
    });
}

void Bindings::label(QLabel* label, const std::string& value) {
    rule([label, &value] {
        if (label->text().toStdString() != value)
            label->setText(QString::fromStdString(value));
    });
}

void Bindings::box(QAbstractButton* box, bool& value, const Action& then) {
    QObject::connect(box, &QAbstractButton::toggled, box,
                     [this, &value, then](bool on) { edit([&] { value = on; }, then); });
    rule([box, &value] { show_checked(box, value); });
}

void Bindings::bar(QScrollBar* bar, int& value, const int& maximum, const Action& then) {
    QObject::connect(bar, &QScrollBar::valueChanged, bar,
                     [this, &value, then](int place) { edit([&] { value = place; }, then); });
    rule([bar, &value, &maximum] {
        const QSignalBlocker blocked(bar);
        bar->setMaximum(maximum);
        bar->setValue(value);
    });
}

void Bindings::list(QComboBox* list, int& row, const Action& then) {
    QObject::connect(list, &QComboBox::activated, list,
                     [this, &row, then](int chosen) { edit([&] { row = chosen; }, then); });
    rule([list, &row] {
        const QSignalBlocker blocked(list);
        list->setCurrentIndex(row);
    });
}

void Bindings::enabled(QWidget* widget, const bool& value) {
    rule([widget, &value] { widget->setEnabled(value); });
}

void Bindings::show_checked(QAbstractButton* button, bool checked) {
    const QSignalBlocker blocked(button);
    button->setChecked(checked);
}

} // namespace veldrune
