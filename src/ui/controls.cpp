#include "ui/controls.h"

#include "ui/tips.h"

namespace veldrune {

void Controls::dress(QWidget* widget, const char* control, const QString& tip,
                     bool map_only) const {
    widget->setObjectName(control);
    widget->setToolTip(tip);
    if (map_only)
        bindings.enabled(widget, state.form1.map_fields_enabled);
}

QLineEdit* Controls::field(std::string Form1::*text, const char* meaning, bool map_only) const {
    const TextRow<Form1>& row = text_row(text);
    auto* made = new QLineEdit;
    dress(made, row.control, number_tip(meaning, row.form), map_only);
    bindings.text(made, state.form1.*text);
    return made;
}

QCheckBox* Controls::box(const BoxRow& row) const {
    auto* made = new QCheckBox(row.caption);
    dress(made, row.control, row.tip, row.map_only);
    bindings.box(made, state.form1.*row.value, following(state, row.then));
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
    made->setPageStep(16);
    ScrollBar& held = state.form1.*value;
    bindings.bar(made, held.value, held.maximum, following(state, then));
    bindings.rule([made, &held] { made->setVisible(held.visible); });
    return made;
}

void Controls::button(QPushButton* button, const ButtonRow& row) const {
    dress(button, row.control, row.tip, row.map_only);
    button->setAccessibleName(row.caption);
    button->setIcon(tool_icon(row.icon, button->palette()));
    QObject::connect(button, &QPushButton::clicked, button,
                     [edits = &bindings, this_state = &state, command = row.command] {
                         edits->edit_busily([&] { run_command(*this_state, command); });
                     });
}

} // namespace veldrune
