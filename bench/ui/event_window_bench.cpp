// The Event Editor on the longest scripts, from the key that the user presses to the picture of the
// window.

#include "support/script_fixture.h"
#include "support/window_driver.h"
#include "ui/main_window.h"
#include "ui/qt_dialogs.h"
#include "ui/windows.h"

#include <benchmark/benchmark.h>

#include <QScrollBar>
#include <QTableView>

namespace veldrune {
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
    void draw() { benchmark::DoNotOptimize(window_->grab().toImage().bits()); }
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

void draw_the_window(benchmark::State& bench) {
    OpenEventEditor editor;
    for (auto _ : bench)
        editor.draw();
}

void load_and_draw(benchmark::State& bench) {
    OpenEventEditor editor;
    for (auto _ : bench) {
        bench.PauseTiming();
        editor.load(bench.range(0) == 0 ? dialogue_at : plain_at); // the other one
        bench.ResumeTiming();
        editor.load(bench.range(0) == 0 ? plain_at : dialogue_at);
    }
    bench.counters["rows"] = static_cast<double>(editor.state().form9.grid.size());
}

// "Add Item" in the middle, and Escape.
void add_and_draw(benchmark::State& bench) {
    OpenEventEditor editor;
    on_script_click(editor.state(), 5000, primary);
    for (auto _ : bench) {
        editor.user().click("Command2");
        QTest::keyClick(&editor.user().find("Text2"), Qt::Key_Escape);
        editor.draw();
    }
}

void scroll_and_draw(benchmark::State& bench) {
    OpenEventEditor editor;
    editor.load(dialogue_at);
    QScrollBar& bar = *editor.user().find<QTableView>("grid").verticalScrollBar();
    for (auto _ : bench) {
        bar.setValue((bar.value() + 997) % bar.maximum());
        editor.draw();
    }
}

void show_unchanged(benchmark::State& bench) {
    OpenEventEditor editor;
    for (auto _ : bench)
        editor.show_all();
    bench.counters["rows"] = static_cast<double>(editor.state().form9.grid.size());
}

BENCHMARK(draw_the_window)->Unit(benchmark::kMillisecond);
BENCHMARK(load_and_draw)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(add_and_draw)->Unit(benchmark::kMillisecond);
BENCHMARK(scroll_and_draw)->Unit(benchmark::kMillisecond);
BENCHMARK(show_unchanged)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace veldrune

int main(int argc, char** argv) {
    veldrune::test::work_without_display();
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
