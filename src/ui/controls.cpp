#include "ui/controls.h"

#include "editor/commands.h"
#include "ui/qt_dialogs.h"

#include <string_view>

namespace veldrune {

namespace {

const ButtonCommand* button_command(std::string_view control) {
    for (const ButtonCommand& command : button_commands())
        if (command.control == control)
            return &command;
    return nullptr;
}

} // namespace

void Controls::dress(QWidget* widget, const char* control, const char* tip, bool map_only) const {
    widget->setObjectName(control);
    widget->setToolTip(tip);
    if (map_only)
        bindings.enabled(widget, state.form1.map_fields_enabled);
}

Action Controls::following(void (*then)(EditorState&)) const {
    if (!then)
        return {};
    return [this_state = &state, then] { then(*this_state); };
}

QLineEdit* Controls::field(const FieldRow& row) const {
    auto* made = new QLineEdit;
    dress(made, row.control, row.tip, row.map_only);
    made->setAccessibleName(QString("%1 %2").arg(row.caption, row.part).trimmed());
    made->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // as wide as its column
    bindings.text(made, state.form1.*row.text);
    return made;
}

QCheckBox* Controls::box(const BoxRow& row) const {
    auto* made = new QCheckBox(row.caption);
    dress(made, row.control, row.tip, row.map_only);
    bindings.box(made, state.form1.*row.value, following(row.then));
    return made;
}

QLabel* Controls::label(const char* control, const char* caption) const {
    auto* made = new QLabel(caption);
    made->setObjectName(control);
    return made;
}

QLabel* Controls::value_label(const char* control, const std::string Form1::*value) const {
    QLabel* made = label(control, "");
    made->setTextFormat(Qt::PlainText);
    bindings.label(made, state.form1.*value);
    return made;
}

QScrollBar* Controls::bar(const char* control, Qt::Orientation direction, ScrollBar Form1::*value,
                          void (*then)(EditorState&)) const {
    auto* made = new QScrollBar(direction);
    made->setObjectName(control);
    made->setAccessibleName(direction == Qt::Horizontal ? "First column in view"
                                                        : "First row in view");
    made->setSingleStep(1);
    made->setPageStep(16);
    bindings.bar(made, state.form1.*value, following(then));
    return made;
}

void Controls::button(QPushButton* button, const ButtonRow& row) const {
    dress(button, row.control, row.tip, row.map_only);
    button->setAccessibleName(row.caption);
    const ButtonCommand* command = button_command(row.control);
    if (!command || !command->run)
        return;
    QObject::connect(button, &QPushButton::clicked, button,
                     [this_state = &state, command, edits = &bindings] {
                         edits->edit([&] {
                             const BusyCursor busy;
                             run_command(*this_state, command->guard, command->run);
                         });
                     });
}

} // namespace veldrune
