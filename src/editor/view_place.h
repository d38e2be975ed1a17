#pragma once

#include "editor/editor_state.h"
#include "render/view_place.h"

namespace veldrune {

/// Whether there is a map to build and show.
bool map_ready(const EditorState& state);

/// The largest zoom; a smaller one is a closer view.
inline constexpr float farthest_zoom = 2.0f;

/// Cells per row and column of the view, and pixels per cell side, at a zoom.
int cells_across(float zoom);
int tile_size(float zoom);

/// The part of a map, or of a world map, in view, by its scroll bars and the zoom. A world map is
/// drawn only at the farthest zoom.
ViewPlace map_place(const Form1& form, float zoom);
ViewPlace world_place(const Form1& form, float zoom = farthest_zoom);

/// Shows the scroll bars of a world map or those of a map, and hides the others.
void show_scroll_bars(Form1& form, bool world);

} // namespace veldrune
