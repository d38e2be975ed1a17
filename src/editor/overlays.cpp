#include "editor/overlays.h"

#include "editor/object_lists.h"
#include "editor/view_place.h"
#include "objects/markers.h"

#include <algorithm>
#include <functional>

namespace veldrune {
namespace {

void draw_shown(const Form1& form, ObjectKinds kinds, ViewPlace place, ObjectLists& lists,
                PixelBuffer& picture) {
    for (const ObjectKind kind : kinds)
        if (form.*object_kind_row(kind).shown)
            draw_markers(kind, lists[kind], place, picture);
}

} // namespace

MarkerKinds shown_markers(const Form1& form) {
    MarkerKinds kinds{};
    for (const ObjectKind kind : map_object_kinds)
        kinds[static_cast<std::size_t>(kind)] = form.*object_kind_row(kind).shown;
    return kinds;
}

void draw_objects(EditorState& state) {
    read_object_lists(state, map_object_kinds, state.form1.Combo1);
    const MarkerKinds drawn = shown_markers(state.form1);
    std::ranges::transform(drawn, state.picture.markers, state.picture.markers.begin(),
                           std::logical_or());
    draw_shown(state.form1, marker_order, map_place(state.form1, state.zoom), state.objects.lists,
               state.display.picture);
}

void draw_overlays(EditorState& state) {
    if (state.form1.grid_on)
        draw_grid(state.display.picture, tile_size(state.zoom));
    draw_objects(state);
}

void draw_world_objects(const Form1& form, ObjectLists& lists, PixelBuffer& picture) {
    draw_shown(form, world_object_kinds, world_place(form), lists, picture);
}

} // namespace veldrune
