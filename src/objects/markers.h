#pragma once

#include "objects/object_tables.h"
#include "render/pixel_buffer.h"
#include "render/view_place.h"

namespace veldrune {

/// The kinds of a map in the order in which their markers are drawn: later ones lie on top.
inline constexpr ObjectKind marker_order[] = {ObjectKind::npc, ObjectKind::long_entrance,
                                              ObjectKind::entrance, ObjectKind::chest,
                                              ObjectKind::event_trigger};

/// Outlines every object of the list in its kind's colour: its tile, or its run of tiles. What
/// falls outside the picture is left out. The list counts as drawn.
void draw_markers(ObjectKind kind, ObjectList& list, ViewPlace place, PixelBuffer& buffer);

/// Whether a click on tile (x, y) finds record index of the list. NPCs are found only once they
/// have been drawn. A run down a column is found on one tile more than its outline covers.
bool object_hit_by_click(ObjectKind kind, const ObjectList& list, int index, int x, int y);

} // namespace veldrune
