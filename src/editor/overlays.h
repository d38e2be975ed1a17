#pragma once

#include "editor/editor_state.h"

namespace veldrune {

/// The kinds of object of which a drawing of a map shows the markers.
MarkerKinds shown_markers(const Form1& form);

/// The last step of every drawing of a map: reads the object lists again and outlines the objects
/// of the kinds that are shown.
void draw_objects(EditorState& state);

/// Draws the grid, if it is on, and the objects over the present picture of a map.
void draw_overlays(EditorState& state);

/// Outlines the objects of a world map, whose lists are read when it is opened.
void draw_world_objects(const Form1& form, ObjectLists& lists, PixelBuffer& picture);

} // namespace veldrune
