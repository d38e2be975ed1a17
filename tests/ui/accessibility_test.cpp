#include "support/object_image.h"
#include "support/screen_reader.h"
#include "support/window_test.h"

#include <QHeaderView>
#include <QTableView>

#include <set>

namespace veldrune::test {
namespace {

constexpr std::pair<const char*, QAccessible::Role> roles[] = {
    {"QLineEdit", QAccessible::EditableText},   {"QPlainTextEdit", QAccessible::EditableText},
    {"QRadioButton", QAccessible::RadioButton}, {"QCheckBox", QAccessible::CheckBox},
    {"QComboBox", QAccessible::ComboBox},       {"QScrollBar", QAccessible::ScrollBar},
    {"QTabBar", QAccessible::PageTabList},      {"QPushButton", QAccessible::Button},
    {"QTableView", QAccessible::Table},
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
    // The names of the visible controls of a window, each of which differs from the others.
    static std::set<std::string> names(const QString& form) {
        std::set<std::string> all;
        for (QWidget* widget : visible_window(form)->findChildren<QWidget*>())
            for (const auto& [type, role] : roles) {
                if (!widget->inherits(type) || !widget->isVisible() || widget->objectName() == "" ||
                    widget->window()->objectName() != form)
                    continue;
                QAccessibleInterface& control = screen_reader::on(*widget);
                EXPECT_EQ(control.role(), role) << qPrintable(widget->objectName());
                EXPECT_EQ(control.text(QAccessible::Description), widget->toolTip());
                EXPECT_FALSE(widget->toolTip().contains('%')) << qPrintable(widget->toolTip());
                EXPECT_NE(name_of(control), "") << qPrintable(widget->objectName());
                EXPECT_TRUE(all.insert(name_of(control)).second) << name_of(control);
            }
        return all;
    }
};

TEST_F(AccessibilityTest, EveryControlHasANameOfItsOwnARoleAndItsTip) {
    driver("Form10").choose("Event_Editor");
    user.click("Command1");
    driver("Form9").click("Command2");
    for (const auto& [shown, name] : {std::pair("Form1", "Edit layer 1"),
                                      {"Form1", "View layer 1"},
                                      {"Form1", "Choose Tile"},
                                      {"Form2", "Tiles of layer 1"},
                                      {"Form9", "Value"},
                                      {"Form9", "Event Offset"}})
        EXPECT_TRUE(names(shown).contains(name)) << name;
    const std::pair<ObjectKind, const char*> tabs[] = {
        {ObjectKind::npc, "Facing"},
        {ObjectKind::chest, "Contents"},
        {ObjectKind::event_trigger, "Event Pointer"},
        {ObjectKind::entrance, "Destination Y"},
        {ObjectKind::long_entrance, "Entrance Width"}};
    for (const auto& [kind, name] : tabs) {
        show_object(kind);
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
