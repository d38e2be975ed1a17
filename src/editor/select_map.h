#pragma once

#include "editor/editor_state.h"
#include "rom/rom_layout.h"

namespace veldrune {

/// Rows of the map list.
inline constexpr int map_list_rows = rom_layout::map_count;

/// A choice in the map list, of the current row too: leaves the world map, asks about unsaved
/// changes, and loads the record, the fields and the three layers of row form1.Combo1. Draws
/// nothing.
void select_map(EditorState& state);

/// Tells where the disk has refused a read. What was read from source since is not what the image
/// holds, and must not be saved over that: it counts as never read.
void tell_read_refusal(EditorState& state, std::optional<ImageSource>& source);

/// Shows the record in memory, and the map's monster set, in the fields.
void show_map_fields(EditorState& state);

} // namespace veldrune
