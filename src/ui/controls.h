#pragma once

#include "editor/commands.h"
#include "editor/editor_state.h"
#include "ui/bindings.h"
#include "ui/icons.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>

namespace veldrune {

/// The layers in the captions of buttons and boxes.
inline constexpr const char* layer_captions[layer_count] = {"Layer 1", "Layer 2", "Layer 3"};

/// Each row describes a control. tip is its tool tip; map_only controls are disabled while a world
/// map is shown; on_change is called after a change by the user and may be null; name is what
/// screen readers say, null for the caption.
template <typename T>
struct OptionRow {
    const char* control;
    const char* caption;
    T Form1::*value;
    T own; // what the button sets the value to
    bool map_only;
    void (*on_change)(EditorState&);
    const char* tip;
    Icon icon = Icon::none;
    const char* name = nullptr;
};

struct BoxRow {
    const char* control;
    const char* caption;
    bool Form1::*value;
    bool map_only;
    void (*on_change)(EditorState&);
    const char* tip;
    const char* name = nullptr;
};

struct ButtonRow {
    const char* control;
    const char* caption;
    Command command;
    bool map_only;
    const char* tip;
    Icon icon = Icon::none;
};

/// Makes the main window's widgets from their rows and binds them to the state. A widget's object
/// name is its control's name.
struct Controls {
    EditorState& state;
    Bindings& bindings;

    /// The tool tip is number_tip of meaning, limit and the bits of the text in the map's record.
    QLineEdit* field(std::string Form1::*text, const char* meaning, bool map_only,
                     std::int64_t limit = 0) const;
    QCheckBox* box(const BoxRow& row) const;
    QLabel* label(const char* control, const char* caption) const;
    QLabel* value_label(std::string Form1::*text) const;
    QScrollBar* bar(const char* control, Qt::Orientation direction, ScrollBar Form1::*value,
                    void (*on_change)(EditorState&)) const;
    /// Makes button run its command.
    void button(QPushButton* button, const ButtonRow& row) const;
    template <typename T>
    QRadioButton* option(const OptionRow<T>& row) const {
        auto* widget = new QRadioButton(row.caption);
        set_up(widget, row.control, row.tip, row.map_only);
        widget->setAccessibleName(row.name);
        show_icon(widget, row.icon);
        bindings.option(widget, state.form1.*row.value, row.own, bind_state(state, row.on_change));
        return widget;
    }

  private:
    void show_icon(QAbstractButton* button, Icon icon) const;
    void set_up(QWidget* widget, const char* control, const QString& tip, bool map_only) const;
};

} // namespace veldrune
