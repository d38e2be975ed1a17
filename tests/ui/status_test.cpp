#include "support/window_test.h"

#include <QHelpEvent>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QStatusBar>
#include <QStatusTipEvent>

#include <algorithm>
#include <functional>

namespace veldrune::test {
namespace {

using StatusTest = WindowTest;

// The tip that a widget shows when it is asked for one.
std::string asked_tip(QWidget& widget) {
    QHelpEvent event(QEvent::ToolTip, {}, widget.mapToGlobal(QPoint()));
    QApplication::sendEvent(&widget, &event);
    return widget.toolTip().toStdString();
}

TEST_F(StatusTest, TheLineAndTheButtonsFollowWhatTheUserDoes) {
    const auto status = [&] { return user.text("Status"); };
    const auto is_bold = [&](const char* button) { return user.find(button).font().bold(); };
    for (const QString path : {"/a/<b>.smc", "/b/<b>.smc"}) {
        window.open_file(path.toStdString());
        EXPECT_EQ(status(), "<b>.smc was not opened: no file can be reached there");
        const auto& line = user.find<QLabel>("Status");
        EXPECT_TRUE(line.toolTip().contains(path.toHtmlEscaped()) &&
                    line.textFormat() == Qt::PlainText);
    }
    open_map(town);
    EXPECT_EQ(status(), "");
    user.type("Text44", "5");
    EXPECT_EQ(status(), "not saved");
    EXPECT_EQ(user.find("Status").toolTip(), "Not saved: Song.");
    answers.file_name = "c.smc";
    user.choose("SaveAs");
    EXPECT_TRUE(QString::fromStdString(status()).endsWith("Save once more: Song")) << status();
    user.choose("Save");
    EXPECT_TRUE(QRegularExpression("^saved \\d\\d:\\d\\d$")
                    .match(QString::fromStdString(status()))
                    .hasMatch());
    EXPECT_FALSE(is_bold("Command2") || is_bold("Command3"));
    user.type("Text2", "48");
    EXPECT_TRUE(is_bold("Command2") && !is_bold("Command3"));
    user.choose_map(town + 1);
    EXPECT_EQ(status(), "Picture: map 2");
    EXPECT_TRUE(is_bold("Command3") && !is_bold("Command2"));
    user.type("Text44", "6");
    window.open_file("none.smc");
    EXPECT_TRUE(status().starts_with("not saved ")) << status();
    const int width = window.minimumSizeHint().width();
    QStatusTipEvent hint(QString(500, 'x'));
    QApplication::sendEvent(&window, &hint);
    EXPECT_EQ(status(), std::string(500, 'x'));
    EXPECT_EQ(window.minimumSizeHint().width(), width);
}

TEST_F(StatusTest, ALineOfEachWindowShowsTheHintOfAnEntry) {
    open_map(town);
    show_object(ObjectKind::npc);
    driver("Form10").choose("Event_Editor");
    for (const auto& [shown, hint] : {std::pair("Form1", "Opens another image."),
                                      {"Form10", "Writes the record"},
                                      {"Form9", "Writes the script"}}) {
        const WindowDriver works = driver(shown);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F, Qt::AltModifier);
        const auto* line = visible_window(shown)->findChild<QStatusBar*>();
        EXPECT_TRUE(QTest::qWaitFor([&, hint = hint] {
            return (line ? line->currentMessage().toStdString() : works.text("Status"))
                .starts_with(hint);
        })) << hint;
        QApplication::activePopupWidget()->close();
    }
}

TEST_F(StatusTest, AFieldIsMarkedWhileItIsTypedAndALocationNamesItsSharers) {
    open_map(town);
    auto& field = user.find<QLineEdit>("Text6");
    const QColor plain = field.palette().color(QPalette::Text);
    user.type("Text6", "131");
    EXPECT_EQ(field.accessibleDescription(), "Too large: Save makes 3 of it.");
    EXPECT_EQ(field.actions().back()->toolTip(), field.accessibleDescription());
    EXPECT_NE(field.palette().color(QPalette::Text), plain);
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_TRUE(field.actions().isEmpty() && field.accessibleDescription().isEmpty());
    EXPECT_EQ(field.palette().color(QPalette::Text), plain);
    show_object(ObjectKind::npc);
    driver("Form10").choose("Event_Editor");
    for (const auto& [shown, control, text, mark] :
         {std::tuple("Form10", "Text6", "40", "Out of range: Save makes 0 of it, and adds the "),
          {"Form10", "Text5", "G", "No hexadecimal number: Save makes 0 of it."},
          {"Form9", "Text3", "xyz", "No hexadecimal number: Enter loads the script at 0."}}) {
        const auto& marked = driver(shown).find<QLineEdit>(control);
        EXPECT_TRUE(marked.actions().isEmpty());
        driver(shown).type(control, text);
        EXPECT_TRUE(marked.accessibleDescription().startsWith(mark)) << control;
    }
    answers.boxes.clear();
    user.activate();
    QWidget& location = user.find("Text25");
    EXPECT_NE(asked_tip(location).find(". Hexadecimal. Also map"), std::string::npos);
    location.setToolTip("as of another map");
    location.setFocus();
    EXPECT_TRUE(location.toolTip().contains(". Hexadecimal. Also map"));
}

TEST_F(StatusTest, MarksTintsAndIconsFollowTheColoursOfTheSystem) {
    open_map(town);
    user.type("Text6", "131");
    show_object(ObjectKind::npc);
    driver("Form10").type("Text5", "7");
    const auto colours = [&] {
        return std::array{
            user.find("Command3").palette().color(QPalette::Button),
            user.find("Text6").palette().color(QPalette::Text),
            driver("Form10").find("Label5").palette().color(QPalette::Window),
            user.find<QPushButton>("Command4").icon().pixmap(12).toImage().pixelColor(4, 0)};
    };
    const auto light = colours();
    const auto all_differ = [&] {
        const auto now = colours();
        return std::ranges::mismatch(now, light, std::not_equal_to()).in1 == now.end();
    };
    const QPalette former = QApplication::palette();
    QPalette dark = former;
    for (const auto& [role, colour] : {std::pair(QPalette::Base, Qt::black),
                                       {QPalette::ButtonText, Qt::white},
                                       {QPalette::Highlight, Qt::darkGreen}})
        dark.setColor(role, colour);
    QApplication::setPalette(dark);
    EXPECT_TRUE(QTest::qWaitFor(all_differ));
    QApplication::setPalette(former);
    EXPECT_TRUE(QTest::qWaitFor([&] { return colours() == light; }));
}

} // namespace
} // namespace veldrune::test
