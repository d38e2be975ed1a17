#pragma once

#include "editor/editor_state.h"

namespace veldrune {

/// "Clear Map": empties the three layers in memory and draws the map. Not while a world map is
/// shown.
void clear_map(EditorState& state);

/// "Copy Tile Formations": copies the record in memory, without unsaved texts in the fields.
void copy_properties(EditorState& state);

/// "Paste Tile Formation": replaces the record in memory by the copied one and shows it in the
/// fields. Does nothing without an image and a chosen map.
void paste_properties(EditorState& state);

/// "Memory Manager" and "About": a message each.
void show_memory_manager(EditorState& state);
void show_about(EditorState& state);

/// "Expand Rom to 32mbit" and "Dialogue Patch" on the open image, written at once.
void expand_rom(EditorState& state);
void apply_dialogue_patch(EditorState& state);

} // namespace veldrune
