#include "support/window_test.h"

#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTabBar>
#include <QTableView>

namespace veldrune::test {
namespace {

constexpr std::size_t place = 0xC0000; // of the scripts that these tests put into the image

class EventWindowTest : public WindowTest {
  protected:
    Form9& form9 = state->form9;

    void SetUp() override {
        WindowTest::SetUp();
        open_map(town);
        show_object(ObjectKind::npc);
        driver("Form10").choose("Event_Editor");
    }
    static WindowDriver editor() { return driver("Form9"); }
    static QTableView& grid() { return editor().find<QTableView>("grid"); }
    static QPlainTextEdit& box() { return editor().find<QPlainTextEdit>("Text2"); }

    void load(const Bytes& script) {
        put_bytes(disk["a.smc"], place, script);
        editor().find("Text3").setFocus();
        editor().type("Text3", "C0000");
        press(Qt::Key_Return);
    }
    Bytes saved(std::size_t length) {
        press(Qt::Key_S, Qt::ControlModifier);
        const auto at = disk["a.smc"].begin() + place;
        return {at, at + static_cast<std::ptrdiff_t>(length)};
    }
    // Presses a key where the focus is.
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    // Types words into the edit box over what it holds, each with Enter.
    void enter(const QString& words) {
        for (const QString& word : words.split(' ')) {
            ASSERT_TRUE(box().hasFocus()) << qPrintable(word);
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
    static std::string shown(int row, int column) {
        return grid().model()->index(row - 1, column).data().toString().toStdString();
    }
    // The rows of the view, less the spare one, and the box: everything as the state has it.
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

TEST_F(EventWindowTest, ARefusalSpeaksOverThePresentStateAndLaysTheBoxOnItsCell) {
    answers.meanwhile = [&] { expect_in_step(); };
    load(hex_bytes("A0 01 02 03 04 05 FE"));
    click(1, primary);
    enter("B6 0A02000A0");
    EXPECT_EQ(answers.boxes, Messages{bad_offsets});
    EXPECT_TRUE(box().isVisible());
    enter("A0201");
    EXPECT_TRUE(!box().isVisible() && grid().hasFocus());
    EXPECT_EQ(saved(5), hex_bytes("B6 01 00 00 FE"));
    load(hex_bytes("37 01 FF FE"));
    click(1, primary);
    enter("FG 9"); // the first is reported, and goes on as parsed
    EXPECT_EQ(answers.boxes.back(), no_number("FG", "hex"));
    EXPECT_EQ(saved(3), hex_bytes("F0 09 FE"));
}

TEST_F(EventWindowTest, ClicksAndEscapeLeaveAnEntry) {
    load(hex_bytes("3D 07 37 01 02 FE"));
    editor().click("Command2");
    press(Qt::Key_Escape);
    expect_in_step();
    EXPECT_FALSE(box().isVisible());
    click(4, secondary);
    QTest::mouseClick(&box(), Qt::LeftButton); // into the box itself
    EXPECT_TRUE(box().isVisible());
    click(4, explanation); // no cell to edit
    EXPECT_FALSE(box().isVisible());
    click(1, primary);
    editor().click("Command1");
    EXPECT_EQ(shown(1, primary), "37");
}

TEST_F(EventWindowTest, LinesAreEnteredWithShift) {
    load(hex_bytes("BE 02 00 00 00 01 00 00 FE"));
    click(2, secondary);
    enter("2"); // from now on only the row of the lines changes
    click(3, secondary);
    EXPECT_EQ(box().toPlainText(), " 0A0200\n 0A0201\n ");
    QTest::keyClicks(&box(), "A0203");
    for (const char* line : {"A0204", "A0205", "A0206"}) {
        press(Qt::Key_Return, Qt::ShiftModifier);
        QTest::keyClicks(&box(), line);
    }
    press(Qt::Key_Return);
    expect_in_step(); // the row has grown
    EXPECT_EQ(shown(3, secondary), "0A0203\n0A0204\n0A0205\n0A0206");
    press(Qt::Key_Return); // in the grid: the current cell again
    EXPECT_TRUE(box().hasFocus());
    EXPECT_EQ(saved(8), hex_bytes("BE 02 03 00 00 04 00 00"));
}

TEST_F(EventWindowTest, TheBoxFollowsTheGridAndTheViewStaysWhereItIs) {
    Bytes script;
    for (int i = 0; i < 60; ++i)
        put_bytes(script, script.size(), hex_bytes("4B 07 00 3D 07"));
    script.push_back(0xFE);
    load(script);
    QScrollBar& bar = *grid().verticalScrollBar();
    click(100, secondary);
    const int there = bar.value();
    EXPECT_GT(there, 0);
    for (const int value : {there + 7, there - 40, bar.maximum(), 0, there}) {
        bar.setValue(value);
        expect_in_step();
    }
    grid().setColumnWidth(0, 30);
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
    load(script);
    EXPECT_EQ(bar.value(), 0);
}

TEST_F(EventWindowTest, TheListOfCodesTakesEnterOnARowThatWasMovedToAlone) {
    // Keys go to the window, and from there to the list while it is open.
    const auto keys = [](std::initializer_list<int> codes) {
        for (const int code : codes)
            QTest::keyClick(visible_window("Form9")->windowHandle(), static_cast<Qt::Key>(code));
    };
    const auto offers = [] {
        auto* shown = qobject_cast<QAbstractItemView*>(QApplication::activePopupWidget());
        QStringList rows;
        for (int row = 0; shown && row < shown->model()->rowCount(); ++row)
            rows << shown->model()->index(row, 0).data().toString();
        return rows.join('|').toStdString();
    };
    load(hex_bytes("3D 07 38 FE"));
    EXPECT_TRUE(grid().hasFocus());
    click(2, secondary);
    keys({Qt::Key_3});
    EXPECT_EQ(offers(), ""); // a value
    click(1, primary);
    keys({Qt::Key_3, Qt::Key_9});
    EXPECT_EQ(offers(), "39  Free Screen");
    keys({Qt::Key_Escape});
    EXPECT_EQ(offers(), "");
    EXPECT_EQ(box().toPlainText(), "39");
    keys({Qt::Key_Backspace, Qt::Key_9, Qt::Key_Return}); // open again, not moved to
    EXPECT_EQ(shown(1, primary) + offers(), "39");
    click(1, primary);
    keys({Qt::Key_H, Qt::Key_O, Qt::Key_L, Qt::Key_D, Qt::Key_Down, Qt::Key_Return});
    EXPECT_EQ(offers() + box().toPlainText().toStdString() + form9.Text2, "3838");
    keys({Qt::Key_Return});
    EXPECT_EQ(shown(1, primary), "38");
    click(1, primary);
    keys({Qt::Key_3, Qt::Key_Escape, Qt::Key_Escape});
    EXPECT_FALSE(box().isVisible());
    EXPECT_TRUE(answers.boxes.empty());
}

TEST_F(EventWindowTest, TheLinesSayWhatASaveWouldWrite) {
    const auto pale = [](int row) {
        return grid().model()->index(row - 1, 0).data(Qt::ForegroundRole).isValid();
    };
    load(hex_bytes("3D 07 38 FE"));
    EXPECT_EQ(editor().text("Place") + ", " + editor().text("Size"),
              "Save writes to C0000, 4 of 4 bytes");
    EXPECT_FALSE(editor().find("Changed").isVisible());
    click(3, primary);
    enter("FE");
    EXPECT_EQ(editor().text("Size"), "3 of 4 bytes");
    EXPECT_TRUE(editor().find("Changed").isVisible());
    EXPECT_TRUE(!pale(3) && pale(4));
    open_object(*state, ObjectKind::npc, 1);
    user.click("Option5"); // any edit shows the state
    EXPECT_TRUE(editor().find("Place").autoFillBackground());
}

TEST_F(EventWindowTest, TheWindowStaysUntilTheUserClosesIt) {
    QWidget* window_9 = visible_window("Form9");
    EXPECT_EQ(window_9->windowTitle(), "Event Editor");
    EXPECT_EQ(editor().find<QLabel>("Label1").buddy()->objectName(), "Text3");
    load(hex_bytes("3D 07 FE"));
    driver("Form10").find<QTabBar>("TabStrip1").setCurrentIndex(3); // no kind that has scripts
    visible_window("Form10")->close();
    window.close();
    EXPECT_EQ(visible_window("Form9"), window_9);
    click(2, secondary);
    enter("8");
    editor().choose("Save"); // where it was read, though no object is shown any more
    Bytes expected = demo_bytes();
    put_bytes(expected, place, hex_bytes("3D 08 FE"));
    EXPECT_EQ(disk["a.smc"], expected);
    window_9->close();
    EXPECT_FALSE(visible_window("Form9"));
    EXPECT_FALSE(form9.visible);
}

} // namespace
} // namespace veldrune::test
