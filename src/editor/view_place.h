#pragma once

#include "editor/editor_state.h"
#include "render/view_place.h"

namespace veldrune {

/// Whether there is a map to build and show.
bool map_ready(const EditorState& state);

/// A smaller zoom is a closer view.
inline constexpr float closest_zoom = 0.25f;
inline constexpr float farthest_zoom = 2.0f;

/// Cells per row and column of the view, and pixels per cell side, at a zoom.
int cells_across(float zoom);
int tile_size(float zoom);

/// Where the view of a map, or of a world map, stands by its scroll bars at a zoom. A world map is
/// drawn at the farthest zoom alone.
ViewPlace map_place(const Form1& form, float zoom);
ViewPlace world_place(const Form1& form, float zoom = farthest_zoom);

/// The scroll bars of a world map or of a map, in the place of the other ones.
void show_scroll_bars(Form1& form, bool world);

} // namespace veldrune
