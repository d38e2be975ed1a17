#include "support/window_test.h"
#include "ui/edit_gate.h"

#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QTemporaryDir>

namespace veldrune::test {
namespace {

constexpr int forest = demo::demo_map::forest;
const std::string file_filter = "Super Nintendo Roms (*.smc);;All Files (*)";

using MainWindowTest = WindowTest;

struct TownWindowTest : WindowTest {
    void SetUp() override {
        WindowTest::SetUp();
        open_map(town);
    }
};

TEST_F(MainWindowTest, WithoutAnImageOnlyTheZoomMoves) {
    EXPECT_EQ(window.windowTitle(), "Veldrune Map Editor " VELDRUNE_VERSION);
    EXPECT_EQ(window.windowIcon().availableSizes().size(), 4); // the embedded files
    EXPECT_FALSE(user.find("Combo1").isEnabled());
    EXPECT_EQ(user.find<QComboBox>("Combo1").itemText(413), "map 413");
    for (const char* control : {"Command1", "Command2", "Command3", "Command4"})
        user.click(control);
    EXPECT_TRUE(answers.boxes.empty());
    EXPECT_EQ(user.text("Text4"), "0.5");
}

TEST_F(MainWindowTest, OpensWhatTheDialogNamesAndSavesACopyOfIt) {
    const QTemporaryDir folder;
    const QString name = folder.filePath("v1.0.smc");
    for (const char* taken : {"v1.0.smc", "v1.0-2.smc"}) // the dialogs look for files that exist
        ASSERT_TRUE(QFile(folder.filePath(taken)).open(QIODevice::WriteOnly));
    disk[name.toStdString()] = demo_bytes();
    answers.file_name = name;
    QTest::keyClick(&window, Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(user.text("Label20"), name.toStdString());
    EXPECT_TRUE(user.find("Combo1").isEnabled());

    QString place, proposed; // by the dialogs
    answers.meanwhile = [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        place = dialog->directory().path();
        proposed = dialog->selectedFiles().value(0);
    };
    user.choose("Open");
    EXPECT_EQ(place, folder.path());
    answers.file_name = folder.filePath("copy");
    user.choose("SaveAs");
    EXPECT_EQ(proposed, folder.filePath("v1.0-3.smc"));
    const std::string copy = folder.filePath("copy.smc").toStdString();
    EXPECT_EQ(user.text("Label20"), copy);
    EXPECT_EQ(disk[copy], demo_bytes());
    EXPECT_EQ(answers.boxes.back(), (Message{file_filter, "Save As"}));
}

TEST_F(MainWindowTest, FileNamesInBoxesArePlainText) {
    const QTemporaryDir folder;
    const QString markup = "&lt;b&gt;"; // what a name may have on every system
    answers.file_name = folder.filePath(markup + ".smc");
    ASSERT_TRUE(QFile(*answers.file_name).open(QIODevice::WriteOnly));
    int plain = 0;
    const auto look = [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        plain += box && box->text().contains(markup) && box->textFormat() == Qt::PlainText;
        if (box && box->button(QMessageBox::Yes))
            box->button(QMessageBox::Yes)->click(); // replace the file
    };
    answers.meanwhile = look;
    dialogs.question(markup.toStdString());
    answers.meanwhile = [&] { QTimer::singleShot(0, look); }; // when the file dialog asks
    EXPECT_EQ(dialogs.save_file_name("a.smc"), answers.file_name->toStdString());
    EXPECT_EQ(plain, 2);
}

TEST_F(TownWindowTest, WarningsAboutNumbersCanBeKeptBackFromTheThirdOn) {
    form.Text18 = form.Text23 = form.Text8 = form.Text9 = form.Text13 = "x";
    std::string tick_boxes;
    bool tick = true;
    answers.meanwhile = [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        tick_boxes += box->checkBox() ? 'x' : '-';
        if (box->checkBox() && tick)
            box->checkBox()->click();
    };
    user.click("Command3");
    EXPECT_EQ(tick_boxes, "--x");
    tick = false;
    tick_boxes.clear();
    user.click("Command3");
    EXPECT_EQ(tick_boxes, "--xxx");
    EXPECT_EQ(user.find<QLineEdit>("Text8").maxLength(), 16);
}

TEST_F(MainWindowTest, AFileThatIsDroppedIsOpenedAndItsPathIsPlainText) {
    QMimeData files;
    const QString path = "/<img src=\"x\"><b>/a.smc";
    files.setUrls({QUrl::fromLocalFile(path)});
    files.setText(path);
    disk[path.toStdString()] = demo_bytes();
    // And what each event asks for, if accepted.
    const auto drop = [&](QWidget& target, Qt::DropActions offered) {
        auto* area = qobject_cast<QAbstractScrollArea*>(&target);
        QDragEnterEvent enter({}, offered, &files, Qt::LeftButton, {});
        QDragMoveEvent move({}, offered, &files, Qt::LeftButton, {});
        QDropEvent dropped({}, offered, &files, Qt::LeftButton, {});
        Qt::DropActions taken;
        for (QDropEvent* event :
             {static_cast<QDropEvent*>(&enter), static_cast<QDropEvent*>(&move), &dropped}) {
            QApplication::sendEvent(area ? area->viewport() : &target, event);
            taken |= event->isAccepted() ? event->dropAction() : Qt::TargetMoveAction;
        }
        return taken;
    };
    const auto notes = [&] { return user.text("Text20") + user.text("Text44"); };
    for (const char* control : {"Picture1", "Text20", "Text44"}) {
        window.open_file("b.smc");
        const std::string before = notes();
        EXPECT_EQ(drop(user.find(control), Qt::MoveAction), Qt::TargetMoveAction)
            << "its source may delete it";
        EXPECT_EQ(user.text("Label20"), "b.smc");
        EXPECT_EQ(drop(user.find(control), Qt::MoveAction | Qt::CopyAction), Qt::CopyAction);
        EXPECT_EQ(user.text("Label20"), path.toStdString());
        EXPECT_EQ(notes(), before);
    }
    const auto& label = user.find<QLabel>("Label20");
    EXPECT_TRUE(label.text() == path && label.textFormat() == Qt::PlainText);
    EXPECT_TRUE(label.toolTip().contains("&lt;img"));

    open_map(town);
    show_object(ObjectKind::npc);
    driver("Form10").choose("Event_Editor");
    driver("Form9").click("Command2");
    for (const auto& [shown, control] :
         {std::pair("Form10", "Text1"), {"Form9", "Text3"}, {"Form9", "Text2"}})
        EXPECT_EQ(drop(driver(shown).find(control), Qt::MoveAction | Qt::CopyAction),
                  Qt::TargetMoveAction)
            << control;
}

TEST_F(MainWindowTest, AMapOfTheCommandLineIsAsIfChosenAndBuilt) {
    const auto shown = [&] {
        return std::tuple(form.Combo1, form.Text13, form.HScroll1.maximum, user.text("Status"),
                          state->display.picture.pixels());
    };
    open_map(forest);
    const auto by_hand = shown();
    open_map(town);
    EXPECT_NE(shown(), by_hand);
    window.build_map(forest);
    EXPECT_EQ(shown(), by_hand);
}

TEST_F(TownWindowTest, TheMouseDrawsPicksAndShowsItsPlace) {
    user.click_picture(5 * 32 + 31, 4 * 32, Qt::RightButton); // picks, paints nothing
    EXPECT_EQ(form.current_tile, tile(0, 5, 4));
    EXPECT_TRUE(state->changes_saved);
    user.drag({{32, 64}, {70, 70}, {100, 70}});
    for (int column : {1, 2, 3})
        EXPECT_EQ(tile(0, column, 2), form.current_tile);
    EXPECT_TRUE(shows_picture());
    EXPECT_EQ(user.text("Label26"), "3 2");
    QTest::mouseDClick(&user.find("Picture1"), Qt::LeftButton, {},
                       WindowDriver::on_picture({8, 8}));
    EXPECT_TRUE(state->painting) << "the second press is a press";
}

TEST_F(TownWindowTest, ZoomGridAndViewBoxesRedraw) {
    user.click("Option4");
    EXPECT_EQ(state->display.picture.row(100)[32], 0xFFFFFFu);
    user.click("Command5");
    EXPECT_EQ(user.text("Text4"), "2");
    user.click("Command4");
    EXPECT_EQ(user.text("Text4"), "1");
    const std::pair<int, std::string> turns[] = {{120, "0.5"}, {-240, "2"}, {60, "2"}, {60, "1"}};
    for (const auto& [turn, zoom] : turns) {
        user.wheel("Picture1", {0, turn}, Qt::ControlModifier);
        EXPECT_EQ(user.text("Text4"), zoom) << turn;
    }
    for (const char* box : {"Check5", "Check6", "Check7"}) {
        user.click(box);
        EXPECT_TRUE(std::exchange(state->view_stale, false)) << box;
    }
}

TEST_F(TownWindowTest, BarsAndWheelScroll) {
    user.click("Command2");
    QTest::keyClick(&user.find("Picture1"), Qt::Key_Right);
    const struct {
        QPoint turn;
        Qt::KeyboardModifier key;
        int h, v; // after it
    } turns[] = {{{0, -120}, Qt::NoModifier, 1, 3},
                 {{0, 80}, Qt::NoModifier, 1, 1},
                 {{0, -120}, Qt::ShiftModifier, 4, 1},
                 {{120, 0}, Qt::NoModifier, 1, 1}};
    for (const auto& [turn, key, h, v] : turns) {
        user.wheel("Picture1", turn, key);
        EXPECT_EQ(std::pair(form.HScroll1.value, form.VScroll1.value), std::pair(h, v));
    }
    EXPECT_TRUE(shows_picture());
    EXPECT_EQ(user.find<QScrollBar>("HScroll1").pageStep(), 16);
    EXPECT_EQ(form.HScroll2.value + form.VScroll2.value, 0); // hidden bars stay
    user.click("Command3");
    EXPECT_EQ(form.HScroll1.value, 1) << "it is Command2 that goes to the corner";
}

TEST_F(TownWindowTest, AHeightAtTheLimitOfAnIntScrollsToItsEnd) {
    user.type("Text5", "2147483647");
    user.click("Command4");
    user.click("Command3");
    QTest::keyClick(&user.find("VScroll1"), Qt::Key_End);
    QTest::keyClick(&user.find("Picture1"), Qt::Key_PageDown);
    EXPECT_EQ(form.VScroll1.value, 2147483647 - 8);
    for (int zoom = 0; zoom < 2; ++zoom)
        user.click("Command5"); // more rows come into view, and the bar stays
    user.wheel("Picture1", {0, 120}, Qt::ControlModifier); // about a row beyond the limit
    EXPECT_EQ(form.VScroll1.value, 2147483647 - 16);
}

TEST_F(TownWindowTest, TheCurrentRowCanBeChosenAgainAndTheWheelNeedsTheFocus) {
    const std::string width = form.Text2;
    user.type("Text2", "48");
    user.choose_map(town);
    EXPECT_EQ(form.Text2, width);
    auto& list = user.find<QComboBox>("Combo1");
    QTest::keyClicks(&list, "x" + QString::number(forest)); // starts anew after what is no map
    QTest::keyClick(list.view(), Qt::Key_Return);
    EXPECT_EQ(state->map.map_index, forest);

    user.find("Text2").setFocus();
    user.wheel("Combo1", {0, -120});
    EXPECT_EQ(form.Combo1, forest);
    list.setFocus();
    user.wheel("Combo1", {0, -120});
    EXPECT_EQ(state->map.map_index, forest + 1);
}

TEST_F(MainWindowTest, TickedObjectBoxesTakeTheColourOfTheirKind) {
    constexpr QRgb colours[] = {0xFFFF0000, 0xFFFFFF00, 0xFF0000FF, 0xFF00FF00};
    for (int i = 0; i < 4; ++i) {
        const QString control = QString("Check%1").arg(i + 1);
        auto& box = user.find(control);
        const auto background = [&] { return box.grab().toImage().pixel(box.width() - 2, 2); };
        const QRgb plain = background();
        user.click(control);
        EXPECT_EQ(background(), colours[i]) << i;
        user.click(control);
        EXPECT_EQ(background(), plain) << i;
    }
}

TEST_F(MainWindowTest, AnEditThatThrowsIsShownAndLetsTheNextOneRun) {
    int shown = 0, ran = 0;
    EditGate gate(dialogs, [&] { ++shown; });
    const Gate run = gate.gate(window);
    EXPECT_THROW(run([] { throw 1; }), int);
    run([&] { ++ran; });
    EXPECT_TRUE(shown == 2 && ran == 1);
}

TEST_F(TownWindowTest, AQuestionEndsAStrokeAndNothingElseActsMeanwhile) {
    auto& picture = user.find("Picture1");
    const QPoint corner = WindowDriver::on_picture({8, 8});
    form.HScroll1.visible = false; // as a world map leaves it
    QTest::mousePress(&picture, Qt::LeftButton, {}, corner);
    WindowDriver::move(picture, corner, Qt::LeftButton);
    EXPECT_TRUE(state->painting && !user.find("HScroll1").isVisible());
    const std::string place = user.text("Label26");
    answers.answers = {false, true};
    answers.meanwhile = [&] {
        EXPECT_TRUE(user.find("HScroll1").isVisible()) << "the present state shows";
        user.find<QPushButton>("Command4").click();
        WindowDriver::move(picture, QPoint(300, 300), Qt::LeftButton);
    };
    user.choose_map(forest);
    EXPECT_FALSE(state->painting);
    EXPECT_EQ(state->map.map_index, town);
    EXPECT_EQ(user.text("Combo1"), "map " + std::to_string(forest)) << "the clicked row stays";
    EXPECT_EQ(user.text("Text4") + " " + user.text("Label26"), "1 " + place);
    user.choose_map(forest);
    EXPECT_EQ(state->map.map_index, forest);
    EXPECT_EQ(answers.boxes, Messages(2, {"Selecting another map without saving will erase your "
                                          "changes, continue?",
                                          "Veldrune Map Editor"}));
    QTest::mouseRelease(&picture, Qt::LeftButton, {}, corner);
    EXPECT_TRUE(state->changes_saved) << "no click follows";
}

TEST_F(MainWindowTest, TheMenuOpensAWorldAndTheListLeadsBack) {
    window.open_file("a.smc");
    const QRect place = user.find("Text14").geometry();
    const auto expect_controls = [&](bool of_world) { // FieldsTest has all fields of a world
        for (const char* control : {"Text2", "Command2", "Command3", "Command4", "Command5"})
            EXPECT_NE(user.find(control).isEnabled(), of_world) << control;
        for (const auto& [map, world] :
             {std::pair("Text14", "Text24"), {"HScroll1", "HScroll2"}, {"VScroll1", "VScroll2"}})
            EXPECT_TRUE(user.find(world).isVisible() == of_world &&
                        user.find(map).isVisible() != of_world)
                << map;
        EXPECT_TRUE(user.find("Command1").isEnabled() && shows_picture());
    };
    user.choose("Dusk");
    expect_controls(true);
    EXPECT_EQ(user.text("Combo1"), "map 1");
    EXPECT_EQ(user.find("Text24").geometry(), place);
    for (const char* bar : {"VScroll2", "HScroll2"}) {
        const auto before = state->display.picture.pixels();
        user.find<QScrollBar>(bar).setValue(100);
        EXPECT_NE(state->display.picture.pixels(), before);
    }
    user.wheel("Picture1", {0, -120});
    EXPECT_GT(form.VScroll2.value, 100);
    user.choose_map(1); // the row that is current already
    expect_controls(false);
    EXPECT_TRUE(answers.boxes.empty());
}

TEST_F(TownWindowTest, TheEntriesOfTheMenusRun) {
    user.choose("Copy");
    const std::string palette = form.Text13;
    user.type("Text13", "77");
    user.choose("Paste");
    EXPECT_EQ(user.text("Text13"), palette);
    user.choose("Clear");
    EXPECT_EQ(tile(0, 3, 3), 0);
    EXPECT_TRUE(shows_picture());
    user.choose("Expand");
    user.choose("Dialogue_Patch");
    EXPECT_EQ(disk["a.smc"][0x3000E1], 0xFD);
}

TEST_F(TownWindowTest, TheTabKeyGoesThroughTheControlsInTheirOrder) {
    EXPECT_EQ(user.tab_order("Combo1"),
              "Combo1 Command3 Command2 Command1 Command4 Command5 Text4 Option10 Option5 Option1 "
              "Check5 Check6 Check7 Check1 Check2 Check3 Check4 Text2 Text1 Text21 Text5 Text3 "
              "Text22 Text6 Text7 Text23 Text14 Text12 Text25 Text39 Text40 Text42 Text43 Text8 "
              "Text9 Text10 Text11 Text18 Text13 Text16 Text17 Text37 Text45 Text44 Text46 Text41 "
              "Check8 Text20 Picture1");
    EXPECT_EQ(user.find<QLabel>("Label6").buddy()->objectName(), "Text14");
}

} // namespace
} // namespace veldrune::test
