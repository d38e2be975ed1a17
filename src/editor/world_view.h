#pragma once

#include "editor/editor_state.h"

namespace veldrune {

/// Draws the world's tiles where its scroll bars stand, and the grid where it is on.
void draw_world_view(EditorState& state);

/// The same with the objects: after a change of HScroll2 or VScroll2 by the user, too.
void refresh_world_view(EditorState& state);

/// Draws the current tile of the world's sheet into Picture3.
void show_world_tile_preview(EditorState& state);

} // namespace veldrune
