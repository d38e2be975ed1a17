// Draws the pictures of the documents: opens an image in the real windows, operates them by mouse
// and keyboard, and writes PNGs of them. Needs no display.
//
// make_screenshots OUT_DIR [IMAGE]        all pictures, of the demo image if none is named
// make_screenshots --window FILE [IMAGE]  the first of them alone

#include "demo/demo_image.h"
#include "editor/editor_state.h"
#include "support/window_driver.h"
#include "ui/main_window.h"
#include "ui/qt_dialogs.h"
#include "ui/windows.h"

#include <QDir>
#include <QFile>
#include <QPainter>
#include <QScrollBar>
#include <QTabBar>
#include <QTableView>
#include <QTemporaryDir>

#include <cstdio>
#include <span>
#include <vector>

namespace {

using namespace veldrune;
using namespace veldrune::demo;

// What a picture is taken of once its map is built.
enum class Scene { map, whole_map, painting, markers, chooser, world };

// A picture of the main window, or of the chooser.
struct Shot {
    const char* file;
    int map;
    Scene scene;
};
// clang-format off
constexpr Shot shots[] = {
    {"main-window.png",  demo_map::town,        Scene::whole_map},
    {"painting.png",     demo_map::town,        Scene::painting},
    {"forest.png",       demo_map::forest,      Scene::map},
    {"cave.png",         demo_map::cave,        Scene::map},
    {"castle-hall.png",  demo_map::castle_hall, Scene::map},
    {"interior.png",     demo_map::interior,    Scene::map},
    {"markers.png",      demo_map::town,        Scene::markers},
    {"tile-chooser.png", demo_map::town,        Scene::chooser},
    {"world-of-dawn.png", 0,                    Scene::world},
    {"world-of-dusk.png", 1,                    Scene::world},
};
// The object window on each of its tabs.
constexpr const char* tab_files[object_tab_count] = {
    "object-npc.png", "object-chest.png", "object-event.png", "object-entrance.png", "object-long-entrance.png",
};
// clang-format on

// The windows over the open image.
struct Stage {
    std::unique_ptr<FileLayer> disk = make_disk();
    QtDialogs dialogs;
    std::unique_ptr<EditorState> state = std::make_unique<EditorState>(*disk, dialogs);
    Windows windows{*state, dialogs};
    MainWindow& window = windows.main_window();
    test::WindowDriver user{window};

    explicit Stage(const QString& image) {
        window.resize(window.sizeHint());
        user.show();
        window.open_file(image.toStdString());
    }
    void build(int map) const {
        user.choose_map(map);
        user.click("Command3");
    }
    void show_objects() const {
        for (const char* control : {"Check1", "Check2", "Check3", "Check4", "Option12"})
            user.click(control);
    }
};

// The window of a form, which must be visible.
QWidget& shown(const char* form) {
    QWidget* window = test::visible_window(form);
    if (!window)
        qFatal("%s does not show", form);
    return *window;
}

bool write(const QPixmap& picture, const QString& file) {
    const bool written = picture.save(file);
    if (!written)
        std::fprintf(stderr, "%s can't be written\n", qPrintable(file));
    return written;
}

// With the grid on, picks a tile of the path and draws a way up to the trees with it.
void paint(const test::WindowDriver& user) {
    user.click("Option4");
    user.click_picture(464, 430, Qt::RightButton);
    user.drag({{464, 368}, {464, 336}, {464, 304}, {432, 304}, {400, 304}, {400, 272}});
}

// The chooser with the palette beside it.
QPixmap chooser(const test::WindowDriver& user) {
    user.click("Command1");
    QTest::qWait(20);
    const QPixmap palette = shown("Form2").grab();
    const QPixmap sheet = shown("Form8").grab();
    const int left = palette.width() + 8;
    QPixmap both(left + sheet.width(), sheet.height());
    both.fill(Qt::white);
    QPainter painter(&both);
    painter.drawPixmap(0, 0, palette);
    painter.drawPixmap(left, 0, sheet);
    return both;
}

// Shows a part of the world of map 0 or 1, with its markers.
void open_world(int map, const test::WindowDriver& user) {
    user.click("Check3");
    user.click("Check4");
    user.choose(map == 0 ? "Dawn" : "Dusk");
    user.find<QScrollBar>("HScroll2").setValue(map == 0 ? 72 : 112);
    user.find<QScrollBar>("VScroll2").setValue(map == 0 ? 30 : 140);
    user.click_picture(200, 200, Qt::RightButton);
    QTest::qWait(20);
}

bool take(const Shot& shot, const QString& image, const QString& file) {
    const Stage stage(image);
    const test::WindowDriver& user = stage.user;
    if (shot.scene == Scene::world) {
        open_world(shot.map, user);
        return write(stage.window.grab(), file);
    }
    if (shot.scene == Scene::markers)
        stage.show_objects();
    stage.build(shot.map);
    if (shot.scene == Scene::whole_map || shot.scene == Scene::markers)
        user.click("Command5");
    user.click("Command2");
    user.click("Option2");
    user.click_picture(300, 300, Qt::RightButton);
    if (shot.scene == Scene::chooser)
        return write(chooser(user), file);
    if (shot.scene == Scene::painting)
        paint(user);
    QTest::qWait(20);
    return write(stage.window.grab(), file);
}

// The script of the town's first NPC, with the edit box over the number of a dialogue.
bool take_script(const test::WindowDriver& object_window, const QString& file) {
    auto& tabs = object_window.find<QTabBar>("TabStrip1");
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(0).center());
    object_window.choose("Event_Editor");
    QWidget& window = shown("Form9");
    const test::WindowDriver user(window);
    user.activate();
    const auto& grid = user.find<QTableView>("grid");
    for (int row = 1; row < grid.model()->rowCount(); ++row)
        if (grid.model()->index(row - 1, 0).data() == "4B") {
            const QRect number = grid.visualRect(grid.model()->index(row, 1));
            QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, number.center());
            break;
        }
    QTest::qWait(20);
    return write(window.grab(), file);
}

// Clicks through the town until an object opens. Then draws each tab with the town's first record
// of its kind, and the Event Editor with the first NPC's script.
bool take_objects(const QString& image, const QString& folder) {
    const Stage stage(image);
    stage.show_objects();
    stage.build(demo_map::town);
    for (int tile = 0; tile < 256 && !test::visible_window("Form10"); ++tile)
        stage.user.click_picture(tile % 16 * 32 + 8, tile / 16 * 32 + 8);
    QWidget* window = test::visible_window("Form10");
    if (!window) {
        std::fputs("no object shows in the town\n", stderr);
        return false;
    }
    window->resize(window->sizeHint()); // whatever the screen
    auto& tabs = *window->findChild<QTabBar*>();
    bool written = true;
    for (int tab = 0; tab < object_tab_count; ++tab) {
        QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(tab).center());
        QTest::qWait(20);
        written = write(window->grab(), folder + "/" + tab_files[tab]) && written;
    }
    return take_script(test::WindowDriver(*window), folder + "/event-editor.png") && written;
}

// Writes the demo image into folder and returns its name. Makes folder the current directory, so
// that no path shows in the pictures.
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
    if (!one)
        written = take_objects(image, out) && written;
    return written ? 0 : 1;
}
