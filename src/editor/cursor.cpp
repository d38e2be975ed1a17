#include "editor/cursor.h"

#include "editor/view_place.h"

namespace veldrune {

Cursor locate_cursor(const EditorState& state, int x, int y) {
    const Form1& form = state.form1;
    const bool world = state.world_map_mode;
    const ViewPlace place = world ? world_place(form, state.zoom) : map_place(form, state.zoom);
    Cursor cursor{x / place.tile_size, y / place.tile_size, 0, 0, false, false};
    cursor.column = std::int64_t{place.h} + cursor.cursor_x;
    cursor.row = std::int64_t{place.v} + cursor.cursor_y;
    cursor.in_picture = x >= 0 && x < view_size && y >= 0 && y < view_size;
    cursor.in_map = cursor.in_picture && (world ? WorldMap::contains(cursor.column, cursor.row)
                                                : LayerMap::contains(cursor.column, cursor.row));
    return cursor;
}

CellTiles tiles_under(const ChosenMap& map, const Cursor& cursor) {
    CellTiles tiles;
    for (std::size_t layer = 0; layer < tiles.size(); ++layer)
        tiles[layer] = map.layers[layer].map.at(cursor.column, cursor.row);
    return tiles;
}

} // namespace veldrune
