#pragma once

#include <QAbstractButton>

#include <functional>
#include <string>
#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QScrollBar;

namespace veldrune {

struct EditorState;

using Action = std::function<void()>;
/// Runs an edit of the user, unless another one still runs behind a message box, and shows the
/// state that it leaves.
using Gate = std::function<void(const Action& edit)>;

/// What follows an edit: then on the state, or nothing.
Action following(EditorState& state, void (*then)(EditorState&));

/// Ties widgets to the values that they show. An edit by the user writes the value and then runs
/// what follows from it, both through the gate. The values must outlive the widgets.
class Bindings {
  public:
    explicit Bindings(Gate edit_gate) : gate_(std::move(edit_gate)) {}
    Bindings(const Bindings&) = delete; // the widgets' signals lead here
    Bindings& operator=(const Bindings&) = delete;

    void text(QLineEdit* field, std::string& value, const Action& then = {});
    void lines(QPlainTextEdit* field, std::string& value);
    void label(QLabel* label, const std::string& value);
    void box(QAbstractButton* box, bool& value, const Action& then = {});
    void bar(QScrollBar* bar, int& value, const int& maximum, const Action& then);
    /// Acts on every choice, of the row that is current already too.
    void list(QComboBox* list, int& row, const Action& then = {});
    void enabled(QWidget* widget, const bool& value);
    /// A button of a group that sets value to its own one. Acts on a click of the button that is
    /// pressed already, too.
    template <typename T>
    void option(QAbstractButton* button, T& value, T own, const Action& then = {}) {
        QObject::connect(button, &QAbstractButton::clicked, button,
                         [this, &value, own, then] { edit([&] { value = own; }, then); });
        rule([button, &value, own] { show_checked(button, value == own); });
    }
    /// Anything else that the window derives from the state.
    void rule(Action show) { rules_.push_back(std::move(show)); }

    /// Runs an edit through the gate.
    void edit(const Action& write, const Action& then = {}) const;
    /// The same for what can take longer than a blink: the pointer says "wait" meanwhile.
    void edit_busily(const Action& write) const;
    /// Brings every widget in line with its value, without its signals.
    void show() const;

  private:
    static void show_checked(QAbstractButton* button, bool checked);

    Gate gate_;
    std::vector<Action> rules_;
};

} // namespace veldrune
