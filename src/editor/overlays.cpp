#include "editor/overlays.h"

#include "editor/object_lists.h"
#include "editor/view_place.h"
#include "objects/markers.h"

namespace veldrune {
namespace {

void draw_shown(EditorState& state, ObjectKinds kinds, ViewPlace place) {
    for (const ObjectKind kind : kinds)
        if (state.form1.*object_kind_row(kind).shown)
            draw_markers(kind, state.objects.lists[kind], place, state.display.picture);
}

} // namespace

void draw_objects(EditorState& state) {
    read_object_lists(state, map_object_kinds, state.form1.Combo1);
    draw_shown(state, marker_order, map_place(state.form1, state.zoom));
}

void draw_overlays(EditorState& state) {
    if (state.form1.grid_on)
        draw_grid(state.display.picture, tile_size(state.zoom));
    draw_objects(state);
}

void draw_world_objects(EditorState& state) {
    draw_shown(state, world_object_kinds, world_place(state.form1));
}

} // namespace veldrune
