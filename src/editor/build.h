#pragma once

#include "editor/editor_state.h"

namespace veldrune {

/// "Build Tileset": decodes the tiles that the fields name and draws the map at the present
/// scroll position. For an open image and a selected map.
void build_tileset(EditorState& state);

/// "Build/Refresh Map": draws the map from its top left corner with the tiles as they are. For an
/// open image and a selected map.
void refresh_map(EditorState& state);

/// The numbers of the tiles in the fields, read without messages.
TileNumbers tile_numbers(const Form1& form);

/// Draws the current tile of the edit layer into Picture3.
void show_tile_preview(const FormationBitmaps& bitmaps, Form1& form);

} // namespace veldrune
