#pragma once

#include "editor/editor_state.h"
#include "ui/bindings.h"
#include "ui/form1_controls.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>

namespace veldrune {

/// Makes the main window's widgets from their rows and binds them to the state. A widget's object
/// name is its control's name.
struct Controls {
    EditorState& state;
    Bindings& bindings;

    QLineEdit* field(const FieldRow& row) const;
    QCheckBox* box(const BoxRow& row) const;
    QLabel* label(const char* control, const char* caption) const;
    QLabel* value_label(const char* control, const std::string Form1::*value) const;
    QScrollBar* bar(const char* control, Qt::Orientation direction, ScrollBar Form1::*value,
                    void (*then)(EditorState&)) const;
    /// Makes button run its command.
    void button(QPushButton* button, const ButtonRow& row) const;
    template <typename T>
    QRadioButton* option(const OptionRow<T>& row) const {
        auto* made = new QRadioButton(row.caption);
        dress(made, row.control, row.tip, row.map_only);
        bindings.option(made, state.form1.*row.value, row.own, following(state, row.then));
        return made;
    }

    void dress(QWidget* widget, const char* control, const char* tip, bool map_only) const;
};

} // namespace veldrune
