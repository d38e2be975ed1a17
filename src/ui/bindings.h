#pragma once

#include <QAbstractButton>

#include <functional>
#include <string>
#include <vector>

class QButtonGroup;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QScrollBar;

namespace veldrune {

struct EditorState;

using Action = std::function<void()>;
/// Runs an edit by the user and then updates the windows. Ignores the edit while another one is
/// running, which may be waiting for the answer to a message box.
using Gate = std::function<void(const Action& edit)>;

/// The call run(state) as an action; an empty action where run is null.
Action bind_state(EditorState& state, void (*run)(EditorState&));

/// Binds widgets to the values that they show. Every change of a widget that show() does not make
/// is an edit by the user, be it by mouse, keyboard or a screen reader: it writes the value and
/// then calls on_change, once, both through the gate. A change of a disabled or read-only widget is
/// undone. The values must outlive the widgets.
class Bindings {
  public:
    explicit Bindings(Gate edit_gate) : gate_(std::move(edit_gate)) {}
    Bindings(const Bindings&) = delete; // the widgets' signals refer to it
    Bindings& operator=(const Bindings&) = delete;

    void text(QLineEdit* field, std::string& value, const Action& on_change = {});
    void lines(QPlainTextEdit* field, std::string& value);
    void label(QLabel* label, const std::string& value);
    void box(QAbstractButton* box, bool& value, const Action& on_change = {});
    void bar(QScrollBar* bar, int& value, const int& maximum, const Action& on_change);
    /// Reacts to every choice, even of the row that is current already.
    void list(QComboBox* list, int& row, const Action& on_change = {});
    void enabled(QWidget* widget, const bool& value);
    /// A button of a group; a click, even on the checked button, sets value to own.
    template <typename T>
    void option(QAbstractButton* button, T& value, T own, const Action& on_change = {}) {
        connect_option(
            button, [&value, own] { value = own; }, on_change);
        on_show([button, &value, own] { button->setChecked(value == own); });
    }
    /// The Tab key goes to the pressed button of a group, or to each where none is pressed. To be
    /// called after the buttons are bound. Qt cares for this only once one of them has had the
    /// focus.
    void tab_stop(QButtonGroup* group);
    /// Adds an update that every show() runs, for anything else that depends on the state.
    void on_show(Action update) { updates_.push_back(std::move(update)); }

    /// Runs write, then after, through the gate.
    void edit(const Action& write, const Action& after = {}) const;
    /// The same for a change of a widget, unless show() makes it or the widget can't be edited.
    void take_change(const QWidget* widget, const Action& write, const Action& after = {}) const;
    /// Runs write through the gate with a wait cursor, for edits that can take a while.
    void edit_with_wait_cursor(const Action& write) const;
    /// Updates every widget from its value.
    void show();

  private:
    void connect_option(QAbstractButton* button, const Action& write, const Action& on_change);

    Gate gate_;
    std::vector<Action> updates_;
    bool showing_ = false; // show() is running
};

} // namespace veldrune
