#pragma once

#include "editor/editor_state.h"

namespace veldrune {

/// The chosen map, as what is drawn of it remembers it.
MapOrigin chosen_origin(const EditorState& state);

/// What the next composition will show of a map, from the present fields, boxes and scroll bars.
MapView map_view(const ChosenMap& map, const Form1& form, float zoom);

/// Whether at least one "View Layer" box is ticked.
bool any_layer_shown(const Form1& form);

/// Composes every cell of the view.
void compose_view(const ChosenMap& map, const Form1& form, float zoom, MapDisplay& display);
/// The same for the chosen map. Remembers what the picture was made from.
void compose_view(EditorState& state);

/// Sets the scroll bars' maximum to the largest width or height of the three layers less the cells
/// in view; never below 0, and the bar's value never above it.
void set_column_maximum(Form1& form, float zoom);
void set_row_maximum(Form1& form, float zoom);

/// After a change of HScroll1 or VScroll1 by the user.
void on_h_scroll(EditorState& state);
void on_v_scroll(EditorState& state);

/// "Zoom In" and "Zoom Out".
void zoom_in(EditorState& state);
void zoom_out(EditorState& state);

/// Ctrl and the wheel over pixel (x, y) of the map picture: the same, in where notches is positive,
/// once for each notch; then scrolls so that the tile there stays, as far as the scroll bars go.
/// Does nothing while a world map is shown.
void zoom_about(EditorState& state, int notches, int x, int y);

/// After a change of "Grid On" or "Grid Off" by the user.
void on_grid_change(EditorState& state);

/// After a change of a "View Layer" box by the user.
void on_view_box_change(EditorState& state);

} // namespace veldrune
