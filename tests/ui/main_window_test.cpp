#include "support/window_test.h"

#include <QCheckBox>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTemporaryDir>

namespace veldrune::test {
namespace {

constexpr int town = demo::demo_map::town;
constexpr int forest = demo::demo_map::forest;

class MainWindowTest : public WindowTest {
  protected:
    bool is_black() {
        return std::ranges::all_of(state->picture.pixels, [](Colour pixel) { return pixel == 0; });
    }
};

TEST_F(MainWindowTest, WithoutAnImageCommandsAreSilentAndOnlyTheZoomMoves) {
    EXPECT_EQ(window.windowTitle(), "Veldrune Map Editor 1.00");
    EXPECT_FALSE(user.find("Combo1").isEnabled());
    EXPECT_EQ(user.find<QComboBox>("Combo1").count(), 414);
    EXPECT_EQ(user.find<QComboBox>("Combo1").itemText(413), "map 413");
    for (const char* control : {"Command1", "Command2", "Command3", "Command4", "Option4"})
        user.click(control);
    for (const char* command :
         {"Save", "SaveAs", "Dawn", "Dusk", "Clear", "Copy", "Paste", "Expand", "Dialogue_Patch"})
        user.choose(command);
    user.click_picture(40, 40);
    user.click_picture(40, 40, Qt::RightButton);
    EXPECT_TRUE(is_black());
    EXPECT_TRUE(state->changes_saved);
    EXPECT_EQ(user.find<QLineEdit>("Text4").text(), "0.5");
    EXPECT_TRUE(answers.boxes.empty());
}

TEST_F(MainWindowTest, TheFirstMapLeavesTheBuildDeadUntilAHigherOneIsChosen) {
    window.open_file("a.smc");
    user.click("Command3");
    user.choose("Save");
    EXPECT_TRUE(is_black());
    user.choose_map(0);
    EXPECT_NE(form.Text14, "0");
    EXPECT_EQ(user.find<QLineEdit>("Text14").text().toStdString(), form.Text14);
    user.click("Command3");
    EXPECT_TRUE(is_black());
    user.choose_map(town);
    user.click("Command3");
    EXPECT_FALSE(is_black());
    EXPECT_TRUE(shows_picture());
    EXPECT_TRUE(answers.boxes.empty());
    EXPECT_EQ(disk["a.smc"], demo_bytes());
}

TEST_F(MainWindowTest, OpensWhatTheDialogNamesAndKeepsTheImageOnCancel) {
    const QTemporaryDir folder;
    const QString name = folder.filePath("x.smc");
    ASSERT_TRUE(QFile(name).open(QIODevice::WriteOnly)); // the dialog asks for a file that exists
    disk[name.toStdString()] = demo_bytes();
    answers.file_name = name;
    QTest::keyClick(&window, Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(user.find<QLabel>("Label20").text(), name);
    EXPECT_TRUE(user.find("Combo1").isEnabled());
    answers.file_name.reset();
    user.choose("Open");
    EXPECT_EQ(user.find<QLabel>("Label20").text(), name);
    const std::string filter = "Super Nintendo Roms (*.smc);;All Files (*)";
    EXPECT_EQ(answers.boxes, (std::vector<BoxAnswers::Box>{{filter, "Open"}, {filter, "Open"}}));
}

TEST_F(MainWindowTest, SaveAsGoesOnInTheCopy) {
    const QTemporaryDir folder;
    open_map(town);
    answers.file_name = folder.filePath("copy");
    user.type("Text13", "7");
    user.choose("SaveAs");
    const std::string copy = folder.filePath("copy.smc").toStdString();
    EXPECT_EQ(user.find<QLabel>("Label20").text().toStdString(), copy);
    EXPECT_EQ(disk["a.smc"], demo_bytes());
    EXPECT_EQ(disk[copy][static_cast<std::size_t>(record_offset(town)) + 25], 7);
}

TEST_F(MainWindowTest, AFileThatIsDroppedIsOpened) {
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile("/a.smc")});
    disk["/a.smc"] = demo_bytes();
    QDragEnterEvent enter({}, Qt::CopyAction, &files, Qt::LeftButton, {});
    QApplication::sendEvent(&window, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({}, Qt::CopyAction, &files, Qt::LeftButton, {});
    QApplication::sendEvent(&window, &drop);
    EXPECT_EQ(user.find<QLabel>("Label20").text(), "/a.smc");
}

TEST_F(MainWindowTest, TypedFieldsAreSavedAndReadAgain) {
    open_map(town);
    const struct {
        const char* control;
        const char* text;
    } fields[] = {{"Text8", "3"},   {"Text9", "4"},   {"Text10", "5"},  {"Text11", "6"},
                  {"Text13", "9"},  {"Text16", "11"}, {"Text17", "12"}, {"Text18", "13"},
                  {"Text37", "14"}, {"Text39", "1A"}, {"Text40", "1B"}, {"Text41", "1C"},
                  {"Text42", "1D"}, {"Text43", "1E"}, {"Text44", "15"}, {"Text45", "16"},
                  {"Text46", "1F"}, {"Text6", "17"},  {"Text7", "18"},  {"Text23", "6"}};
    for (const auto& [control, text] : fields)
        user.type(control, text);
    const bool battles = form.Check8;
    user.click("Check8");
    user.type("Text20", "mine");
    EXPECT_EQ(form.Text20, "mine");
    QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
    user.choose_map(forest);
    user.choose_map(town);
    for (const auto& [control, text] : fields)
        EXPECT_EQ(user.find<QLineEdit>(control).text(), text) << control;
    EXPECT_EQ(user.find<QCheckBox>("Check8").isChecked(), !battles);
    EXPECT_TRUE(answers.boxes.empty());
}

TEST_F(MainWindowTest, TheMouseDrawsPicksAndTellsItsPlace) {
    open_map(town);
    user.click_picture(5 * 32 + 31, 4 * 32, Qt::RightButton); // picks, paints nothing
    EXPECT_EQ(form.current_tile, tile(0, 5, 4));
    EXPECT_EQ(form.tool, Tool::draw);
    EXPECT_TRUE(state->changes_saved);
    const int picked = form.current_tile;

    user.drag({{32, 64}, {70, 70}, {100, 70}});
    for (int column : {1, 2, 3})
        EXPECT_EQ(tile(0, column, 2), picked);
    EXPECT_FALSE(state->changes_saved);
    EXPECT_TRUE(shows_picture());
    EXPECT_EQ(user.find<QLabel>("Label26").text(), "3 2");

    user.click("Option2");
    user.click("Option11");
    EXPECT_TRUE(user.find<QRadioButton>("Option11").isChecked());
    user.click_picture(300, 200);
    EXPECT_EQ(form.current_tile, tile(1, 9, 6));
    EXPECT_TRUE(user.find<QRadioButton>("Option10").isChecked());
    user.click_picture(10, 10); // the next press paints again
    EXPECT_EQ(tile(1, 0, 0), form.current_tile);

    user.click("Option12");
    const LayerMap before = state->layers[1].map;
    user.drag({{32, 200}, {200, 200}});
    EXPECT_EQ(before.cells, state->layers[1].map.cells);
}

TEST_F(MainWindowTest, AClickOutsideAndADoubleClickAreTold) {
    open_map(town);
    form.current_tile = tile(0, 0, 0) ^ 1;
    auto& picture = user.find("Picture1");
    QTest::mousePress(&picture, Qt::LeftButton, {}, WindowDriver::on_picture(8, 8));
    QTest::mouseRelease(&picture, Qt::LeftButton, {}, WindowDriver::on_picture(-1, 8));
    EXPECT_TRUE(state->changes_saved) << "released outside: no click";
    EXPECT_FALSE(state->painting);
    QTest::mouseDClick(&picture, Qt::LeftButton, {}, WindowDriver::on_picture(8, 8));
    EXPECT_TRUE(state->painting) << "the second press is a press";
    QTest::mouseRelease(&picture, Qt::LeftButton, {}, WindowDriver::on_picture(8, 8));
    EXPECT_EQ(tile(0, 0, 0), form.current_tile);
}

TEST_F(MainWindowTest, ZoomGridAndViewBoxesRedraw) {
    open_map(town);
    user.find<QScrollBar>("HScroll1").setValue(1);
    user.find<QScrollBar>("HScroll1").setValue(0);
    const auto plain = state->picture.pixels;
    user.click("Option4");
    EXPECT_EQ(state->picture.row(100)[32], 0xFFFFFFu);
    EXPECT_TRUE(shows_picture());
    user.click("Option5");
    EXPECT_EQ(state->picture.pixels, plain);
    for (const char* text : {"0.5", "0.25", "0.25"}) {
        user.click("Command4");
        EXPECT_EQ(user.find<QLineEdit>("Text4").text(), text);
    }
    user.wheel("Picture1", {0, -240}, Qt::ControlModifier);
    user.wheel("Picture1", {0, -60}, Qt::ControlModifier);
    EXPECT_EQ(user.find<QLineEdit>("Text4").text(), "1") << "half a notch is none";
    EXPECT_EQ(state->picture.pixels, plain);

    for (const char* box : {"Check5", "Check6", "Check7"})
        user.click(box);
    EXPECT_TRUE(state->view_stale);
    EXPECT_EQ(state->picture.pixels, plain);
    user.click("Command4");
    EXPECT_TRUE(is_black());
}

TEST_F(MainWindowTest, BarsAndWheelScroll) {
    open_map(town);
    user.click("Command2");
    auto& across = user.find<QScrollBar>("HScroll1");
    auto& down = user.find<QScrollBar>("VScroll1");
    ASSERT_GT(form.HScroll1.maximum, 6);
    ASSERT_GT(form.VScroll1.maximum, 6);
    QTest::keyClick(&user.find("Picture1"), Qt::Key_Right);
    EXPECT_EQ(form.HScroll1.value, 1);
    EXPECT_EQ(state->last_h, 1);
    user.wheel("Picture1", {0, -120});
    EXPECT_EQ(form.VScroll1.value, 3);
    user.wheel("Picture1", {0, 80});
    EXPECT_EQ(form.VScroll1.value, 1);
    user.wheel("Picture1", {0, -120}, Qt::ShiftModifier);
    EXPECT_EQ(form.HScroll1.value, 4);
    user.wheel("Picture1", {120, 0});
    EXPECT_EQ(form.HScroll1.value, 1);
    EXPECT_TRUE(shows_picture());
    EXPECT_EQ(across.pageStep(), 16);
    EXPECT_EQ(across.maximum(), form.HScroll1.maximum);
    EXPECT_EQ(down.value(), 1);
    EXPECT_FALSE(user.find("HScroll2").isVisible());
    EXPECT_EQ(form.HScroll2.value + form.VScroll2.value, 0); // hidden bars stay

    user.click_picture(8, 8, Qt::RightButton);
    EXPECT_EQ(form.current_tile, tile(0, 1, 1));
}

TEST_F(MainWindowTest, TheCurrentRowCanBeChosenAgain) {
    open_map(town);
    const std::string width = form.Text2;
    user.type("Text2", "48");
    user.choose_map(town);
    EXPECT_EQ(form.Text2, width);
    auto& list = user.find<QComboBox>("Combo1");
    user.type("Text2", "48");
    QTest::keyClicks(&list, "map x12 map" + QString::number(town)); // "x" starts anew
    QTest::keyClick(list.view(), Qt::Key_Return);
    EXPECT_EQ(form.Text2, width);
}

TEST_F(MainWindowTest, TheWheelLeavesAListWithoutTheFocusAlone) {
    open_map(town);
    user.find("Text2").setFocus();
    user.wheel("Combo1", {0, -120});
    user.wheel("Text13", {0, -120});
    EXPECT_EQ(form.Combo1, town);
    user.find("Combo1").setFocus();
    user.wheel("Combo1", {0, -120});
    EXPECT_EQ(form.Combo1, town + 1);
    EXPECT_EQ(state->map_index, town + 1);
}

TEST_F(MainWindowTest, TickedObjectBoxesTakeTheColourOfTheirKind) {
    const struct {
        const char* control;
        QRgb colour;
    } boxes[] = {{"Check1", 0xFFFF0000},
                 {"Check2", 0xFFFFFF00},
                 {"Check3", 0xFF0000FF},
                 {"Check4", 0xFF00FF00}};
    for (const auto& [control, colour] : boxes) {
        auto& box = user.find<QCheckBox>(control);
        const auto background = [&] { return box.grab().toImage().pixel(box.width() - 2, 2); };
        const QRgb plain = background();
        user.click(control);
        EXPECT_EQ(background(), colour) << control;
        user.click(control);
        EXPECT_EQ(background(), plain) << control;
    }
}

TEST_F(MainWindowTest, UnsavedChangesAreAskedAboutAndTheListKeepsTheClickedRow) {
    open_map(town);
    form.HScroll1.visible = false; // as a world map leaves it
    user.click_picture(8, 8);
    EXPECT_FALSE(user.find("HScroll1").isVisible());
    answers.answers = {false, true};
    answers.meanwhile = [&] { // nothing acts behind the box, and it shows the present state
        EXPECT_TRUE(user.find("HScroll1").isVisible());
        user.find<QPushButton>("Command4").click();
        WindowDriver::move(user.find("Picture1"), QPoint(300, 300), Qt::LeftButton);
    };
    user.choose_map(forest);
    EXPECT_EQ(state->map_index, town);
    EXPECT_EQ(user.find<QComboBox>("Combo1").currentText(), QString("map %1").arg(forest));
    EXPECT_EQ(form.Text4, "1");
    user.choose_map(forest);
    EXPECT_EQ(state->map_index, forest);
    const BoxAnswers::Box question{
        "Selecting another map without saving will erase your changes, continue?",
        "Veldrune Map Editor"};
    EXPECT_EQ(answers.boxes, std::vector({question, question}));
}

TEST_F(MainWindowTest, ABoxEndsAStroke) {
    open_map(town);
    auto& picture = user.find("Picture1");
    QTest::mousePress(&picture, Qt::LeftButton, {}, WindowDriver::on_picture(8, 8));
    WindowDriver::move(picture, WindowDriver::on_picture(9, 9), Qt::LeftButton);
    EXPECT_TRUE(state->painting);
    user.choose_map(forest);
    EXPECT_EQ(answers.boxes.size(), 1u);
    EXPECT_FALSE(state->painting);
    QTest::mouseRelease(&picture, Qt::LeftButton, {}, WindowDriver::on_picture(9, 9));
    EXPECT_TRUE(state->changes_saved) << "no click follows";
}

TEST_F(MainWindowTest, ARecordIsCopiedPastedAndTheMapCleared) {
    open_map(forest);
    const std::string palette = form.Text13, location = form.Text14;
    user.choose("Copy");
    user.choose_map(town);
    user.type("Text13", "77");
    user.choose("Paste");
    EXPECT_EQ(user.find<QLineEdit>("Text13").text().toStdString(), palette);
    EXPECT_EQ(user.find<QLineEdit>("Text14").text().toStdString(), location);
    user.choose("Clear");
    EXPECT_EQ(tile(0, 3, 3), 0);
    EXPECT_TRUE(shows_picture());
    user.choose("Expand");
    user.choose("Dialogue_Patch");
    EXPECT_EQ(disk["a.smc"].size(), 0x400200u);
    EXPECT_EQ(disk["a.smc"][0x3000E1], 0xFD);
    EXPECT_TRUE(answers.boxes.empty());
}

// What the user is told on Save, Save As and a build. Each row spoils a field or the image first.
TEST_F(MainWindowTest, EveryMessageInItsExactWords) {
    const QTemporaryDir folder;
    const auto copy_to = [&](const char* name) { answers.file_name = folder.filePath(name); };
    const std::string copy = folder.filePath("c.smc").toStdString();
    const BoxAnswers::Box file_dialog{"Super Nintendo Roms (*.smc);;All Files (*)", "Save As"};
    open_map(town);
    const std::string width = form.Text2, location = form.Text14;
    Random random(1);
    struct Case {
        const char* command;
        std::function<void()> spoil;
        std::vector<BoxAnswers::Box> boxes;
    };
    // clang-format off
    const Case cases[] = {
        {"Save", [&] { user.type("Text44", "1x"); }, {{"The number 1x you've entered is not valid decimal", "Warning"}}},
        {"Save", [&] { user.type("Text39", "1G"); }, {{"The number 1G you've entered is not valid hex", "Warning"}}},
        {"Save", [&] { user.type("Text46", ""); },   {{"invalid hex", "I Pity The Fool"}}},
        {"Save", [&] { user.type("Text2", "48"); },  {{"The map width must be either 16, 32, 64, or 128", "Error"}}},
        {"Save", [&] { user.type("Text5", "8"); },   {{"The map height must be either 16, 32, or 64", "Error"}}},
        {"Save", [&] { user.type("Text5", "0"); },
            {{"Layer 1 can't be saved: it must have from 1 to 8192 tiles, not " + width + " times 0.", "Error"}}},
        {"Save", [&] { state->layers[0].rows_missing = true; },
            {{"Layer 1 can't be saved: it is 128 tiles high, and only 64 of its rows could be loaded.", "Error"}}},
        {"Save", [&] { user.type("Text2", "128"); user.type("Text5", "64");
                       std::ranges::generate(state->layers[0].map.cells, [&] { return random.byte(); }); },
            {{"Layer 1 can't be saved: its stream would take more than 9001 bytes.", "Error"}}},
        {"Save", [&] { state->layers[0].layer_packed_size -= 12; },
            {{"Layer 1 is 12 bytes larger than the original map. Saving this map to the oringal memory location will "
              "undoubtably mess something up. Continue?", "Veldrune Map Editor"}}},
        {"Save", [&] { disk.fail({}, {1, false, false}); },
            {{"Writing to a.smc at " + location + " failed. What was written before stays; nothing more is written.", "Error"}}},
        {"Save", [&] { window.open_file("b.smc"); },
            {{"This map was read from a.smc, but b.smc is open. Save it all the same?", "Veldrune Map Editor"}}},
        {"SaveAs", [&] { copy_to("b.smc"); user.type("Text2", "48"); }, {file_dialog, {"Not a valid mapsize", "error"}}},
        {"SaveAs", [&] { copy_to("c.smc"); disk.fail({}, {1, true, false}); },
            {file_dialog, {"The image could not be copied to " + copy + ". a.smc is still open.", "Error"}}},
        {"Memory_Mng", [] {}, {{"Sorry, nothing here yet.", "Nothing here"}}},
        {"About1", [] {},
            {{"Veldrune Map Editor: v1.1\n\nWith thanks to the people who keep old games alive,\n"
              "and to all who still build new worlds in them.", "Veldrune Map Editor"}}},
        {"Expand", [&] { user.choose("Expand"); }, {{"This image has been expanded to 32 Mbit already. Nothing has been changed.", "Error"}}},
        {"Command3", [&] { user.type("Text10", "85"); }, {{"There is no tileset 85: the highest is 84.", "Error"}}},
    };
    // clang-format on
    for (const Case& row : cases) {
        SCOPED_TRACE(row.boxes.back().text);
        disk.fail({}, {});
        disk["a.smc"] = demo_bytes();
        open_map(town);
        answers.boxes.clear();
        row.spoil();
        if (std::string(row.command) == "Command3")
            user.click(row.command);
        else
            user.choose(row.command);
        EXPECT_EQ(answers.boxes, row.boxes);
    }
}

TEST_F(MainWindowTest, TheTabKeyGoesThroughTheControlsInTheirOrder) {
    open_map(town);
    QStringList order;
    QWidget& first = user.find("Combo1");
    first.setFocus();
    do {
        order << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    } while (!first.hasFocus() && order.size() < 100);
    EXPECT_EQ(order.join(' '),
              "Combo1 Command3 Command2 Command1 Command4 Command5 Text4 Option10 Option4 Option1 "
              "Check5 Check6 Check7 Check1 Check2 Check3 Check4 Text2 Text1 Text21 Text5 Text3 "
              "Text22 Text6 Text7 Text23 Text14 Text12 Text25 Text39 Text40 Text42 Text43 Text8 "
              "Text9 Text10 Text11 Text18 Text13 Text16 Text17 Text37 Text45 Text44 Text46 Text41 "
              "Check8 Text20 Picture1");
    EXPECT_EQ(user.find<QLabel>("Label6").buddy()->objectName(), "Text14");
}

TEST_F(MainWindowTest, ExitClosesTheWindowAndAsksNothing) {
    open_map(town);
    user.click_picture(8, 8);
    user.choose("Exit");
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(answers.boxes.empty());
    EXPECT_EQ(disk["a.smc"], demo_bytes());
}

} // namespace
} // namespace veldrune::test
