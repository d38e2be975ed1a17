#pragma once

#include "editor/editor_state.h"

namespace veldrune {

inline constexpr int sheet_tiles_across = 16;
inline constexpr int sheet_cell_side = view_size / sheet_tiles_across; // pixels

/// A cell of the chooser's picture.
struct SheetCell {
    int column;
    int row;
    int tile() const { return row * sheet_tiles_across + column; }
};
/// The cell under a pixel of the picture.
constexpr SheetCell sheet_cell(int x, int y) {
    return {x / sheet_cell_side, y / sheet_cell_side};
}
/// The cell that shows a tile.
constexpr SheetCell cell_of_tile(int tile) {
    return {tile % sheet_tiles_across, tile / sheet_tiles_across};
}

/// "Choose Tile": draws the tiles of the edit layer into the chooser and shows it with the layer
/// palette; on a world map its tiles, without the palette. Does nothing without an image and a map.
void open_tile_chooser(EditorState& state);

/// After a click on a button of the layer palette: form2.layer becomes the edit layer, and the
/// chooser shows its tiles.
void on_palette_layer(EditorState& state);

/// A click on the chooser's picture at pixel (x, y): takes that tile and closes both windows.
void choose_tile(EditorState& state, int x, int y);

/// After the user has closed the chooser or the layer palette: both close.
void close_tile_chooser(EditorState& state);

} // namespace veldrune
