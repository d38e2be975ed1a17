#pragma once

#include "editor/editor_state.h"

#include <optional>
#include <string>

namespace veldrune {

/// What the cell under pixel (x, y) of the map picture holds, in hexadecimal: column and row, and
/// the tile of each layer, "--" where the layer does not reach or is missing; on a world map its
/// one tile. Empty outside the picture, and while it shows nothing.
std::string map_cell_text(const EditorState& state, int x, int y);

/// Column, row and number of the tile under pixel (x, y) of the chooser's picture, in hexadecimal.
/// The pixel must be inside.
std::string sheet_cell_text(int x, int y);

/// The pixels that a click of the left button on pixel (x, y) of the map picture would paint:
/// colours with 0xFF in bits 24-31, and 0 where it leaves what lies below. Nothing where a click
/// would not paint.
std::optional<Formation> tile_to_paint(const EditorState& state, int x, int y);

} // namespace veldrune
