#include "support/object_image.h"
#include "support/window_test.h"

#include <QLabel>
#include <QScrollBar>
#include <QTabBar>

namespace veldrune::test {
namespace {

constexpr int cave = demo::demo_map::cave;

// A town with objects of each kind but event triggers, with its second NPC in the window, and a
// cave without NPCs.
class ObjectWindowTest : public WindowTest {
  protected:
    const std::size_t second_npc = record_place(ObjectKind::npc, town, 1);

    void SetUp() override {
        WindowTest::SetUp();
        Bytes& image = disk["a.smc"];
        put_objects(image, ObjectKind::npc, town,
                    {{0, 0, 0, 0, 5, 8, 3, 0, 0}, {0, 0, 0x2C, 0x98, 9, 11, 0x57, 0xC1, 6}});
        put_objects(image, ObjectKind::chest, town, {{12, 4, 0x1D, 0x47, 0xF2}});
        put_objects(image, ObjectKind::event_trigger, town, {});
        put_objects(image, ObjectKind::entrance, town, {{5, 8, 4, 1, 8, 9}});
        put_objects(image, ObjectKind::long_entrance, town, {{10, 14, 3, 5, 0, 1, 2}});
        put_objects(image, ObjectKind::npc, cave, {});
        disk["b.smc"] = image;
        open_map(town);
        for (const char* control : {"Option12", "Check1", "Check2", "Check3", "Check4", "Command3"})
            user.click(control);
        click_tile(9, 11);
    }
    void click_tile(int column, int row) { user.click_picture(column * 32 + 5, row * 32 + 5); }
    static WindowDriver info() { return driver("Form10"); }
    static void choose_tab(int tab, Qt::MouseButton button = Qt::LeftButton) {
        auto& tabs = info().find<QTabBar>("TabStrip1");
        QTest::mouseClick(&tabs, button, {}, tabs.tabRect(tab).center());
    }
    // The visible captions, in the order of the tables.
    static QString captions() {
        QStringList shown;
        for (auto* label : visible_window("Form10")->findChildren<QLabel*>())
            if (label->isVisible() && label->buddy())
                shown << label->text() + "=" + label->buddy()->objectName();
        for (auto* button : visible_window("Form10")->findChildren<QAbstractButton*>())
            if (button->isVisible() && !button->text().isEmpty())
                shown << button->text();
        return shown.join(", ");
    }
};

TEST_F(ObjectWindowTest, SavesAnObjectOrRefusesOverItsWindowAndLeavesWhatWasTyped) {
    QWidget* parent = nullptr;
    answers.meanwhile = [&] { parent = QApplication::activeModalWidget()->parentWidget(); };
    Bytes expected = disk["b.smc"];
    info().type("Text5", "c");
    info().type("Text1", "0A0200");
    info().choose("Save");
    EXPECT_EQ(answers.boxes.size(), 1u);
    EXPECT_EQ(parent, visible_window("Form10"));
    EXPECT_EQ(info().text("Text1"), "0A0200");
    EXPECT_EQ(disk["a.smc"], expected);
    info().type("Text1", "A0200");
    QTest::keyClick(parent, Qt::Key_S, Qt::ControlModifier);
    expected[second_npc + 4] = 12;
    EXPECT_EQ(disk["a.smc"], expected);
}

TEST_F(ObjectWindowTest, TheTabsCaptionTheirFields) {
    const std::string place = "Map X=Text1, Map Y=Text2, ";
    const std::string way = place + "Map Index=Text4, Destination Y=Text5, Entrance Width=Text6, "
                                    "Destination X=Text7";
    const std::string npc =
        "Event=Text1, Palette=Text2, Byte:Bit=Text4, Facing=Combo2, X Pos=Text5, Y Pos=Text6, "
        "Sprite=Text7, Vehicle=Combo1, Speed=Combo3, Movement=Combo4, Walk Over, Walk Under, Turn "
        "to Talk";
    const std::string chest =
        "X Pos=Text1, Y Pos=Text2, Byte:Bit=Text4, Contents=Combo2, Empty, Unknown, "
        "Monster in a Box, Item, GP, Byte Flag";
    const std::string shown[] = {npc, chest, place + "Event Pointer=Text4", way, way};
    EXPECT_EQ(visible_window("Form10")->windowTitle(), "Object Info");
    click_tile(5, 8); // an entrance
    EXPECT_EQ(state->form10.TabStrip1, 3);
    choose_tab(4); // the widest
    QCoreApplication::processEvents();
    const QSize size = visible_window("Form10")->size();
    for (int tab : {4, 1, 0, 2, 3}) {
        choose_tab(tab);
        EXPECT_TRUE(tab > 1 || info().find<QComboBox>("Combo2").count() == (tab == 0 ? 4 : 256));
        EXPECT_EQ(captions().toStdString(), shown[tab]);
        EXPECT_EQ(info().find("Picture1").isVisible(), tab == 0);
        EXPECT_EQ(info().find("Text1").isEnabled(), tab != 2);
        EXPECT_EQ(visible_window("Form10")->size(), size);
    }
    EXPECT_FALSE(info().find("Text6").isEnabled());
    choose_tab(4);
    EXPECT_TRUE(info().find("Text6").isEnabled());
}

TEST_F(ObjectWindowTest, ThePreviewFollowsWhatIsTyped) {
    for (const auto& [field, text] : {std::pair("Text7", "58"), {"Text2", "1"}}) { // a short sprite
        const auto before = state->form10.Picture1;
        info().type(field, text);
        EXPECT_NE(state->form10.Picture1, before) << text;
        QCoreApplication::processEvents(); // its height may have changed
        EXPECT_EQ(info().find("Picture1").height(), 96 + 4);
        EXPECT_TRUE(shows(info(), state->form10.Picture1, 96));
    }
    info().type("Text2", "");
    info().type("Text7", "57");
    EXPECT_TRUE(answers.boxes.empty());
}

TEST_F(ObjectWindowTest, MarksWhatIsNotAsInTheList) {
    const auto marked = [] { return captions().split(", ").filter("*").join(", ").toStdString(); };
    EXPECT_EQ(marked() + info().text("ListLine"), "");
    info().type("Text5", "c");
    info().click("Check1");
    EXPECT_EQ(marked(), "X Pos *=Text5, Walk Over *");
    EXPECT_TRUE(info().find("Text5").toolTip().endsWith("list of records."));
    info().choose("Save");
    EXPECT_TRUE(info().text("ListLine").starts_with("The image has the saved values"));
    info().type("Text7", "73");
    EXPECT_TRUE(info().find("PreviewLine").isVisible());
    user.click("Command3");
    EXPECT_EQ(marked() + info().text("ListLine"), "Sprite *=Text7");
    choose_tab(1);
    info().click("Option1");
    EXPECT_EQ(marked(), "Empty *");
}

TEST_F(ObjectWindowTest, WithoutARecordTheFieldsRestAndAClickOnTheTabLoadsOne) {
    choose_tab(2);
    EXPECT_FALSE(info().find("Text1").isEnabled() || info().find("HScroll1").isEnabled());
    choose_tab(0);
    user.choose_map(cave);
    user.click("Command3");
    user.choose_map(town);
    user.click("Command3");
    choose_tab(0, Qt::RightButton);
    EXPECT_EQ(info().text("Text5"), "");
    choose_tab(0);
    EXPECT_EQ(info().text("Text5"), "5");
}

TEST_F(ObjectWindowTest, TheWheelNeedsTheFocusAndTheKeysWalkOn) {
    info().find("Text1").setFocus();
    info().wheel("Combo1", {0, 120});
    info().wheel("HScroll1", {0, 120});
    info().wheel("TabStrip1", {0, -120});
    EXPECT_EQ(state->form10.Combo1, 3);
    EXPECT_EQ(state->form10.TabStrip1, 0);
    EXPECT_EQ(info().text("Text5"), "9");
    auto& bar = info().find<QScrollBar>("HScroll1");
    EXPECT_EQ(std::tuple(bar.minimum(), bar.maximum(), bar.value(), bar.pageStep()),
              std::tuple(1, 2, 2, 5));
    bar.setFocus();
    info().wheel("HScroll1", {0, 120});
    EXPECT_EQ(info().text("Label10") + " " + info().text("Text5"), "1 5");
    QTest::keyClick(&bar, Qt::Key_Right);
    EXPECT_EQ(info().text("Text5"), "9");
    EXPECT_EQ(info().tab_order("TabStrip1"),
              "TabStrip1 HScroll1 Text1 Text2 Text4 Combo2 Text5 "
              "Text6 Text7 Combo1 Combo3 Combo4 Check1 Check2 Check3");
}

TEST_F(ObjectWindowTest, StaysWhenTheMainWindowClosesAndEndsTheProgram) {
    QTimer::singleShot(0, [&] { window.close(); });
    QTimer::singleShot(50, [&] {
        info().type("Text5", "2");
        info().choose("Save");
        visible_window("Form10")->close();
    });
    QTimer too_long;
    too_long.callOnTimeout([] { QCoreApplication::exit(1); });
    too_long.start(5000);
    EXPECT_EQ(QCoreApplication::exec(), 0) << "ends with the last window";
    EXPECT_FALSE(visible_window("Form10"));
    EXPECT_EQ(disk["a.smc"][second_npc + 4], 2);
}

} // namespace
} // namespace veldrune::test
