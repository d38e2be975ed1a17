#include "editor/world_view.h"

#include "editor/overlays.h"
#include "render/enlarge.h"

namespace veldrune {

void draw_world_view(EditorState& state) {
    const Form1& form = state.form1;
    PixelBuffer& picture = state.display.picture;
    draw_world_tiles(state.world.world_map, state.world.world_sheet, form.HScroll2.value,
                     form.VScroll2.value, picture);
    if (form.grid_on)
        draw_grid(picture, world_tile_size);
}

void refresh_world_view(EditorState& state) {
    draw_world_view(state);
    draw_world_objects(state);
}

void show_world_tile_preview(EditorState& state) {
    enlarge_pixels(state.world.world_sheet.tile(state.form1.current_tile), WorldSheet::side,
                   world_tile_size, world_tile_size, preview_side / world_tile_size,
                   state.form1.Picture3.row(0), preview_side);
}

} // namespace veldrune
