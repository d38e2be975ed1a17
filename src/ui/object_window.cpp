#include "ui/object_window.h"

#include "editor/object_window.h"
#include "ui/emphasis.h"
#include "ui/focused_wheel.h"
#include "ui/main_window.h"
#include "ui/menus.h"
#include "ui/object_panel.h"
#include "ui/screen_place.h"
#include "ui/tips.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QTabBar>

namespace veldrune {

namespace {

// clang-format off
constexpr MenuRow menu_rows[] = {
    {0, "File",         "&File"},
    {1, "Save",         "&Save",         Command::save_object, save_keys, "Writes the record that is shown into the image at once."},
    {0, "Event",        "&Event"},
    {1, "Event_Editor", "Event &Editor", Command::open_event_editor, {}, "Opens the script of this object. Nothing is written."},
};
// clang-format on
constexpr const char* tab_captions[object_tab_count] = {"NPC's", "Chests", "Events", "Entrances",
                                                        "Long Entrances"};
constexpr int records_per_page = 5;

// A scroll bar that the arrow keys move in the direction that they show. Qt inverts the keys of a
// scroll bar, which is right for Up and Down and wrong for Left and Right.
class RecordScrollBar : public FocusedWheel<QScrollBar> {
  protected:
    void keyPressEvent(QKeyEvent* event) override {
        setInvertedControls(event->key() != Qt::Key_Left && event->key() != Qt::Key_Right);
        QScrollBar::keyPressEvent(event);
        setInvertedControls(true);
    }
};

QTabBar* make_tabs(EditorState& state, Bindings& bindings) {
    auto* tabs = new FocusedWheel<QTabBar>;
    tabs->setObjectName("TabStrip1");
    tabs->setAccessibleName("Kind of object");
    tabs->setExpanding(false);
    for (const char* caption : tab_captions)
        tabs->setTabToolTip(tabs->addTab(caption), "Shows the map's first record of this kind.");
    const auto choose = [&state, &bindings, tabs](int tab) {
        bindings.take_change(
            tabs, [&] { state.form10.TabStrip1 = tab; }, bind_state(state, on_object_tab));
    };
    QObject::connect(tabs, &QTabBar::currentChanged, tabs, choose);
    // Without a record, a click on the current tab loads its first record. The signal comes for
    // every mouse button.
    QObject::connect(tabs, &QTabBar::tabBarClicked, tabs, [&state, choose](int tab) {
        if (QGuiApplication::mouseButtons() & Qt::LeftButton && tab == state.form10.TabStrip1 &&
            !state.objects.selected_object.index)
            choose(tab);
    });
    bindings.on_show([tabs, &tab = state.form10.TabStrip1] { tabs->setCurrentIndex(tab); });
    return tabs;
}

QScrollBar* make_record_bar(EditorState& state, Bindings& bindings) {
    auto* bar = new RecordScrollBar;
    bar->setObjectName("HScroll1");
    bar->setAccessibleName("Record");
    bar->setToolTip("Walks through the map's records of this kind. Decimal, from 1.");
    bar->setOrientation(Qt::Horizontal);
    bar->setMinimum(1);
    bar->setPageStep(records_per_page);
    RecordBar& held = state.form10.HScroll1;
    bindings.bar(bar, held.value, held.maximum, bind_state(state, on_record_scroll));
    bindings.on_show([bar, &held] { bar->setEnabled(held.maximum > bar->minimum()); });
    return bar;
}

QLabel* make_record_number(EditorState& state, Bindings& bindings) {
    auto* number = new QLabel;
    const TabTextRow& row = text_row(&Form10::Label10);
    number->setObjectName(row.control);
    number->setToolTip(number_tip("Number of the record.", row.forms[0]));
    number->setMinimumWidth(number->fontMetrics().horizontalAdvance("0000"));
    number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    bindings.label(number, state.form10.Label10);
    return number;
}

// Always there, so that the fields stay where they are.
QLabel* make_list_line(const ObjectStatus& status, Bindings& bindings) {
    auto* line = new QLabel;
    line->setObjectName("ListLine");
    bindings.on_show([line, &status] {
        line->setText(status.list_outdated ? "The image has the saved values, the list the old "
                                             "ones until the next build."
                                           : "");
        show_tint(*line, status.list_outdated);
    });
    return line;
}

} // namespace

ObjectWindow::ObjectWindow(EditorState& state, EditGate& gate, const QWidget& main_window)
    : SideWindow(state, gate, state.form10.visible, close_object_window, nullptr, Qt::Window) {
    setObjectName("Form10");
    setWindowTitle("Object Info");
    build_menus(*this, menu_rows, state, bindings_);
    show_hints();
    build_panel();
    bindings_.show();
    bind_raise_request(state.form10.raise_requested);
    // There it covers little of the map picture.
    place_on_screen(*this, main_window.frameGeometry(), Qt::AlignRight | Qt::AlignBottom);
}

void ObjectWindow::build_panel() {
    bindings_.on_show([this] { status_ = object_status(state_); });
    auto* panel = new QWidget;
    auto* column = new QVBoxLayout(panel);
    auto* record = new QHBoxLayout;
    column->addWidget(make_tabs(state_, bindings_));
    record->addWidget(make_record_bar(state_, bindings_), 1);
    record->addWidget(make_record_number(state_, bindings_));
    column->addLayout(record);
    column->addWidget(make_object_panel(state_, bindings_, status_), 1);
    column->addWidget(make_list_line(status_, bindings_));
    setCentralWidget(new ScrolledPanel(panel));
}

} // namespace veldrune
