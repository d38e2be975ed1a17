#include "support/window_test.h"

namespace veldrune::test {
namespace {

class TileChooserTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        open_map(town);
        user.click("Option2");
        user.click("Command1");
    }
    static bool both_show() { return visible_window("Form8") && visible_window("Form2"); }
    static bool none_shows() { return !visible_window("Form8") && !visible_window("Form2"); }
};

TEST_F(TileChooserTest, ATileOfThePalettesLayerIsTakenByAClick) {
    ASSERT_TRUE(both_show());
    EXPECT_EQ(visible_window("Form2")->frameGeometry().top(),
              visible_window("Form8")->frameGeometry().top() + 1);
    EXPECT_TRUE(driver("Form2").is_checked("Option2"));
    form.current_tile = 0xF0; // its mark lies in the last row
    driver("Form2").click("Option3");
    EXPECT_TRUE(user.is_checked("Option3"));
    EXPECT_TRUE(shows(driver("Form8"), state->display.tile_sheet, 15 * 32));
    driver("Form8").click_picture(100, 70, Qt::RightButton);
    EXPECT_TRUE(both_show()) << "no click";
    driver("Form8").click_picture(3 * 32 + 31, 2 * 32);
    EXPECT_TRUE(none_shows());
    EXPECT_EQ(form.current_tile, 35);
}

TEST_F(TileChooserTest, EachClosesWithTheOtherAndBothWithTheMainWindow) {
    const std::function<void()> ways[] = {
        [] { visible_window("Form8")->close(); },
        [] { visible_window("Form2")->close(); },
        [] { QTest::keyClick(&driver("Form8").find("Picture1"), Qt::Key_Escape); },
        [] { QTest::keyClick(&driver("Form2").find("Option1"), Qt::Key_Escape); },
        [&] { user.choose("Exit"); },
    };
    for (const auto& close : ways) {
        SCOPED_TRACE(&close - ways);
        user.click("Command1");
        EXPECT_TRUE(both_show());
        close();
        EXPECT_TRUE(none_shows());
    }
    EXPECT_FALSE(window.isVisible());
}

} // namespace
} // namespace veldrune::test
