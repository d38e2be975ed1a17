#pragma once

#include "editor/editor_state.h"

namespace veldrune {

/// Draws the world's tiles at the position of its scroll bars, and the grid if it is on.
void draw_world_view(const OpenWorld& world, const Form1& form, PixelBuffer& picture);

/// The same with the objects; a picture that shows that already is not touched. Also called after a
/// change of HScroll2 or VScroll2 by the user.
void refresh_world_view(EditorState& state);

/// Draws the current tile of the world's sheet into Picture3.
void show_world_tile_preview(const WorldSheet& sheet, Form1& form);

} // namespace veldrune
