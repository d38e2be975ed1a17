#pragma once

#include "editor/editor_state.h"

namespace veldrune {

/// The tile under a pixel of the map picture: in the view, and in the map or the world map.
struct Cursor {
    int cursor_x;
    int cursor_y;
    std::int64_t column;
    std::int64_t row;
    bool in_picture;
    bool in_map; // in_picture, and inside the LayerMap or the world map
};

/// The tile under pixel (x, y), which may lie outside the picture.
Cursor locate_cursor(const EditorState& state, int x, int y);

/// The tiles of all three layers there; the cursor must be in the map.
CellTiles tiles_under(const ChosenMap& map, const Cursor& cursor);

} // namespace veldrune
