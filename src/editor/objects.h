#pragma once

#include "editor/editor_state.h"

namespace veldrune {

/// Renews the counts of the five lists for row form1.Combo1 of the map list and shows them beside
/// the boxes. The rows stay.
void read_object_counts(EditorState& state);

/// The last step of every drawing of the map: reads the five lists anew and draws the markers of
/// the kinds that are shown.
void draw_objects(EditorState& state);

/// The same for a world map, which has short entrances and event triggers alone: reading goes with
/// the opening of the world, drawing with every drawing of it.
void read_world_objects(EditorState& state);
void draw_world_objects(EditorState& state);

/// A click with the object tool: opens every object on tile (x, y), one after the other, so that
/// the last one stays. Of a world map only what it has.
void select_object_at(EditorState& state, std::uint8_t x, std::uint8_t y);

} // namespace veldrune
