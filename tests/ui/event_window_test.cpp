#include "editor/object_window.h"
#include "support/window_test.h"

#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTabBar>
#include <QTableView>

namespace veldrune::test {
namespace {

constexpr int town = demo::demo_map::town;
constexpr std::size_t place = 0xC0000; // of the scripts that these tests put into the image
const QString place_text = "C0000";

class EventWindowTest : public WindowTest {
  protected:
    Form9& form9 = state->form9;

    void SetUp() override {
        WindowTest::SetUp();
        open_map(town);
        open_object(*state, ObjectKind::npc, 0);
        user.click("Option4"); // any edit shows the state
        open_from_object();
    }
    void open_from_object() {
        driver("Form10").choose("Event_Editor");
        editor().activate();
    }
    WindowDriver editor() { return driver("Form9"); }
    QTableView& grid() { return editor().find<QTableView>("grid"); }
    QPlainTextEdit& box() { return editor().find<QPlainTextEdit>("Text2"); }

    void load(const Bytes& script) {
        put_bytes(disk["a.smc"], place, script);
        load(place_text);
    }
    void load(const QString& offset) {
        editor().activate();
        editor().find("Text3").setFocus();
        editor().type("Text3", offset);
        press(Qt::Key_Return);
    }
    Bytes saved(std::size_t length) {
        const auto at = disk["a.smc"].begin() + place;
        return {at, at + static_cast<std::ptrdiff_t>(length)};
    }
    /// Presses a key where the focus is.
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    /// Types words into the edit box over what stands there, each with Enter.
    void enter(const QString& words) {
        for (const QString& word : words.split(' ')) {
            editor().activate(); // after a message
            ASSERT_TRUE(box().hasFocus()) << qPrintable(word);
            if (word.isEmpty())
                press(Qt::Key_Delete); // what stood there, which is selected
            QTest::keyClicks(&box(), word);
            press(Qt::Key_Return);
            expect_in_step();
        }
    }
    void click(int row, int column) {
        const QModelIndex cell = grid().model()->index(row - 1, column);
        grid().scrollTo(cell);
        QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, grid().visualRect(cell).center());
        expect_in_step();
    }
    std::string shown(int row, int column) {
        return grid().model()->index(row - 1, column).data().toString().toStdString();
    }
    /// The rows of the view, less the spare one, and the box: everything as the state has it.
    void expect_in_step() {
        ASSERT_EQ(grid().model()->rowCount() + 1, static_cast<int>(form9.grid.size()));
        for (int row = 1; row < static_cast<int>(form9.grid.size()); ++row) {
            const ScriptRow& held = form9.grid[static_cast<std::size_t>(row)];
            const int height = grid().rowHeight(row - 1);
            const bool has_default = height == grid().verticalHeader()->defaultSectionSize();
            EXPECT_TRUE(held.height == 0 ? has_default : height >= held.height / 15) << row;
        }
        EXPECT_EQ(box().isVisible(), form9.Text2_visible);
        const QModelIndex cell = grid().model()->index(form9.grid_row - 1, form9.grid_column);
        EXPECT_TRUE(!form9.Text2_visible || box().geometry() == grid().visualRect(cell));
    }
};

TEST_F(EventWindowTest, RefusalsSpeakOverThePresentStateAndLayTheBoxOnTheCell) {
    // clang-format off
    const struct { const char *script, *typed; Message box; const char *again, *bytes; } cases[] = {
        {"A0 01 02 03 04 05 FE", "B6 0A02000A0", bad_offsets,            "A0201", "B6 01 00 00 FE"},
        {"37 01 FF FE",          "FG",           no_number("FG", "hex"), "9",     "F0 09 FE"}, // goes on
    };
    // clang-format on
    answers.meanwhile = [&] { expect_in_step(); };
    for (const auto& row : cases) {
        load(hex_bytes(row.script));
        answers.boxes.clear();
        click(1, primary);
        enter(row.typed);
        EXPECT_EQ(answers.boxes, std::vector{row.box});
        EXPECT_TRUE(box().isVisible());
        enter(row.again);
        EXPECT_TRUE(!box().isVisible() && grid().hasFocus());
        press(Qt::Key_S, Qt::ControlModifier);
        EXPECT_EQ(saved(hex_bytes(row.bytes).size()), hex_bytes(row.bytes));
    }
}

TEST_F(EventWindowTest, AScriptIsLoadedFromTheOffsetThatIsTyped) {
    load(hex_bytes("48 02 00 6A 01 00 02 03 00 FE"));
    click(2, secondary);
    EXPECT_EQ(shown(1, explanation), "Display Dialogue, Wait");
    const std::string text = form9.grid[2].cells[explanation];
    EXPECT_EQ(shown(2, explanation).substr(0, 8), text.substr(0, 8));
    EXPECT_EQ(shown(2, explanation).find('\r'), std::string::npos);
    load("c0 003"); // another part of it
    EXPECT_EQ(editor().text("Text3"), "C0003");
    EXPECT_EQ(shown(1, explanation), "Load Map");
    EXPECT_FALSE(box().isVisible());
}

TEST_F(EventWindowTest, ClicksAndEscapeLeaveAnEntry) {
    load(hex_bytes("3D 07 37 01 02 FE"));
    const auto untouched = [&] {
        return form9.grid.size() == 8 && shown(1, primary) == "3D" && shown(3, primary) == "37";
    };
    editor().click("Command2");
    EXPECT_FALSE(untouched());
    press(Qt::Key_Escape);
    EXPECT_TRUE(untouched());
    EXPECT_FALSE(box().isVisible());

    click(4, secondary);
    EXPECT_EQ(box().toPlainText(), " 1");
    click(4, explanation); // no cell to edit: nothing is marked for removal either
    EXPECT_FALSE(box().isVisible());
    editor().click("Command1");
    EXPECT_TRUE(untouched());
    click(2, secondary);
    QTest::mouseClick(&box(), Qt::LeftButton); // into the box itself
    EXPECT_TRUE(box().isVisible());
    editor().click("Command2"); // before the next command
    enter("4C 1");
    click(1, primary); // breaks off: the row that was not filled goes
    EXPECT_EQ(shown(3, primary), "4C");
    EXPECT_EQ(shown(5, primary), "37");
    editor().click("Command1");
    EXPECT_EQ(shown(1, primary), "4C");
}

TEST_F(EventWindowTest, LinesAreEnteredWithShift) {
    load(hex_bytes("BE 02 00 00 00 01 00 00 FE"));
    click(3, secondary);
    EXPECT_EQ(box().toPlainText(), " A0200\nA0201\n");
    QTest::keyClicks(&box(), "A0203");
    press(Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClicks(&box(), "A0204");
    press(Qt::Key_Return);
    EXPECT_EQ(shown(3, secondary), "0A0203\n0A0204");
    press(Qt::Key_Return); // in the grid: the current cell again
    EXPECT_TRUE(box().hasFocus());
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(saved(8), hex_bytes("BE 02 03 00 00 04 00 00"));
}

TEST_F(EventWindowTest, TheBoxFollowsTheGridAndTheViewStaysWhereItIs) {
    Bytes script;
    for (int i = 0; i < 60; ++i)
        for (const int byte : {0x4B, i, 0, 0x3D, i})
            script.push_back(static_cast<std::uint8_t>(byte));
    script.push_back(0xFE);
    load(script);
    QScrollBar& bar = *grid().verticalScrollBar();
    EXPECT_EQ(bar.value(), 0);
    click(100, secondary);
    const int there = bar.value();
    EXPECT_GT(there, 0);
    for (const int by : {7, -40, 4000, -4000}) {
        bar.setValue(there + by);
        expect_in_step();
    }
    bar.setValue(there);
    grid().setColumnWidth(0, 30);
    QCoreApplication::processEvents();
    expect_in_step();
    visible_window("Form9")->resize(800, 300);
    QCoreApplication::processEvents();
    expect_in_step();

    bar.setValue(there + 11);
    enter("5"); // a value, seen where it is
    user.click("Option5");
    EXPECT_EQ(bar.value(), there + 11);
    bar.setValue(0);
    editor().click("Command2"); // its row comes into sight, as far as needed
    EXPECT_TRUE(grid().viewport()->rect().contains(box().geometry()));
    load(place_text);
    EXPECT_EQ(bar.value(), 0);
}

TEST_F(EventWindowTest, TheWindowStaysUntilTheUserClosesIt) {
    QWidget* window_9 = visible_window("Form9");
    EXPECT_EQ(window_9->windowTitle(), "Event Editor");
    EXPECT_EQ(editor().find<QLabel>("Label1").buddy()->objectName(), "Text3");
    load(hex_bytes("3D 07 FE"));
    click(2, secondary);
    enter("9");
    open_from_object(); // made anew on the script that was meant last
    EXPECT_EQ(editor().text("Text3"), place_text.toStdString());
    EXPECT_EQ(shown(2, secondary), "7");
    click(2, secondary);
    enter("8");

    driver("Form10").find<QTabBar>("TabStrip1").setCurrentIndex(3); // no kind that has scripts
    open_from_object();
    EXPECT_EQ(shown(2, secondary), "08");
    visible_window("Form10")->close();
    window.close();
    EXPECT_EQ(visible_window("Form9"), window_9);
    editor().activate();
    editor().choose("Save"); // where it was read, though no object is shown any more
    EXPECT_EQ(saved(3), hex_bytes("3D 08 FE"));
    Bytes others = disk["a.smc"];
    std::copy_n(demo_bytes().begin() + place, 3, others.begin() + place);
    EXPECT_EQ(others, demo_bytes());
    window_9->close();
    EXPECT_FALSE(visible_window("Form9"));
    EXPECT_FALSE(form9.visible);
}

} // namespace
} // namespace veldrune::test
