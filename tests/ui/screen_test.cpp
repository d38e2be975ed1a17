#include "support/window_test.h"

#include <QScreen>
#include <QScrollArea>
#include <QTabBar>

namespace veldrune::test {
namespace {

// CMakeLists.txt runs these also on a screen of 1366 by 768 pixels, in several scalings.
class ScreenTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        const QScreen& screen = *window.screen();
        if (!qEnvironmentVariableIsSet("QT_SCALE_FACTOR"))
            return;
        EXPECT_NEAR(screen.size().width() * screen.devicePixelRatio(), 1366, 1);
        EXPECT_NEAR(screen.size().height() * screen.devicePixelRatio(), 768, 1);
    }

    static QScrollArea* area_around(const QWidget& control) {
        QWidget* around = control.parentWidget();
        while (around && !qobject_cast<QScrollArea*>(around))
            around = around->parentWidget();
        return static_cast<QScrollArea*>(around);
    }
    // Whether all of a control shows, or as much of it as there is room for.
    static bool is_in_view(const QWidget& control) {
        const QScrollArea* area = area_around(control);
        const QSize room = area ? area->viewport()->size() : control.window()->size();
        const QSize seen = control.visibleRegion().boundingRect().size();
        return seen == seen.expandedTo(control.size().boundedTo(room - QSize(2, 2)));
    }
    static bool can_be_scrolled_to(QWidget& control) {
        if (QScrollArea* area = area_around(control)) {
            const QPoint middle = control.mapTo(area->widget(), control.rect().center());
            area->ensureVisible(middle.x(), middle.y(), control.width() / 2 + 1,
                                control.height() / 2 + 1);
        }
        return is_in_view(control);
    }
    static bool is_control(const QWidget& widget) {
        return widget.isVisible() && !widget.objectName().isEmpty() &&
               !widget.objectName().startsWith("qt_");
    }

    static void expect_all_in_reach(const QString& form) {
        QCoreApplication::processEvents(); // lays out
        const QWidget& shown = *visible_window(form);
        SCOPED_TRACE(qPrintable(form));
        EXPECT_TRUE(shown.screen()->availableGeometry().contains(shown.frameGeometry()));
        for (auto* control : shown.findChildren<QWidget*>())
            if (is_control(*control) && control->window() == &shown) {
                EXPECT_TRUE(can_be_scrolled_to(*control)) << qPrintable(control->objectName());
            }
    }
    static void expect_tab_key_scrolls_to(const WindowDriver& works, const char* first) {
        works.find(first).setFocus();
        can_be_scrolled_to(works.find(first)); // which may be the only one that is enabled
        do {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            const QWidget& control = *QApplication::focusWidget();
            EXPECT_TRUE(is_in_view(control)) << qPrintable(control.objectName());
        } while (!works.find(first).hasFocus());
    }
};

TEST_F(ScreenTest, EveryControlOfEveryWindowIsInReach) {
    open_map(town);
    expect_all_in_reach("Form1");
    expect_tab_key_scrolls_to(user, "Combo1");
    user.click("Command1");
    expect_all_in_reach("Form8");
    expect_all_in_reach("Form2");
    show_object(ObjectKind::npc);
    auto& tabs = driver("Form10").find<QTabBar>("TabStrip1");
    for (int tab : {1, 2, 3, 4, 0}) {
        tabs.setCurrentIndex(tab);
        QCoreApplication::processEvents();
        expect_all_in_reach("Form10");
        expect_tab_key_scrolls_to(driver("Form10"), "TabStrip1");
    }
    driver("Form10").choose("Event_Editor");
    expect_all_in_reach("Form9");
    user.choose("Dawn");
    expect_all_in_reach("Form1");
}

TEST_F(ScreenTest, NothingScrollsWhereThereIsRoom) {
    const auto& area = *qobject_cast<QScrollArea*>(window.centralWidget());
    const QSize room = window.screen()->availableSize() - QSize(30, 60), size = area.sizeHint();
    const bool has_room = size == size.boundedTo(room);
    EXPECT_EQ(area.viewport()->size() == area.size(), has_room);
}

TEST_F(ScreenTest, RoomToSpareStaysBelow) {
    const auto place = [this](const char* control) {
        return user.find(control).mapTo(&window, QPoint(0, 0));
    };
    window.resize(window.sizeHint());
    QCoreApplication::processEvents();
    const char* controls[] = {"Label13", "Label34", "Check5", "Check4", "Text41", "Text20"};
    std::vector<QPoint> places;
    for (const char* control : controls)
        places.push_back(place(control));
    const int notes = user.find("Text20").height();
    window.resize(window.sizeHint() + QSize(0, 400));
    QCoreApplication::processEvents();
    for (std::size_t i = 0; i < places.size(); ++i)
        EXPECT_EQ(place(controls[i]), places[i]) << controls[i];
    EXPECT_LE(user.find("Text20").height(), notes + 20);
    EXPECT_EQ(place("Label13").y(), place("Label34").y());
}

} // namespace
} // namespace veldrune::test
