// The tile chooser, the object lists and the markers, on a real file with a warm cache.

#include "demo/demo_image.h"
#include "editor/build.h"
#include "editor/object_lists.h"
#include "editor/overlays.h"
#include "editor/tile_chooser.h"
#include "objects/markers.h"
#include "open_editor.h"

namespace veldrune {
namespace {

// The fullest lists that a map can have: 255 objects of every kind.
void fill_lists(RomImage& rom, int map) {
    constexpr int first = 0x400;
    for (std::size_t kind = 0; kind < object_kind_count; ++kind) {
        const ObjectKindRow& row = object_kind_row(static_cast<ObjectKind>(kind));
        const int end = first + max_object_count * row.record_size;
        const std::array<std::uint8_t, 4> pointers{
            static_cast<std::uint8_t>(first), static_cast<std::uint8_t>(first >> 8),
            static_cast<std::uint8_t>(end), static_cast<std::uint8_t>(end >> 8)};
        rom.write(row.pointers + 2 * map, pointers);
        for (int i = 0; i < end - first; ++i) // all of them in view at zoom 2
            rom.write_byte(row.base + first + i, static_cast<std::uint8_t>(i * 37 % 32));
    }
}

struct FullMap : OpenEditor {
    FullMap() {
        fill_lists(state->rom, demo::demo_map::town);
        choose(demo::demo_map::town);
        Form1& form = state->form1;
        form.Check1 = form.Check2 = form.Check3 = form.Check4 = true;
        state->zoom = 2.0f;
        build_tileset(*state);
    }
};

void open_chooser(benchmark::State& bench) {
    FullMap editor;
    for (auto _ : bench)
        open_tile_chooser(*editor.state);
}

void load_and_draw_all_objects(benchmark::State& bench) {
    FullMap editor;
    for (auto _ : bench)
        draw_objects(*editor.state);
    bench.counters["objects"] = 5 * editor.state->objects.lists[ObjectKind::npc].row_count;
}

// Its lower bound is picture_memcpy.
void build_with_all_markers(benchmark::State& bench) {
    FullMap editor;
    for (auto _ : bench)
        build_tileset(*editor.state);
}

BENCHMARK(open_chooser)->Unit(benchmark::kMicrosecond);
BENCHMARK(load_and_draw_all_objects)->Unit(benchmark::kMicrosecond);
BENCHMARK(build_with_all_markers)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace veldrune
