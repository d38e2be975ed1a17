#include "editor/mouse.h"

#include "editor/build.h"
#include "editor/cursor.h"
#include "editor/object_window.h"
#include "editor/overlays.h"
#include "editor/view.h"
#include "editor/view_place.h"
#include "editor/world_view.h"
#include "rom/number_text.h"

namespace veldrune {
namespace {

void paint_map_tile(const Cursor& cursor, const Form1& form, float zoom, ChosenMap& map,
                    MapDisplay& display) {
    const auto edit_layer = static_cast<std::size_t>(form.edit_layer);
    const auto tile = static_cast<std::uint8_t>(form.current_tile);
    CellTiles tiles = tiles_under(map, cursor);
    tiles[edit_layer] = tile;
    repaint_cell(display.bitmaps, map_view(map, form, zoom), cursor.cursor_x, cursor.cursor_y,
                 tiles, display.picture);
    map.layers[edit_layer].map.at(cursor.column, cursor.row) = tile;
}

void paint_world_tile(EditorState& state, const Cursor& cursor) {
    state.world.world_map.at(cursor.column, cursor.row) =
        static_cast<std::uint8_t>(state.form1.current_tile);
    refresh_world_view(state);
}

void paint(EditorState& state, const Cursor& cursor) {
    if (!cursor.in_map)
        return;
    state.changes_saved = false;
    if (state.world_map_mode) {
        state.world.unsaved_painting = true;
        paint_world_tile(state, cursor);
    } else {
        state.map.unsaved_painting = true;
        paint_map_tile(cursor, state.form1, state.zoom, state.map, state.display);
    }
}

void pick_map_tile(EditorState& state, const Cursor& cursor) {
    state.tile_picked = true;
    if (!cursor.in_map)
        return;
    const auto edit_layer = static_cast<std::size_t>(state.form1.edit_layer);
    state.form1.current_tile = tiles_under(state.map, cursor)[edit_layer];
    show_tile_preview(state.display.bitmaps, state.form1);
    state.form1.tool = Tool::draw;
}

// Unlike a pick on a map, it does not change the tool, and the click after it may paint.
void pick_world_tile(EditorState& state, const Cursor& cursor) {
    if (!cursor.in_map)
        return;
    state.form1.current_tile = state.world.world_map.at(cursor.column, cursor.row);
    show_world_tile_preview(state.world.world_sheet, state.form1);
    state.form1.edit_layer = 0;
}

void select_object_under(EditorState& state, const Cursor& cursor) {
    if (!cursor.in_picture)
        return;
    if (state.world_map_mode)
        state.form1.Text20 = std::to_string(cursor.column);
    select_object_at(state, static_cast<std::uint8_t>(cursor.column),
                     static_cast<std::uint8_t>(cursor.row));
}

} // namespace

void on_press(EditorState& state, MouseButton button, int x, int y) {
    const Cursor cursor = locate_cursor(state, x, y);
    if (state.form1.tool == Tool::draw && button == MouseButton::left) {
        state.painting = true;
        state.tile_picked = false;
    } else if (button == MouseButton::right || state.form1.tool == Tool::get_tile) {
        if (state.world_map_mode)
            pick_world_tile(state, cursor);
        else if (map_ready(state))
            pick_map_tile(state, cursor);
    }
}

void on_move(EditorState& state, int x, int y) {
    const Cursor cursor = locate_cursor(state, x, y);
    Form1& form = state.form1;
    form.Label26 =
        format_hex(std::int64_t{form.HScroll1.value} + form.HScroll2.value + cursor.cursor_x) +
        " " + format_hex(std::int64_t{form.VScroll1.value} + form.VScroll2.value + cursor.cursor_y);
    if (state.painting && state.rom_open)
        paint(state, cursor);
}

void on_release(EditorState& state) {
    state.painting = false;
}

void on_click(EditorState& state, int x, int y) {
    const Cursor cursor = locate_cursor(state, x, y);
    if (!state.rom_open)
        return;
    const bool world = state.world_map_mode;
    if (state.form1.tool == Tool::draw && (world || !state.tile_picked))
        paint(state, cursor);
    else if (state.form1.tool == Tool::objects)
        select_object_under(state, cursor);
    if (world)
        draw_world_objects(state.form1, state.objects.lists, state.display.picture);
}

} // namespace veldrune
