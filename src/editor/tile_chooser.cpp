#include "editor/tile_chooser.h"

#include "render/enlarge.h"

namespace veldrune {
namespace {

constexpr int cell_side = sheet_cell_side;
constexpr int formation_side = 16;

void draw_tile_sheet(MapDisplay& display, int layer) {
    for (int tile = 0; tile < sheet_tiles_across * sheet_tiles_across; ++tile) {
        const SheetCell cell = cell_of_tile(tile);
        const Formation pixels = whole_formation(display.bitmaps, layer, tile);
        enlarge_pixels(pixels.data(), formation_side, formation_side, formation_side,
                       cell_side / formation_side,
                       display.tile_sheet.row(cell.row * cell_side) + cell.column * cell_side,
                       view_size);
    }
    draw_grid(display.tile_sheet, cell_side);
}

void draw_world_sheet(const WorldSheet& sheet, PixelBuffer& picture) {
    enlarge_pixels(sheet.pixels.data(), WorldSheet::side, WorldSheet::side, WorldSheet::side,
                   view_size / WorldSheet::side, picture.row(0), view_size);
    draw_grid(picture, cell_side);
}

// A world has no layers to choose from.
void open_world_chooser(EditorState& state) {
    draw_world_sheet(state.world.world_sheet, state.display.tile_sheet);
    state.form8 = {.visible = true, .raise_requested = true};
    state.form2.visible = false;
}

} // namespace

void open_tile_chooser(EditorState& state) {
    if (state.world_map_mode)
        return open_world_chooser(state);
    if (!state.map_selected)
        return;
    state.form2.layer = state.form1.edit_layer;
    draw_tile_sheet(state.display, state.form1.edit_layer);
    state.form8 = {.visible = true, .raise_requested = true};
    state.form2.visible = true;
}

void on_palette_layer(EditorState& state) {
    state.form1.edit_layer = state.form2.layer;
    draw_tile_sheet(state.display, state.form1.edit_layer);
}

void choose_tile(EditorState& state, int x, int y) {
    if (x < 0 || x >= view_size || y < 0 || y >= view_size)
        return;
    const SheetCell cell = sheet_cell(x, y);
    enlarge_pixels(state.display.tile_sheet.row(cell_side * cell.row) + cell_side * cell.column,
                   view_size, cell_side, cell_side, preview_side / cell_side,
                   state.form1.Picture3.row(0), preview_side);
    state.form1.current_tile = cell.tile();
    close_tile_chooser(state);
}

void close_tile_chooser(EditorState& state) {
    state.form8.visible = state.form2.visible = false;
}

} // namespace veldrune
