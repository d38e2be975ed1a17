#include "ui/event_window.h"

#include "editor/event_editor.h"
#include "editor/field_mark.h"
#include "editor/script_status.h"
#include "ui/emphasis.h"
#include "ui/menus.h"
#include "ui/screen_place.h"
#include "ui/script_view.h"
#include "ui/tips.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>

namespace veldrune {

namespace {

constexpr MenuRow menu_rows[] = {
    {0, "File", "&File"},
    {1, "Save", "&Save", Command::save_script, save_keys,
     "Writes the script over the one at the chosen object's offset at once."},
};

constexpr int status_gap = 20;

struct ScriptButton {
    const char* control;
    const char* caption;
    const char* tip;
    void (*run)(EditorState&);
};
// clang-format off
constexpr ScriptButton script_buttons[] = {
    {"Command2", "&Add Item",    "Makes room for a new command above the next one.", add_script_item},
    {"Command1", "&Remove Item", "Removes the marked command.",                      remove_script_item},
};
// clang-format on

QLabel* make_status_label(const char* name, const char* tip) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setToolTip(tip);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

EventWindow::EventWindow(EditorState& state, EditGate& gate)
    : SideWindow(state, gate, state.form9.visible, close_event_editor, nullptr, Qt::Window),
      grid_(new ScriptView(state, bindings_)) {
    setObjectName("Form9");
    setWindowTitle("Event Editor");
    build_menus(*this, menu_rows, state, bindings_);
    show_hints();
    auto* panel = new QWidget;
    auto* column = new QVBoxLayout(panel);
    column->addLayout(make_bar());
    column->addWidget(grid_, 1);
    column->addLayout(make_status());
    setCentralWidget(panel);
    fit_to_screen(*this);
    bindings_.on_show([this] { show_script(); });
    bind_raise_request(state.form9.raise_requested);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this,
            [this] { bindings_.edit(bind_state(state_, on_script_escape)); });
}

QLayout* EventWindow::make_bar() {
    auto* bar = new QHBoxLayout;
    for (const ScriptButton& row : script_buttons) {
        auto* button = new QPushButton(row.caption);
        button->setObjectName(row.control);
        button->setToolTip(row.tip);
        button->setFocusPolicy(Qt::TabFocus); // mouse and access key leave the focus in the grid
        connect(button, &QPushButton::clicked, this,
                [this, run = row.run] { bindings_.edit(bind_state(state_, run)); });
        bar->addWidget(button);
    }
    auto* offset = new QLineEdit;
    const TextRow<Form9>& row = text_row(&Form9::Text3);
    offset->setObjectName(row.control);
    offset->setToolTip(
        number_tip("Where the script lies in the file; Enter loads the one there.", row.form));
    offset->setFixedWidth(offset->fontMetrics().horizontalAdvance("0000000000"));
    bindings_.text(offset, state_.form9.Text3);
    bindings_.on_show(
        [offset, &text = state_.form9.Text3] { mark_field(offset, offset_mark(text)); });
    connect(offset, &QLineEdit::returnPressed, this,
            [this] { bindings_.edit(bind_state(state_, on_script_offset_enter)); });
    auto* label = new QLabel("Event &Offset");
    label->setObjectName("Label1");
    label->setBuddy(offset);
    bar->addStretch(1);
    bar->addWidget(label);
    bar->addWidget(offset);
    return bar;
}

QLayout* EventWindow::make_status() {
    auto* bar = new QHBoxLayout;
    auto* place = make_status_label("Place", "Where File > Save writes the script. Hexadecimal.");
    bindings_.on_show([this, place] {
        const SavePlace save = save_place(state_);
        place->setText(QString::fromStdString(save.text));
        show_tint(*place, save.elsewhere);
    });
    size_ = make_status_label("Size", "Bytes that a save would write, of those that were loaded. "
                                      "It can't write more. Decimal.");
    changed_ = make_status_label("Changed", "Some values of the grid are not as they were loaded.");
    changed_->setText("* differs from what was loaded");
    show_tint(*changed_, true);
    for (QLabel* label : {place, size_, changed_})
        bar->addWidget(label);
    bar->addStretch(1);
    bar->setSpacing(status_gap);
    return bar;
}

// A newly loaded script is scrolled to its beginning.
void EventWindow::show_script() {
    const Form9& form = state_.form9;
    const bool loaded = std::exchange(shown_load_, form.load_count) != form.load_count;
    if (!loaded && shown_work_ == form.operation_count)
        return;
    shown_work_ =
        gate_.busy() ? -1 : form.operation_count; // still running while a message box is open
    grid_->show_changes();
    show_grid_status();
    if (loaded)
        grid_->show_beginning();
}

void EventWindow::show_grid_status() {
    const GridStatus status = grid_status(state_);
    size_->setText(QString::fromStdString(status.size));
    show_tint(*size_, status.too_long);
    changed_->setVisible(status.changed);
}

} // namespace veldrune
