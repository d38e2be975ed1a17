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

/// Binds widgets to the values that they show. An edit by the user writes the value and then calls
/// on_change, both through the gate. The values must outlive the widgets.
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
        QObject::connect(button, &QAbstractButton::clicked, button,
                         [this, &value, own, on_change] { edit([&] { value = own; }, on_change); });
        on_show([button, &value, own] { show_checked(button, value == own); });
    }
    /// The Tab key goes to the pressed button of a group, or to each where none is pressed. To be
    /// called after the buttons are bound. Qt cares for this only once one of them has had the
    /// focus.
    void tab_stop(QButtonGroup* group);
    /// Adds an update that every show() runs, for anything else that depends on the state.
    void on_show(Action update) { updates_.push_back(std::move(update)); }

    /// Runs write, then after, through the gate.
    void edit(const Action& write, const Action& after = {}) const;
    /// The same with a wait cursor, for edits that can take a while.
    void edit_with_wait_cursor(const Action& write) const;
    /// Updates every widget from its value, without emitting signals.
    void show() const;

  private:
    static void show_checked(QAbstractButton* button, bool checked);

    Gate gate_;
    std::vector<Action> updates_;
};

} // namespace veldrune
