// Draws the pictures of the documents: opens an image in the real window, works it by mouse and
// keyboard, and writes PNGs of the whole window. Needs no display.
//
// make_screenshots OUT_DIR [IMAGE]        all pictures, of the demo image where none is named
// make_screenshots --window FILE [IMAGE]  the first of them alone

#include "demo/demo_image.h"
#include "editor/editor_state.h"
#include "support/window_driver.h"
#include "ui/main_window.h"
#include "ui/qt_dialogs.h"
#include "ui/windows.h"

#include <QDir>
#include <QFile>
#include <QScrollBar>
#include <QTemporaryDir>

#include <cstdio>
#include <span>
#include <vector>

namespace {

using namespace veldrune;
using namespace veldrune::demo;

/// One picture: a map, and what is done once it is built; or a world, by its entry in the menu.
struct Shot {
    const char* file;
    int map;
    bool zoom_out;
    bool paint;
    const char* world = nullptr;
    int h = 0; // of the world, in view
    int v = 0;
};
// clang-format off
constexpr Shot shots[] = {
    {"main-window.png", demo_map::town,        true,  false},
    {"painting.png",    demo_map::town,        false, true},
    {"forest.png",      demo_map::forest,      false, false},
    {"cave.png",        demo_map::cave,        false, false},
    {"castle-hall.png", demo_map::castle_hall, false, false},
    {"interior.png",    demo_map::interior,    false, false},
    {"world-of-dawn.png", 0,                   false, false, "Dawn", 72, 30},
    {"world-of-dusk.png", 1,                   false, false, "Dusk", 112, 140},
};
// clang-format on

/// With the grid on, picks a tile of the path and draws a way up to the trees with it.
void paint(const test::WindowDriver& user) {
    user.click("Option4");
    user.click_picture(464, 430, Qt::RightButton);
    user.drag({{464, 368}, {464, 336}, {464, 304}, {432, 304}, {400, 304}, {400, 272}});
}

void build_map(const Shot& shot, const test::WindowDriver& user) {
    user.choose_map(shot.map);
    user.click("Command3");
    if (shot.zoom_out)
        user.click("Command5");
    user.click("Command2");
    user.click("Option2");
    user.click_picture(300, 300, Qt::RightButton);
    if (shot.paint)
        paint(user);
}

/// Shows a part of a world and its markers.
void open_world(const Shot& shot, const test::WindowDriver& user) {
    user.choose(shot.world);
    user.click("Check3");
    user.click("Check4");
    user.find<QScrollBar>("HScroll2").setValue(shot.h);
    user.find<QScrollBar>("VScroll2").setValue(shot.v);
    user.click_picture(200, 200, Qt::RightButton);
}

bool take(const Shot& shot, const QString& image, const QString& file) {
    const std::unique_ptr<FileLayer> disk = make_disk();
    QtDialogs dialogs;
    const auto state = std::make_unique<EditorState>(*disk, dialogs);
    Windows windows(*state, dialogs);
    MainWindow& window = windows.main_window();
    const test::WindowDriver user(window);
    window.resize(window.sizeHint());
    user.show();
    window.open_file(image.toStdString());
    if (shot.world)
        open_world(shot, user);
    else
        build_map(shot, user);
    QTest::qWait(20);
    const bool written = window.grab().save(file);
    if (!written)
        std::fprintf(stderr, "%s can't be written\n", qPrintable(file));
    return written;
}

/// Writes the demo image into folder, makes that the current one, so that no other name shows in
/// the pictures, and returns the image's name.
QString demo_image_in(const QTemporaryDir& folder) {
    const std::vector<std::uint8_t> bytes = make_demo_image();
    QDir::setCurrent(folder.path());
    QFile file("demo.smc");
    if (file.open(QIODevice::WriteOnly))
        file.write(reinterpret_cast<const char*>(bytes.data()), qint64(bytes.size()));
    return file.fileName();
}

} // namespace

int main(int argc, char** argv) {
    test::work_without_display();
    const QApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments().mid(1);
    const bool one = arguments.value(0) == "--window";
    if (one)
        arguments.removeFirst();
    if (arguments.isEmpty() || arguments.size() > 2) {
        std::fputs("usage: make_screenshots OUT_DIR [IMAGE]\n"
                   "       make_screenshots --window FILE.png [IMAGE]\n",
                   stderr);
        return 2;
    }
    const QString out = QDir::current().absoluteFilePath(arguments[0]);
    const QTemporaryDir folder;
    const QString image = arguments.size() == 2 ? arguments[1] : demo_image_in(folder);
    bool written = true;
    for (const Shot& shot : std::span(shots).first(one ? 1 : std::size(shots)))
        written = take(shot, image, one ? out : out + "/" + shot.file) && written;
    return written ? 0 : 1;
}
