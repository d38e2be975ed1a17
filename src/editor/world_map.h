#pragma once

#include "editor/editor_state.h"

namespace veldrune {

/// "World of Dawn" and "World of Dusk": reads the world, shows it, and chooses the map whose object
/// lists are the world's, which may ask about unsaved changes. Without an image only the flags of
/// the world map are set.
void open_world_of_dawn(EditorState& state);
void open_world_of_dusk(EditorState& state);

/// Draws the world's tiles where its scroll bars stand, and the grid where it is on.
void draw_world_view(EditorState& state);

/// The same with the markers: after a change of HScroll2 or VScroll2 by the user, too.
void refresh_world_view(EditorState& state);

/// Draws the current tile of the world's sheet into Picture3.
void show_world_tile_preview(EditorState& state);

/// Packs the world and writes it at Text24, asking first where it has grown, and then the pointer
/// to it. For a world that has been read.
void save_world_map(EditorState& state);

} // namespace veldrune
