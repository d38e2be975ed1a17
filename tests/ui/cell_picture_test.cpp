#include "support/window_test.h"
#include "ui/cell_picture.h"

#include <QPaintEvent>

namespace veldrune::test {
namespace {

// What a widget has repainted since it was asked last.
class Repainted : public QObject {
  public:
    explicit Repainted(QWidget& widget) { widget.installEventFilter(this); }
    QRegion take() {
        QTest::qWait(20); // what is to be repainted is so after a delay
        return std::exchange(region_, {});
    }

  private:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            region_ += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
    QRegion region_;
};

struct CellPictureTest : WindowTest {
    QWidget& picture = user.find("Picture1");

    void SetUp() override {
        WindowTest::SetUp();
        open_map(town);
        picture.setFocus();
    }
    void keys(Qt::Key key, int count, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
        for (int i = 0; i < count; ++i)
            QTest::keyClick(&picture, key, modifiers);
    }
    void hover(int x, int y) { // pixels of the picture at its natural size
        WindowDriver::move(picture, WindowDriver::on_picture({x, y}), Qt::NoButton);
    }
    std::string line() { return user.text("cell_line"); }
    std::string place() { return line().substr(0, line().find(" -")); }
};

TEST_F(CellPictureTest, TheKeysPickPaintAndStrokeAsTheMouseDoes) {
    keys(Qt::Key_Right, 5);
    keys(Qt::Key_Down, 4);
    QTest::keyClick(&picture, Qt::Key_Insert);
    EXPECT_EQ(form.current_tile, tile(0, 5, 4));
    form.current_tile = 0x77;
    keys(Qt::Key_Left, 2);
    QTest::keyPress(&picture, Qt::Key_Space);
    keys(Qt::Key_Right, 1);
    QKeyEvent again(QEvent::KeyRelease, Qt::Key_Space, {}, {}, true);
    QApplication::sendEvent(&picture, &again); // of the key's repeating
    EXPECT_TRUE(state->painting);
    keys(Qt::Key_Down, 1);
    QTest::keyRelease(&picture, Qt::Key_Space);
    EXPECT_FALSE(state->painting);
    keys(Qt::Key_Down, 1);
    QTest::keyClick(&picture, Qt::Key_Return);
    for (const auto& [column, row] : {std::pair(3, 4), {4, 4}, {4, 5}, {4, 6}})
        EXPECT_EQ(tile(0, column, row), 0x77) << column;
    state->changes_saved = true;
    QTest::keyPress(&picture, Qt::Key_Space);
    EXPECT_TRUE(state->painting);
    EXPECT_TRUE(shows_picture()); // takes the focus away
    EXPECT_FALSE(state->painting);
    QTest::keyRelease(&picture, Qt::Key_Space);
    EXPECT_TRUE(state->changes_saved) << "no click";
}

TEST_F(CellPictureTest, TheViewFollowsTheCursorToTheEdgesOfTheMap) {
    keys(Qt::Key_Right, 17);
    EXPECT_EQ(form.HScroll1.value, 2);
    EXPECT_EQ(place(), "column 11, row 00");
    keys(Qt::Key_Right, 60);
    EXPECT_EQ(place(), "column 3F, row 00") << "the last one";
    keys(Qt::Key_Left, 64);
    EXPECT_EQ(place(), "column 00, row 00");
}

TEST_F(CellPictureTest, TheLineFollowsPointerCursorAndView) {
    EXPECT_EQ(place(), "column 00, row 00");
    hover(100, 70);
    EXPECT_EQ(place(), "column 03, row 02");
    keys(Qt::Key_Right, 1, Qt::NoModifier); // scrolls
    EXPECT_EQ(place(), "column 04, row 02");
    user.click("Command5");
    EXPECT_EQ(place(), "column 07, row 04");
    const std::string on_town = line();
    user.choose_map(demo::demo_map::forest);
    EXPECT_NE(line(), on_town);
    EXPECT_EQ(picture.accessibleDescription().toStdString(), line());
    user.choose("Dawn");
    EXPECT_EQ(line().find("column 06, row 04 - tile "), 0u);
    WindowDriver::leave(picture);
    EXPECT_EQ(line(), "");
}

TEST_F(CellPictureTest, AMoveRepaintsTheTwoCellsAndPaintingOne) {
    const auto cell = [](int column, int row) {
        return QRect(WindowDriver::on_picture({32 * column, 32 * row}), QSize(32, 32));
    };
    Repainted repainted(picture);
    repainted.take();
    picture.clearFocus();
    hover(100, 70);
    repainted.take();
    hover(101, 71);
    EXPECT_EQ(repainted.take(), QRegion());
    hover(140, 71);
    EXPECT_EQ(repainted.take(), QRegion(cell(3, 2)) + cell(4, 2));
    user.click_picture(140, 71);
    repainted.take(); // the focus came
    form.current_tile = tile(0, 4, 2) ^ 1;
    user.click_picture(140, 71);
    const QRegion painted = repainted.take();
    EXPECT_TRUE(!painted.isEmpty() && painted.subtracted(cell(4, 2)).isEmpty());
}

TEST_F(CellPictureTest, AGhostLiesOverTheCellThatDrawWouldPaint) {
    const QRect cell(WindowDriver::on_picture({3 * 32 + 4, 2 * 32 + 4}), QSize(24, 24));
    const auto shown = [&] { return picture.grab(cell).toImage(); };
    picture.clearFocus();
    const QImage plain = shown();
    form.current_tile = 0x23;
    hover(100, 70);
    const QImage of_layer_1 = shown();
    EXPECT_NE(of_layer_1, plain);
    user.click("Option2");
    EXPECT_TRUE(shown() != of_layer_1 && shown() != plain);
    user.click("Option11");
    EXPECT_EQ(shown(), plain);
    EXPECT_TRUE(shows_picture());
}

TEST_F(CellPictureTest, ThePictureGrowsWithTheWindowAndTheMouseWithIt) {
    const QSize natural = window.sizeHint();
    for (const int factor : {2, 3, 1}) {
        window.resize(natural + QSize(512, 512) * (factor - 1) + QSize(8, 8));
        EXPECT_TRUE(QTest::qWaitFor([&] { return picture.width() == 512 * factor + 4; }));
        EXPECT_EQ(picture.size(), picture.sizeHint());
        EXPECT_EQ(user.find("VScroll1").height(), picture.height());
        hover((100 + 511) * factor / 2, 70 * factor);
        EXPECT_EQ(place(), "column 09, row 02");
    }
}

} // namespace
} // namespace veldrune::test
