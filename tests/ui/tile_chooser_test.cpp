#include "support/window_test.h"

namespace veldrune::test {
namespace {

class TileChooserTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        open_map(town);
        user.click("Command1");
    }
    static bool both_show() { return visible_window("Form8") && visible_window("Form2"); }
    static bool none_shows() { return !visible_window("Form8") && !visible_window("Form2"); }
};

TEST_F(TileChooserTest, ATileOfThePalettesLayerIsTakenByAClick) {
    EXPECT_EQ(visible_window("Form2")->frameGeometry().top(),
              visible_window("Form8")->frameGeometry().top() + 1);
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

TEST_F(TileChooserTest, TheKeysChooseFromTheCurrentTileOn) {
    form.current_tile = 0x2F;
    visible_window("Form8")->close();
    user.click("Command1");
    const WindowDriver chooser = driver("Form8");
    auto& sheet = chooser.find("Picture1");
    EXPECT_TRUE(sheet.hasFocus());
    EXPECT_EQ(chooser.text("cell_line"), "column 0F, row 02 - tile 2F");
    const auto frame = [&] {
        return sheet.grab().toImage().pixelColor(2 + 15 * 32 + 1, 2 + 64 + 1);
    };
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Left, Qt::Key_Left})
        QTest::keyClick(&sheet, key);
    EXPECT_EQ(chooser.text("cell_line"), "column 0D, row 03 - tile 3D");
    EXPECT_EQ(frame(), QColor(Qt::yellow)) << "the current tile is marked";
    QTest::keyClick(&sheet, Qt::Key_Space);
    EXPECT_TRUE(none_shows());
    EXPECT_EQ(form.current_tile, 0x3D);
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
        user.click("Command1");
        EXPECT_TRUE(both_show());
        close();
        EXPECT_TRUE(none_shows()) << &close - ways;
    }
    EXPECT_FALSE(window.isVisible());
}

} // namespace
} // namespace veldrune::test
