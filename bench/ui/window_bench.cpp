// From what the user does to the picture of the window: the first window, the mouse and painting on
// the map, and the Event Editor on the longest scripts.

#include "demo/demo_image.h"
#include "editor/object_window.h"
#include "figures.h"
#include "support/script_fixture.h"
#include "support/window_driver.h"
#include "ui/main_window.h"
#include "ui/qt_dialogs.h"
#include "ui/windows.h"
#include "windows.h"

#include <QScrollBar>
#include <QTableView>

#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace veldrune::bench {
namespace {

constexpr std::size_t plain_at = 0x40000;    // 10000 rows of the default height
constexpr std::size_t dialogue_at = 0x50000; // 6667 rows, every other one of a dialogue

test::Bytes long_scripts() {
    test::Bytes image = test::script_image();
    std::fill_n(image.begin() + plain_at, max_script_bytes - 1, std::uint8_t{0x38});
    image[plain_at + max_script_bytes - 1] = return_command;
    for (std::size_t i = 0; i < max_script_bytes - 1; ++i)
        image[dialogue_at + i] = i % 3 == 0 ? 0x4B : i % 3 == 1 ? static_cast<std::uint8_t>(i) : 0;
    image[dialogue_at + max_script_bytes - 2] = 0x38; // where no whole dialogue fits
    image[dialogue_at + max_script_bytes - 1] = return_command;
    return image;
}

class OpenEventEditor {
  public:
    OpenEventEditor() {
        disk_["a.smc"] = long_scripts();
        windows_.main_window().open_file("a.smc");
        state_->objects.selected_object.script_offset = plain_at;
        open_event_editor(*state_);
        const test::WindowDriver main(windows_.main_window());
        main.show();
        main.click("Check3"); // any edit shows the state
        window_ = test::visible_window("Form9");
        draw();
    }
    void draw() { use(window_->grab().toImage()); }
    void load(std::size_t offset) {
        const test::WindowDriver user(*window_);
        user.type("Text3", QString::number(offset, 16));
        QTest::keyClick(&user.find("Text3"), Qt::Key_Return);
        draw();
    }
    // What follows every edit in any window, and every move of the mouse over the map.
    void show_all() {
        const Gate edit = windows_.edit_gate().gate(*window_);
        edit([] {});
    }
    test::WindowDriver user() { return test::WindowDriver(*window_); }
    EditorState& state() { return *state_; }

  private:
    test::MemoryDisk disk_;
    QtDialogs dialogs_;
    std::unique_ptr<EditorState> state_ = std::make_unique<EditorState>(disk_, dialogs_);
    Windows windows_{*state_, dialogs_};
    QWidget* window_ = nullptr;
};

// The main window with the demo's town, the pencil on layer 1, and the tile chooser if wanted.
class OpenMap {
  public:
    OpenMap() {
        disk_["a.smc"] = demo::make_demo_image();
        windows_.main_window().open_file("a.smc");
        const test::WindowDriver user(windows_.main_window());
        user.show();
        windows_.main_window().resize(windows_.main_window().sizeHint()); // all of it is in view
        user.choose_map(demo::demo_map::town);
        user.click("Command3");
        picture_ = &user.find("Picture1");
        wait(windows_.main_window());
    }
    // A move of the mouse to the next place, and all drawing that follows.
    void move(Qt::MouseButtons held, QPoint by) {
        at_ = {(at_.x() + by.x()) % 500, (at_.y() + by.y()) % 500};
        test::WindowDriver::move(*picture_, test::WindowDriver::on_picture(at_), held);
        wait(windows_.main_window());
    }
    void press() {
        QTest::mousePress(picture_, Qt::LeftButton, {}, test::WindowDriver::on_picture(at_));
        wait(windows_.main_window());
    }
    void open_world() {
        run_command(*state_, Command::open_world_of_dawn);
        show_state();
    }
    void open_object_window() {
        open_object(*state_, ObjectKind::npc, 0);
        show_state();
    }
    // The picture three times as large.
    void enlarge() {
        QWidget& window = windows_.main_window();
        window.resize(window.sizeHint() + 2 * picture_->size());
        wait(window);
    }
    void scroll() {
        auto& bar = test::WindowDriver(windows_.main_window()).find<QScrollBar>("HScroll1");
        bar.setValue((bar.value() + 1) % bar.maximum());
        wait(windows_.main_window());
    }
    // Another digit in the place of the former one.
    void type() {
        QWidget& field = test::WindowDriver(windows_.main_window()).find("Text13");
        QTest::keyClick(&field, Qt::Key_Backspace);
        QTest::keyClick(&field, digit_ = digit_ == '3' ? '5' : '3');
        wait(windows_.main_window());
    }
    void choose_tile() {
        test::WindowDriver(windows_.main_window()).click("Command1");
        chooser_ = test::visible_window("Form8");
        test::WindowDriver(*chooser_).activate();
        wait(*chooser_);
    }
    // The cursor of the chooser, there and back.
    void step() {
        key_ = key_ == Qt::Key_Right ? Qt::Key_Left : Qt::Key_Right;
        QTest::keyClick(&test::WindowDriver(*chooser_).find("Picture1"), key_);
        wait(*chooser_);
    }

  private:
    void show_state() {
        test::WindowDriver(windows_.main_window()).click("Option4"); // any edit shows it
        wait(windows_.main_window());
    }
    // A window draws what has changed when it is asked to, at the latest some milliseconds later.
    static void wait(QWidget& window) {
        QCoreApplication::processEvents();
        QEvent draw(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(&window, &draw);
    }

    test::MemoryDisk disk_;
    QtDialogs dialogs_;
    std::unique_ptr<EditorState> state_ = std::make_unique<EditorState>(disk_, dialogs_);
    Windows windows_{*state_, dialogs_};
    QWidget* picture_ = nullptr;
    QWidget* chooser_ = nullptr;
    QPoint at_{8, 8};
    char digit_ = '3';
    Qt::Key key_ = Qt::Key_Left;
};

// The application lives as long as the figures are measured.
void start_application() {
    static int argc = 1;
    static char name[] = "veldrune_bench";
    static std::array<char*, 2> argv{name, nullptr};
    static const bool started = [] {
        test::work_without_display();
        new QApplication(argc, argv.data()); // is never ended
        return true;
    }();
    use(started);
}

template <typename Editor>
MakeWork in_window(const std::function<void(Editor&)>& prepare,
                   const std::function<void(Editor&)>& step) {
    return [=]() -> Work {
        start_application();
        const auto editor = std::make_shared<Editor>();
        prepare(*editor);
        return [=] { step(*editor); };
    };
}

constexpr const char* child_argument = "--first-window";

// Starts this program to show its first window. Returns its memory in megabytes.
double start_child() {
    const std::string program = std::filesystem::read_symlink("/proc/self/exe").string();
    FILE* child = ::popen(("'" + program + "' " + child_argument).c_str(), "r");
    double kilobytes = 0;
    if (!child || std::fscanf(child, "%lf", &kilobytes) != 1)
        throw std::runtime_error("the first window did not come");
    ::pclose(child);
    return kilobytes / 1024;
}

// Of this program, as the system counts it.
long kilobytes_in_memory() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (long kilobytes = 0; word == "VmRSS:" && status >> kilobytes)
            return kilobytes;
    return 0;
}

// "Add Item" in the middle, and Escape.
void add_and_escape(OpenEventEditor& editor) {
    editor.user().click("Command2");
    QTest::keyClick(&editor.user().find("Text2"), Qt::Key_Escape);
    editor.draw();
}

void scroll(OpenEventEditor& editor) {
    QScrollBar& bar = *editor.user().find<QTableView>("grid").verticalScrollBar();
    bar.setValue((bar.value() + 997) % bar.maximum());
    editor.draw();
}

} // namespace

bool is_window_child(int argc, char** argv) {
    return argc == 2 && std::strcmp(argv[1], child_argument) == 0;
}

int show_first_window(int argc, char** argv) {
    test::work_without_display();
    const QApplication application(argc, argv);
    const std::unique_ptr<FileLayer> disk = make_disk();
    QtDialogs dialogs;
    const auto state = std::make_unique<EditorState>(*disk, dialogs);
    Windows windows(*state, dialogs);
    windows.main_window().show();
    if (!QTest::qWaitForWindowExposed(&windows.main_window()))
        return 1;
    QCoreApplication::processEvents();
    std::printf("%ld\n", kilobytes_in_memory());
    return 0;
}

void add_window_figures(Figures& figures) {
    const auto add = [&](const char* name, Goal goal, const MakeWork& work) {
        figures.figures.push_back({name, goal, work});
    };
    add("start the program, first window", {Goal::milliseconds, 150},
        []() -> Work { return [] { start_child(); }; });
    figures.figures.push_back(
        {"memory at rest", {Goal::megabytes, 45}, {}, "", {}, [] { return start_child(); }});
    add("move the mouse within a cell", {Goal::milliseconds, 0.1},
        in_window<OpenMap>([](OpenMap&) {},
                           [](OpenMap& map) {
                               map.move({}, {0, 0});
                           }));
    const auto within_a_frame = [&](const char* name, const std::function<void(OpenMap&)>& prepare,
                                    const std::function<void(OpenMap&)>& step) {
        add(name, {Goal::worst_milliseconds, 16}, in_window<OpenMap>(prepare, step));
    };
    const auto as_it_is = [](OpenMap&) {};
    const auto paint = [](OpenMap& map) { map.move(Qt::LeftButton, {37, 21}); };
    within_a_frame("move the mouse to another cell, to the drawn window", as_it_is,
                   [](OpenMap& map) {
                       map.move({}, {37, 21});
                   });
    within_a_frame(
        "paint a cell, from the move to the drawn window", [](OpenMap& map) { map.press(); },
        paint);
    within_a_frame(
        "paint a tile of a world, from the move to the drawn window",
        [](OpenMap& map) {
            map.open_world();
            map.press();
        },
        paint);
    within_a_frame(
        "paint a cell three times as large, from the move to the drawn window",
        [](OpenMap& map) {
            map.enlarge();
            map.press();
        },
        paint);
    within_a_frame(
        "paint a cell beside all windows, from the move to the drawn window",
        [](OpenMap& map) {
            map.choose_tile();
            map.open_object_window();
            map.press();
        },
        paint);
    within_a_frame("scroll the map by a tile, to the drawn window", as_it_is,
                   [](OpenMap& map) { map.scroll(); });
    within_a_frame("type into a field, to the drawn window", as_it_is,
                   [](OpenMap& map) { map.type(); });
    within_a_frame(
        "move the cursor of the tile chooser, to the drawn window",
        [](OpenMap& map) { map.choose_tile(); }, [](OpenMap& map) { map.step(); });
    const auto nothing = [](OpenEventEditor&) {};
    const auto at_most = [](double milliseconds) { return Goal{Goal::milliseconds, milliseconds}; };
    add("draw the Event Editor", at_most(20),
        in_window<OpenEventEditor>(nothing, [](OpenEventEditor& editor) { editor.draw(); }));
    add("load and draw two scripts of 10000 bytes", at_most(100),
        in_window<OpenEventEditor>(nothing, [](OpenEventEditor& editor) {
            editor.load(dialogue_at);
            editor.load(plain_at);
        }));
    add("add a row to 10000, take it back and draw", at_most(60),
        in_window<OpenEventEditor>(
            [](OpenEventEditor& editor) { on_script_click(editor.state(), 5000, primary); },
            add_and_escape));
    add("scroll 6667 rows and draw", at_most(20),
        in_window<OpenEventEditor>([](OpenEventEditor& editor) { editor.load(dialogue_at); },
                                   scroll));
    add("show 10000 rows of which nothing has changed", at_most(0.1),
        in_window<OpenEventEditor>(nothing, [](OpenEventEditor& editor) { editor.show_all(); }));
}

} // namespace veldrune::bench
