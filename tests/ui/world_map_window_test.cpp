#include "support/window_test.h"

#include <QLabel>

namespace veldrune::test {
namespace {

struct WorldMapWindowTest : WindowTest {
    /// The controls that only a map has.
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
    user.choose_map(1); // the row that is current already
    EXPECT_TRUE(user.find("Text14").isVisible() && user.find("HScroll1").isVisible());
    expect_map_controls(true);
    EXPECT_FALSE(user.find("HScroll2").isVisible());
    EXPECT_TRUE(answers.boxes.empty());
}

TEST_F(WorldMapWindowTest, BarsAndWheelScrollAndTheGridIsDrawn) {
    user.choose("Dawn"); // without an image it sets the flags alone
    EXPECT_TRUE(state->world_map_mode && !user.find("HScroll2").isVisible());
    window.open_file("a.smc");
    user.choose("Dusk");
    for (const char* bar : {"VScroll2", "HScroll2"}) {
        EXPECT_EQ(user.find<QScrollBar>(bar).maximum(), 224);
        const auto before = state->display.picture.pixels();
        user.find<QScrollBar>(bar).setValue(100);
        EXPECT_NE(state->display.picture.pixels(), before);
        EXPECT_TRUE(shows_picture());
    }
    user.wheel("Picture1", {0, -120});
    EXPECT_GT(form.VScroll2.value, 100);
    user.wheel("Picture1", {0, 120}, Qt::ControlModifier); // no zoom on a world
    EXPECT_EQ(state->zoom, 2.0f);
    user.click("Option4");
    EXPECT_EQ(state->display.picture.row(5)[16], 0xFFFFFFu);
    const auto before = state->display.picture.pixels();
    user.click("Check4");
    EXPECT_TRUE(form.Check4);
    EXPECT_EQ(state->display.picture.pixels(), before); // from the next drawing on
    EXPECT_TRUE(shows_picture());
}

TEST_F(WorldMapWindowTest, TilesAreChosenPickedAndPainted) {
    window.open_file("a.smc");
    user.choose("Dawn");
    user.find<QScrollBar>("HScroll2").setValue(30);
    user.click("Command1");
    ASSERT_TRUE(visible_window("Form8"));
    EXPECT_FALSE(visible_window("Form2"));
    driver("Form8").click_picture(4 * 32 + 5, 8 * 32 + 5);
    EXPECT_FALSE(visible_window("Form8"));
    EXPECT_EQ(form.current_tile, 132);
    user.drag({{100, 100}, {120, 100}, {140, 100}, {700, 100}});
    for (const int column : {36, 37, 38})
        EXPECT_EQ(state->world.world_map.at(column, 6), 132);
    EXPECT_TRUE(shows_picture());
    EXPECT_FALSE(state->changes_saved);
    user.click("Option11");
    user.click_picture(5, 5);
    EXPECT_EQ(form.current_tile, state->world.world_map.at(30, 0));
    EXPECT_TRUE(user.find<QRadioButton>("Option11").isChecked());
}

TEST_F(WorldMapWindowTest, UnsavedChangesAreAskedAboutOnTheWayBack) {
    open_map(demo::demo_map::town);
    user.choose("Dawn");
    user.click_picture(100, 100);
    answers.answers = {false, true};
    user.choose_map(0); // the current row
    EXPECT_FALSE(state->world_map_mode || state->world_map_open);
    EXPECT_TRUE(user.find("HScroll1").isVisible() && user.find("Text24").isVisible());
    EXPECT_FALSE(user.find("Text1").isEnabled());
    user.choose_map(demo::demo_map::town);
    EXPECT_TRUE(user.find("Text1").isEnabled() && user.find("Text14").isVisible());
    EXPECT_EQ(state->map.map_index, demo::demo_map::town);
    EXPECT_EQ(answers.boxes.size(), 2u);
}

} // namespace
} // namespace veldrune::test
