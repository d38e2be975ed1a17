#pragma once

#include "editor/editor_state.h"

namespace veldrune {

/// "World of Dawn" and "World of Dusk": reads the world, shows it, and chooses the map whose object
/// lists the world uses, which may ask about unsaved changes. Without an image only the flags of
/// the world map are set.
void open_world_of_dawn(EditorState& state);
void open_world_of_dusk(EditorState& state);

} // namespace veldrune
