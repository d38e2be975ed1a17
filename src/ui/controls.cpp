#include "ui/controls.h"

#include "editor/field_mark.h"
#include "ui/emphasis.h"
#include "ui/tips.h"

#include <utility>

namespace veldrune {

void Controls::set_up(QWidget* widget, const char* control, const QString& tip,
                      bool map_only) const {
    widget->setObjectName(control);
    widget->setToolTip(tip);
    if (map_only)
        bindings.enabled(widget, state.form1.map_fields_enabled);
}

QLineEdit* Controls::field(std::string Form1::*text, const char* meaning, bool map_only,
                           std::int64_t limit) const {
    const TextRow<Form1>& row = text_row(text);
    const RecordRow* record = record_row_of(text);
    auto* widget = new QLineEdit;
    set_up(widget, row.control,
           number_tip(meaning, row.form, limit, record ? record->bits.mask() : 0), map_only);
    bindings.text(widget, state.form1.*text);
    bindings.on_show([widget, text, &held = state] { mark_field(widget, field_mark(held, text)); });
    return widget;
}

QCheckBox* Controls::box(const BoxRow& row) const {
    auto* widget = new QCheckBox(row.caption);
    set_up(widget, row.control, row.tip, row.map_only);
    widget->setAccessibleName(row.name);
    bindings.box(widget, state.form1.*row.value, bind_state(state, row.on_change));
    return widget;
}

QLabel* Controls::label(const char* control, const char* caption) const {
    auto* widget = new QLabel(caption);
    widget->setObjectName(control);
    return widget;
}

QLabel* Controls::value_label(std::string Form1::*text) const {
    QLabel* widget = label(text_row(text).control, "");
    widget->setTextFormat(Qt::PlainText);
    bindings.label(widget, state.form1.*text);
    return widget;
}

QScrollBar* Controls::bar(const char* control, Qt::Orientation direction, ScrollBar Form1::*value,
                          void (*on_change)(EditorState&)) const {
    auto* widget = new QScrollBar(direction);
    widget->setObjectName(control);
    widget->setAccessibleName(direction == Qt::Horizontal ? "First column in view"
                                                          : "First row in view");
    widget->setToolTip(direction == Qt::Horizontal ? "Scrolls the picture sideways by tiles."
                                                   : "Scrolls the picture up and down by tiles.");
    widget->setPageStep(16);
    ScrollBar& held = state.form1.*value;
    bindings.bar(widget, held.value, held.maximum, bind_state(state, on_change));
    bindings.on_show([widget, &held] { widget->setVisible(held.visible); });
    return widget;
}

// An icon follows the colours of its button.
void Controls::show_icon(QAbstractButton* button, Icon icon) const {
    if (icon == Icon::none)
        return;
    const Action draw = [button, icon, drawn_for = qint64{0}]() mutable {
        const qint64 colours = button->palette().cacheKey();
        if (std::exchange(drawn_for, colours) != colours)
            button->setIcon(tool_icon(icon, button->palette()));
    };
    draw(); // it counts in the window's first size
    bindings.on_show(draw);
}

void Controls::button(QPushButton* button, const ButtonRow& row) const {
    set_up(button, row.control, row.tip, row.map_only);
    button->setAccessibleName(row.caption);
    show_icon(button, row.icon);
    QObject::connect(button, &QPushButton::clicked, button,
                     [edits = &bindings, this_state = &state, command = row.command] {
                         edits->edit_with_wait_cursor([&] { run_command(*this_state, command); });
                     });
}

} // namespace veldrune
