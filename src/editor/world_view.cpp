#include "editor/world_view.h"

#include "editor/overlays.h"
#include "render/enlarge.h"

namespace veldrune {

void draw_world_view(const OpenWorld& world, const Form1& form, PixelBuffer& picture) {
    draw_world_tiles(world.world_map, world.world_sheet, form.HScroll2.value, form.VScroll2.value,
                     picture);
    if (form.grid_on)
        draw_grid(picture, world_tile_size);
}

void refresh_world_view(EditorState& state) {
    PixelBuffer& drawn = state.work.picture;
    draw_world_view(state.world, state.form1, drawn);
    draw_world_objects(state.form1, state.objects.lists, drawn);
    remember_world(state.picture, state.world.world);
    if (drawn != state.display.picture)
        state.display.picture = drawn;
}

void show_world_tile_preview(const WorldSheet& sheet, Form1& form) {
    enlarge_pixels(sheet.tile(form.current_tile), WorldSheet::side, world_tile_size,
                   world_tile_size, preview_side / world_tile_size, form.Picture3.row(0),
                   preview_side);
}

} // namespace veldrune
