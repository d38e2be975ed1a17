#include "ui/bindings.h"

#include "ui/override_cursor.h"

#include <QAbstractItemView>
#include <QButtonGroup>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <utility>

namespace veldrune {

namespace {

// Acts once on a choice, which signals the change that it makes, if any, and then itself. A screen
// reader makes changes without a choice. What has been acted on is forgotten when all signals of an
// event have come.
class OncePerChoice : public QObject {
  public:
    explicit OncePerChoice(QObject* widget) : QObject(widget) {}
    void on_change(const Action& act) {
        act();
        acted_ = true;
        QMetaObject::invokeMethod(
            this, [this] { acted_ = false; }, Qt::QueuedConnection);
    }
    void on_choice(const Action& act) {
        if (!std::exchange(acted_, false))
            act();
    }

  private:
    bool acted_ = false;
};

// Leaves dropped files to the window, which opens them as copies. A field would take their names,
// or the files themselves by a move, after which the source deletes them.
class NoFiles : public QObject {
  public:
    using QObject::QObject;
    bool eventFilter(QObject*, QEvent* event) override {
        const bool refuses = event->type() == QEvent::DragEnter &&
                             static_cast<QDragEnterEvent*>(event)->mimeData()->hasUrls();
        if (refuses)
            event->ignore();
        return refuses;
    }
};

// Shows a row, also as the one selected in the rows of a closed list.
void show_row(QComboBox& list, int row) {
    list.setCurrentIndex(row);
    const QAbstractItemView& rows = *list.view();
    if (!rows.isVisible())
        rows.selectionModel()->setCurrentIndex(rows.model()->index(row, 0),
                                               QItemSelectionModel::ClearAndSelect);
}

// Chooses the row that is selected in the rows of a list, and is not the one that mouse and
// keyboard have moved to.
void choose_selected_row(QComboBox& list) {
    const QModelIndexList rows = list.view()->selectionModel()->selectedIndexes();
    if (rows.size() != 1 || rows[0] == list.view()->currentIndex())
        return;
    list.setCurrentIndex(rows[0].row());
    list.hidePopup();
}

} // namespace

Action bind_state(EditorState& state, void (*run)(EditorState&)) {
    if (!run)
        return {};
    return [&state, run] { run(state); };
}

void Bindings::edit(const Action& write, const Action& after) const {
    gate_([&] {
        write();
        if (after)
            after();
    });
}

void Bindings::edit_with_wait_cursor(const Action& write) const {
    edit([&] {
        const OverrideCursor busy(Qt::WaitCursor);
        write();
    });
}

void Bindings::take_change(const QWidget* widget, const Action& write, const Action& after) const {
    if (showing_)
        return;
    if (widget->isEnabled() && !widget->property("readOnly").toBool())
        edit(write, after);
    else
        edit([] {}); // shows the value again
}

void Bindings::show() {
    const QScopedValueRollback showing(showing_, true);
    for (const Action& update : updates_)
        update();
}

void Bindings::text(QLineEdit* field, std::string& value, const Action& on_change) {
    constexpr int longest_number = 16; // characters, in any form, with room for blanks
    field->setMaxLength(longest_number);
    field->installEventFilter(new NoFiles(field));
    QObject::connect(field, &QLineEdit::textChanged, field,
                     [this, field, &value, on_change](const QString& text) {
                         take_change(
                             field, [&] { value = text.toStdString(); }, on_change);
                     });
    on_show([field, &value] {
        if (field->text().toStdString() != value)
            field->setText(QString::fromStdString(value));
    });
}

void Bindings::lines(QPlainTextEdit* field, std::string& value) {
    field->viewport()->installEventFilter(new NoFiles(field));
    QObject::connect(field, &QPlainTextEdit::textChanged, field, [this, field, &value] {
        take_change(field, [&] { value = field->toPlainText().toStdString(); });
    });
    on_show([field, &value] {
        const QString text = QString::fromStdString(value).replace("\r\n", "\n");
        if (field->toPlainText() != text)
            field->setPlainText(text);
    });
}

void Bindings::label(QLabel* label, const std::string& value) {
    on_show([label, &value] {
        if (label->text().toStdString() != value)
            label->setText(QString::fromStdString(value));
    });
}

void Bindings::box(QAbstractButton* box, bool& value, const Action& on_change) {
    QObject::connect(box, &QAbstractButton::toggled, box, [this, box, &value, on_change](bool on) {
        take_change(
            box, [&] { value = on; }, on_change);
    });
    on_show([box, &value] { box->setChecked(value); });
}

void Bindings::connect_option(QAbstractButton* button, const Action& write,
                              const Action& on_change) {
    const auto press = [this, button, write, on_change] { take_change(button, write, on_change); };
    auto* once = new OncePerChoice(button);
    QObject::connect(button, &QAbstractButton::toggled, once, [this, once, press](bool on) {
        if (on && !showing_)
            once->on_change(press);
    });
    QObject::connect(button, &QAbstractButton::clicked, once,
                     [once, press] { once->on_choice(press); });
}

void Bindings::bar(QScrollBar* bar, int& value, const int& maximum, const Action& on_change) {
    QObject::connect(bar, &QScrollBar::valueChanged, bar,
                     [this, bar, &value, on_change](int place) {
                         take_change(
                             bar, [&] { value = place; }, on_change);
                     });
    on_show([bar, &value, &maximum] {
        bar->setMaximum(maximum);
        bar->setValue(value);
    });
}

void Bindings::list(QComboBox* list, int& row, const Action& on_change) {
    const auto choose = [this, list, &row, on_change](int chosen) {
        take_change(
            list, [&] { row = chosen; }, on_change);
    };
    auto* once = new OncePerChoice(list);
    QObject::connect(list, &QComboBox::currentIndexChanged, once, [this, once, choose](int chosen) {
        if (!showing_)
            once->on_change([&] { choose(chosen); });
    });
    QObject::connect(list, &QComboBox::activated, once,
                     [once, choose](int chosen) { once->on_choice([&] { choose(chosen); }); });
    // Queued, since mouse and keyboard first select a row and then move to it.
    QObject::connect(
        list->view()->selectionModel(), &QItemSelectionModel::selectionChanged, list,
        [list] { choose_selected_row(*list); }, Qt::QueuedConnection);
    on_show([list, &row] { show_row(*list, row); });
}

void Bindings::tab_stop(QButtonGroup* group) {
    on_show([group] {
        const QAbstractButton* pressed = group->checkedButton();
        for (QAbstractButton* button : group->buttons())
            button->setFocusPolicy(!pressed || button == pressed ? Qt::StrongFocus
                                                                 : Qt::ClickFocus);
    });
}

void Bindings::enabled(QWidget* widget, const bool& value) {
    on_show([widget, &value] { widget->setEnabled(value); });
}

} // namespace veldrune
