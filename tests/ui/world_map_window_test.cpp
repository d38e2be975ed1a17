#include "support/window_test.h"

#include <QLabel>

namespace veldrune::test {
namespace {

struct WorldMapWindowTest : WindowTest {
    // The controls that only a map has.
    void expect_map_controls(bool enabled) {
        const std::pair<const char*, std::vector<int>> controls[] = {
            {"Text%1", {1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 16, 17,
                        18, 21, 22, 23, 25, 37, 39, 40, 41, 42, 43, 44, 45, 46}},
            {"Check%1", {1, 2, 5, 6, 7, 8}},
            {"Option%1", {1, 2, 3}},
            {"Command%1", {2, 3, 4, 5}},
        };
        for (const auto& [name, numbers] : controls)
            for (const int number : numbers)
                EXPECT_EQ(user.find(QString(name).arg(number)).isEnabled(), enabled)
                    << name << number;
    }
};

TEST_F(WorldMapWindowTest, TheMenuOpensAWorldAndTheListLeadsBack) {
    window.open_file("a.smc");
    const QRect place = user.find("Text14").geometry();
    user.choose("Dusk");
    EXPECT_EQ(user.find<QComboBox>("Combo1").currentText(), "map 1");
    EXPECT_EQ(user.find<QLineEdit>("Text24").text().toStdString(), form.Text24);
    EXPECT_EQ(user.find("Text24").geometry(), place);
    EXPECT_FALSE(user.find("Text14").isVisible());
    expect_map_controls(false);
    for (const char* control : {"Text24", "Check3", "Check4", "Option10", "Option4", "Command1"})
        EXPECT_TRUE(user.find(control).isEnabled()) << control;
    EXPECT_TRUE(user.find("HScroll2").isVisible() && user.find("VScroll2").isVisible());
    EXPECT_FALSE(user.find("HScroll1").isVisible() || user.find("VScroll1").isVisible());
    EXPECT_TRUE(shows_picture());
    for (const char* bar : {"VScroll2", "HScroll2"}) {
        const auto before = state->display.picture.pixels();
        user.find<QScrollBar>(bar).setValue(100);
        EXPECT_NE(state->display.picture.pixels(), before);
    }
    user.wheel("Picture1", {0, -120});
    EXPECT_GT(form.VScroll2.value, 100);
    EXPECT_TRUE(shows_picture());
    user.choose_map(1); // the row that is current already
    EXPECT_TRUE(user.find("Text14").isVisible() && user.find("HScroll1").isVisible());
    expect_map_controls(true);
    EXPECT_FALSE(user.find("HScroll2").isVisible());
    EXPECT_TRUE(answers.boxes.empty());
}

} // namespace
} // namespace veldrune::test
