// Choosing, building and saving a map, on a real file with a warm cache, and the paint step.

#include "demo/demo_image.h"
#include "editor/build.h"
#include "editor/mouse.h"
#include "editor/save.h"
#include "editor/world_map.h"
#include "editor/world_view.h"
#include "open_editor.h"

namespace veldrune {
namespace {

void choose_map(benchmark::State& bench) {
    OpenEditor editor;
    for (auto _ : bench)
        editor.choose(static_cast<int>(bench.range(0)));
}

void build_map(benchmark::State& bench) {
    OpenEditor editor;
    editor.choose(static_cast<int>(bench.range(0)));
    for (auto _ : bench)
        build_tileset(*editor.state);
}

void save_map(benchmark::State& bench) {
    OpenEditor editor;
    editor.choose(static_cast<int>(bench.range(0)));
    for (auto _ : bench)
        save(*editor.state);
}

// All maps one after the other: the slowest choice, build and save is what counts.
void all_steps_of_the_slowest_map(benchmark::State& bench) {
    OpenEditor editor;
    editor.choose(2);
    for (auto _ : bench) {
        double slowest = 0;
        for (int map = 0; map < 414; ++map) {
            const auto start = std::chrono::steady_clock::now();
            editor.choose(map);
            build_tileset(*editor.state);
            save(*editor.state);
            const std::chrono::duration<double, std::milli> time =
                std::chrono::steady_clock::now() - start;
            slowest = std::max(slowest, time.count());
        }
        bench.counters["slowest_ms"] = slowest;
    }
}

void paint_step(benchmark::State& bench) {
    OpenEditor editor;
    editor.choose(demo::demo_map::town);
    build_tileset(*editor.state);
    on_press(*editor.state, MouseButton::left, 0, 0);
    int at = 0;
    for (auto _ : bench) {
        at = (at + 37) % 512;
        on_move(*editor.state, at, at / 2);
    }
}

// The same world again and again, with the map whose object lists it uses.
void open_world(benchmark::State& bench) {
    OpenEditor editor;
    for (auto _ : bench)
        (bench.range(0) == 0 ? open_world_of_dawn : open_world_of_dusk)(*editor.state);
}

void save_world(benchmark::State& bench) {
    OpenEditor editor;
    (bench.range(0) == 0 ? open_world_of_dawn : open_world_of_dusk)(*editor.state);
    for (auto _ : bench)
        save(*editor.state);
}

// Its lower bound is picture_memcpy.
void world_view(benchmark::State& bench) {
    OpenEditor editor;
    open_world_of_dawn(*editor.state);
    int step = 0;
    for (auto _ : bench) {
        editor.state->form1.HScroll2.value = ++step % 225;
        draw_world_view(editor.state->world, editor.state->form1, editor.state->display.picture);
        benchmark::ClobberMemory();
    }
}

BENCHMARK(open_world)->DenseRange(0, 1)->Unit(benchmark::kMicrosecond);
BENCHMARK(save_world)->DenseRange(0, 1)->Unit(benchmark::kMicrosecond);
BENCHMARK(world_view)->Unit(benchmark::kMicrosecond);
BENCHMARK(choose_map)->DenseRange(2, 6)->Unit(benchmark::kMicrosecond);
BENCHMARK(build_map)->DenseRange(2, 6)->Unit(benchmark::kMicrosecond);
BENCHMARK(save_map)->DenseRange(2, 6)->Unit(benchmark::kMicrosecond);
BENCHMARK(all_steps_of_the_slowest_map)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(paint_step)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace veldrune
