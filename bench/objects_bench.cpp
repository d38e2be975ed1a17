// The tile chooser, the object lists and the markers, on a real file with a warm cache.

#include "demo/demo_image.h"
#include "editor/build.h"
#include "editor/object_lists.h"
#include "editor/overlays.h"
#include "editor/tile_chooser.h"
#include "figures.h"
#include "objects/markers.h"
#include "open_editor.h"

namespace veldrune::bench {
namespace {

// As many objects of every kind; a map can have 255.
void fill_lists(RomImage& rom, int map, int count) {
    constexpr int first = 0x400;
    for (std::size_t kind = 0; kind < object_kind_count; ++kind) {
        const ObjectKindRow& row = object_kind_row(static_cast<ObjectKind>(kind));
        const int end = first + count * row.record_size;
        const std::array<std::uint8_t, 4> pointers{
            static_cast<std::uint8_t>(first), static_cast<std::uint8_t>(first >> 8),
            static_cast<std::uint8_t>(end), static_cast<std::uint8_t>(end >> 8)};
        rom.write(row.pointers + 2 * map, pointers);
        for (int i = 0; i < end - first; ++i) // all of them in view at zoom 2
            rom.write_byte(row.base + first + i, static_cast<std::uint8_t>(i * 37 % 32));
    }
}

// The town with full lists, all of them shown.
MakeWork in_full_map(void (*step)(EditorState&), int count = max_object_count) {
    return [=]() -> Work {
        const auto editor = std::make_shared<OpenEditor>();
        fill_lists(editor->state->rom, demo::demo_map::town, count);
        editor->choose(demo::demo_map::town);
        Form1& form = editor->state->form1;
        form.Check1 = form.Check2 = form.Check3 = form.Check4 = true;
        editor->state->zoom = 2.0f;
        build_tileset(*editor->state);
        return [=] { step(*editor->state); };
    };
}

} // namespace

void add_object_figures(Figures& figures) {
    const auto add = [&](const char* name, double milliseconds, void (*step)(EditorState&)) {
        figures.figures.push_back({name, {Goal::milliseconds, milliseconds}, in_full_map(step)});
    };
    add("open the tile chooser", 1, open_tile_chooser);
    add("read and mark 255 objects of every kind", 0.5, draw_objects);
    add("build a map with them", 1, build_tileset);
    figures.growths.push_back({"read and mark objects", {32, 64, 128, 255}, [](int count) {
                                   return in_full_map(draw_objects, count)();
                               }});
}

} // namespace veldrune::bench
