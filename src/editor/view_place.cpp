#include "editor/view_place.h"

namespace veldrune {

bool map_ready(const EditorState& state) {
    return state.rom_open && state.map_selected;
}

int cells_across(float zoom) {
    return static_cast<int>(16 * zoom);
}

int tile_size(float zoom) {
    return view_size / cells_across(zoom);
}

ViewPlace map_place(const Form1& form, float zoom) {
    return {form.HScroll1.value, form.VScroll1.value, tile_size(zoom)};
}

ViewPlace world_place(const Form1& form, float zoom) {
    return {form.HScroll2.value, form.VScroll2.value, tile_size(zoom)};
}

void show_scroll_bars(Form1& form, bool world) {
    form.HScroll1.visible = form.VScroll1.visible = !world;
    form.HScroll2.visible = form.VScroll2.visible = world;
}

} // namespace veldrune
