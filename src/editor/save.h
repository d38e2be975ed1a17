#pragma once

#include "editor/editor_state.h"

namespace veldrune {

/// Save: writes the layers, the pointers and the properties of the selected map into the image, or
/// the world map that is open. Does nothing before one of them has been read.
void save(EditorState& state);

/// Save As: copies the image to a name that the user chooses, opens the copy and saves the map, or
/// the world map, into it.
void save_as(EditorState& state);

} // namespace veldrune
