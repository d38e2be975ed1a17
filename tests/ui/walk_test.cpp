#include "support/object_image.h"
#include "support/window_test.h"

#include <QTemporaryDir>

namespace veldrune::test {
namespace {

// A user without a mouse. Keys go to the active window, and from there to what has the focus.
class WalkTest : public WindowTest {
  protected:
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}, int count = 1) {
        for (int i = 0; i < count; ++i) {
            QCoreApplication::processEvents(); // a window may become the active one
            ASSERT_TRUE(QApplication::focusWidget()) << key;
            QTest::keyClick(QGuiApplication::focusWindow(), key, modifiers);
        }
    }
    static void enter(const char* text) {
        for (const char* key = text; *key; ++key)
            QTest::keyClick(QGuiApplication::focusWindow(), *key);
        press(Qt::Key_Return);
    }
    static void tab_to(const QString& control) {
        const auto at = [] { return QApplication::focusWidget(); };
        for (int i = 0; at() && at()->objectName() != control && i < 60; ++i)
            press(Qt::Key_Tab);
        ASSERT_TRUE(at() && at()->objectName() == control) << qPrintable(control);
    }
};

TEST_F(WalkTest, KeysAloneReachAMapAnObjectAndAScript) {
    constexpr std::size_t script_place = 0xA0200;
    put_objects(disk["a.smc"], ObjectKind::npc, town, {hex_bytes("00 00 00 00 02 01 00 00 00")});
    put_bytes(disk["a.smc"], script_place, hex_bytes("38 38 38 38 38 FE"));
    const QTemporaryDir folder;
    const QString name = folder.filePath("a.smc");
    ASSERT_TRUE(QFile(name).open(QIODevice::WriteOnly)); // the dialog looks for files that exist
    Bytes& image = disk[name.toStdString()] = disk["a.smc"];
    answers.meanwhile = [&] {
        if (auto* files = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
            files->selectFile(name);
            return press(Qt::Key_Return);
        }
        press(Qt::Key_Tab); // from Cancel to OK
        press(Qt::Key_Space);
    };
    press(Qt::Key_O, Qt::ControlModifier);
    user.activate();

    tab_to("Combo1");
    enter(std::to_string(town).c_str());
    user.activate();
    tab_to("Command3");
    press(Qt::Key_Space);
    EXPECT_EQ(user.text("Status"), "");
    tab_to("Command1");
    press(Qt::Key_Space);
    driver("Form8");    // the system makes one of the new windows the active one
    press(Qt::Key_Tab); // into the palette
    press(Qt::Key_Down);
    press(Qt::Key_Tab);
    press(Qt::Key_Right, {}, 3);
    press(Qt::Key_Down, {}, 2);
    press(Qt::Key_Return);
    user.activate();
    tab_to("Picture1");
    press(Qt::Key_Right, Qt::ControlModifier, 5);
    press(Qt::Key_Return);
    press(Qt::Key_S, Qt::ControlModifier); // asks, since the layer's stream grows
    user.activate();
    Editor saved(image);
    saved.choose(town);
    EXPECT_EQ(saved.s.map.layers[1].map.at(5, 0), 0x23);

    tab_to("Option10");
    press(Qt::Key_Down, {}, 2);
    tab_to("Check1");
    press(Qt::Key_Space);
    tab_to("Command2");
    press(Qt::Key_Space);
    tab_to("Picture1");
    press(Qt::Key_Left, Qt::ControlModifier, 3);
    press(Qt::Key_Down, Qt::ControlModifier);
    press(Qt::Key_Return);
    driver("Form10");
    tab_to("Text5");
    enter("9");
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(image[record_place(ObjectKind::npc, town, 0) + 4], 9);

    press(Qt::Key_E, Qt::AltModifier);
    press(Qt::Key_E);
    driver("Form9");
    const Form9& editor = state->form9;
    for (int i = 0; i < 5; ++i) {
        press(Qt::Key_Return);
        press(Qt::Key_R, Qt::AltModifier); // presses the button for a moment
        EXPECT_TRUE(QTest::qWaitFor([&] { return !editor.Text2_visible; }));
    }
    press(Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return editor.Text2_visible; }));
    for (const char* value : {"5", "2", "E0", "10"})
        enter(value);
    press(Qt::Key_S, Qt::ControlModifier);
    const auto script = image.begin() + script_place;
    EXPECT_EQ(Bytes(script, script + 6), hex_bytes("05 03 E0 10 FF FE"));
    EXPECT_EQ(answers.boxes.size(), 2u);
    for (const Message& box : answers.boxes)
        EXPECT_EQ(box.text, "answered");
}

} // namespace
} // namespace veldrune::test
