#pragma once

#include "editor/editor_state.h"

namespace veldrune {

/// Save: writes the layers, the pointers and the properties of the selected map into the image.
/// Does nothing without an image or before a map has been chosen.
void save(EditorState& state);

/// Save As: copies the image to a name that the user chooses, opens the copy and saves the map
/// into it.
void save_as(EditorState& state);

} // namespace veldrune
