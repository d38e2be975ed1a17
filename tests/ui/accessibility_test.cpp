#include "support/object_image.h"
#include "support/screen_reader.h"
#include "support/window_test.h"

#include <QHeaderView>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>

#include <set>

namespace veldrune::test {
namespace {

constexpr std::pair<const char*, QAccessible::Role> roles[] = {
    {"QLineEdit", QAccessible::EditableText},   {"QPlainTextEdit", QAccessible::EditableText},
    {"QRadioButton", QAccessible::RadioButton}, {"QCheckBox", QAccessible::CheckBox},
    {"QComboBox", QAccessible::ComboBox},       {"QScrollBar", QAccessible::ScrollBar},
    {"QTabBar", QAccessible::PageTabList},      {"QPushButton", QAccessible::Button},
    {"QTableView", QAccessible::Table},         {"veldrune::PixelPicture", QAccessible::Graphic},
};

// What a control is called: by the label beside it, if any, where its own name is what it shows.
std::string name_of(QAccessibleInterface& control) {
    const auto labels = control.relations(QAccessible::Label);
    QAccessibleInterface& named = labels.isEmpty() ? control : *labels.first().first;
    return named.text(QAccessible::Name).toStdString();
}

class AccessibilityTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        for (const ObjectKind kind : all_kinds)
            put_objects(disk["a.smc"], kind, town, std::vector(2, Bytes(place_of(kind).size)));
        open_map(town);
        show_object(ObjectKind::npc);
    }
    // Does what a control offers; toggling and values are FieldsTest's.
    static void work(QWidget& widget) {
        QAccessibleInterface& control = screen_reader::on(widget);
        auto* button = qobject_cast<QPushButton*>(&widget);
        auto* list = qobject_cast<QComboBox*>(&widget);
        QSignalSpy clicked(&widget, button ? SIGNAL(clicked()) : SIGNAL(destroyed()));
        auto* actions = control.actionInterface(); // a table has none
        for (const QString& action : actions ? actions->actionNames() : QStringList()) {
            if (action == QAccessibleActionInterface::toggleAction())
                continue;
            screen_reader::act(control, action);
            if (action == QAccessibleActionInterface::setFocusAction())
                EXPECT_TRUE(widget.hasFocus());
            else if (list)
                EXPECT_TRUE(list->view()->isVisible());
            else
                EXPECT_TRUE(QTest::qWaitFor([&] { return clicked.count() == 1; }));
            if (list)
                list->hidePopup();
            WindowDriver(*widget.window()).activate();
        }
    }
    static void work_entries(QAccessibleInterface& entries) {
        for (int i = 0; i < entries.childCount(); ++i) {
            QAccessibleInterface& entry = *entries.child(i);
            if (entry.role() == QAccessible::Separator)
                continue;
            EXPECT_NE(entry.text(QAccessible::Name), "");
            auto* action = qobject_cast<QAction*>(entry.object());
            QSignalSpy triggered(action, &QAction::triggered);
            screen_reader::act(entry, entry.actionInterface()->actionNames().value(0));
            EXPECT_TRUE(action->menu() ? action->menu()->isVisible() : triggered.count() == 1)
                << qPrintable(action->text());
            if (action->menu())
                work_entries(*entry.child(0));
        }
    }
    // Works each visible control of a window while another edit keeps them from any effect.
    // Returns their names, each of which differs from the others.
    std::set<std::string> names(const QString& shown) {
        std::set<std::string> all;
        const WindowDriver works = driver(shown);
        windows.edit_gate().gate(window)([&] { work_all(shown, works, all); });
        return all;
    }
    static void work_all(const QString& shown, const WindowDriver& works,
                         std::set<std::string>& all) {
        for (QWidget* widget : visible_window(shown)->findChildren<QWidget*>())
            for (const auto& [type, role] : roles) {
                if (!widget->inherits(type) || !widget->isVisible() || widget->objectName() == "" ||
                    widget->window()->objectName() != shown)
                    continue;
                QAccessibleInterface& control = screen_reader::on(*widget);
                SCOPED_TRACE(qPrintable(widget->objectName()));
                EXPECT_EQ(control.role(), role);
                QAccessibleInterface& described = // a row of tabs has none of its own
                    role == QAccessible::PageTabList ? *control.child(0) : control;
                EXPECT_NE(described.text(QAccessible::Description), "");
                EXPECT_NE(name_of(control), "");
                EXPECT_FALSE(widget->toolTip().contains('%'));
                EXPECT_TRUE(all.insert(name_of(control)).second) << name_of(control);
                work(*widget);
            }
        for (QMenuBar* bar : visible_window(shown)->findChildren<QMenuBar*>())
            work_entries(screen_reader::on(*bar));
        while (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
        works.activate();
    }
};

TEST_F(AccessibilityTest, EveryControlHasItsNameRoleTipAndActions) {
    driver("Form10").choose("Event_Editor");
    user.click("Command1");
    driver("Form9").click("Command2");
    std::set<std::string> all;
    for (const char* shown : {"Form1", "Form8", "Form2", "Form9"})
        all.merge(names(shown));
    for (const char* name : {"Edit layer 1", "View layer 1", "Choose Tile", "Map picture",
                             "All tiles", "Tiles of layer 1", "Value", "Event Offset"})
        EXPECT_TRUE(all.contains(name)) << name;
    const WindowDriver info = driver("Form10");
    for (int tab = 0; const char* name : {"Sprite picture", "Contents", "Event Pointer",
                                          "Destination Y", "Entrance Width"}) {
        screen_reader::set(info.find("TabStrip1"), QString::number(tab));
        EXPECT_EQ(state->form10.TabStrip1, tab++);
        screen_reader::set(info.find("HScroll1"), "2");
        EXPECT_EQ(info.text("Label10"), "2");
        EXPECT_TRUE(names("Form10").contains(name)) << name;
    }
}

TEST_F(AccessibilityTest, AChoiceActsOnceWhoeverMakesIt) {
    const auto boxes_of = [&](const auto& choose) {
        state->changes_saved = false; // a choice of a map asks
        answers.answers = {false};
        answers.boxes.clear();
        choose();
        QCoreApplication::processEvents();
        return answers.boxes.size();
    };
    const int next = form.Combo1 + 1;
    EXPECT_EQ(boxes_of([&] { QTest::keyClick(&user.find("Combo1"), Qt::Key_Down); }), 1u);
    EXPECT_EQ(form.Combo1, next);
    EXPECT_EQ(boxes_of([&] { user.choose_map(next); }), 1u);
    EXPECT_EQ(boxes_of([&] { screen_reader::set(user.find("Combo1"), "7"); }), 1u);
    EXPECT_EQ(boxes_of([&] { user.choose_map(7); }), 1u);
    EXPECT_EQ(boxes_of([&] { user.choose_map(8); }), 1u);
    EXPECT_EQ(form.Combo1, 8);
    answers.boxes.clear();
    screen_reader::set(driver("Form10").find("Text7"), "G");
    EXPECT_EQ(answers.boxes, Messages{no_number("G", "hex")});

    const auto steps_of = [&](const auto& choose) {
        const std::uint64_t before = state->display.picture.version();
        choose();
        return state->display.picture.version() - before;
    };
    user.click("Option5");
    const std::uint64_t once = steps_of([&] { screen_reader::set(user.find("Option4"), ""); });
    EXPECT_GT(once, 0u);
    EXPECT_EQ(steps_of([&] { user.click("Option4"); }), once) << "the pressed button";
    user.click("Option5");
    EXPECT_EQ(steps_of([&] { user.click("Option4"); }), once);
}

TEST_F(AccessibilityTest, WhatCannotBeEditedStaysAsItIs) {
    user.choose("Dusk");
    for (const char* control : {"Text4", "Text6", "Check1", "Option2"}) {
        const auto before = std::pair(user.text(control), user.is_checked(control));
        screen_reader::set(user.find(control), "5");
        EXPECT_EQ(std::pair(user.text(control), user.is_checked(control)), before) << control;
    }
    EXPECT_NE(form.Text4 + form.Text6, "55");
}

TEST_F(AccessibilityTest, AScriptIsWrittenByItsCellsAndTheBoxSaysWhatItWaitsFor) {
    driver("Form10").choose("Event_Editor");
    const WindowDriver editor = driver("Form9");
    auto& grid = editor.find<QTableView>("grid");
    QWidget& box = editor.find("Text2");
    editor.click("Command2"); // "Add Item"
    for (const auto& [text, next] :
         {std::pair("5", "Number of Actions in Queue"), {"2", "Value"}, {"E0", "xx"}}) {
        screen_reader::set(box, text);
        QTest::keyClick(&box, Qt::Key_Return);
        EXPECT_TRUE(box.hasFocus());
        EXPECT_EQ(name_of(screen_reader::on(box)), next);
    }
    screen_reader::act(*screen_reader::on(grid).tableInterface()->cellAt(0, 0),
                       QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(box.geometry(), grid.visualRect(grid.model()->index(0, 0)));
    EXPECT_EQ(state->form9.grid_row, 1);
}

TEST_F(AccessibilityTest, TheScriptsColumnsAndHeadersFollowTheFont) {
    driver("Form10").choose("Event_Editor");
    auto& grid = driver("Form9").find<QTableView>("grid");
    const int width = grid.columnWidth(0), row = grid.rowHeight(1);
    QFont large = grid.font();
    large.setPointSize(3 * large.pointSize());
    grid.setFont(large);
    EXPECT_GE(grid.columnWidth(0), 2 * width);
    EXPECT_GE(grid.rowHeight(1), 2 * row);
    EXPECT_GE(grid.horizontalHeader()->height(), 2 * QFontMetrics(large).lineSpacing());
    EXPECT_GE(grid.columnWidth(1), QFontMetrics(large).horizontalAdvance("Secondary"));
}

} // namespace
} // namespace veldrune::test
