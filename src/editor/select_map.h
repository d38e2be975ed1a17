#pragma once

#include "editor/editor_state.h"

namespace veldrune {

/// A choice in the map list, of the current row too: leaves the world map, asks about unsaved
/// changes, and loads the record, the fields and the three layers of row form1.Combo1. Draws
/// nothing.
void select_map(EditorState& state);

/// Shows the record in memory, and the map's monster set, in the fields.
void show_map_fields(EditorState& state);

/// Where the disk has refused a read, tells so and keeps the map from being saved.
void tell_read_refusal(EditorState& state);

} // namespace veldrune
