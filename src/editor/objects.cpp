#include "editor/objects.h"

#include "editor/object_window.h"
#include "editor/view.h"
#include "objects/markers.h"
#include "rom/reported_access.h"

namespace veldrune {
namespace {

using enum ObjectKind;

// Markers that are drawn later lie on top; of the objects on a tile the one matched last is opened.
constexpr ObjectKind all_kinds[] = {npc, chest, event_trigger, entrance, long_entrance};
constexpr ObjectKind draw_order[] = {npc, long_entrance, entrance, chest, event_trigger};
constexpr ObjectKind world_kinds[] = {entrance, event_trigger};
using Kinds = std::span<const ObjectKind>;

bool is_shown(const EditorState& state, ObjectKind kind) {
    return state.form1.*object_kind_row(kind).shown;
}

// A record of another map or image must not stay in the object window, nor its rows in a list that
// is not read: a save would put it in the wrong place.
void reload_object_lists(EditorState& state, Kinds kinds) {
    ObjectLists& objects = state.objects.lists;
    const int map = state.form1.Combo1;
    const bool same = objects.map == map && is_from(objects.source, state.rom);
    objects.map = map;
    objects.source = source_of(state.rom);
    for (ObjectList& list : objects.lists)
        list.row_count = same ? list.row_count : 0;
    const ReadWatch reads(state.rom);
    for (const ObjectKind kind : kinds)
        load_object_list(state.rom, kind, map, objects[kind]);
    // What the disk has refused to give must not be saved over what stands there.
    const bool refused =
        report_read_refusal(reads, "The objects of the map are not shown.", state.dialogs);
    if (refused)
        objects = {};
    if (refused || !same)
        drop_object(state);
}

void draw_shown(EditorState& state, Kinds kinds, const MarkerView& view) {
    for (const ObjectKind kind : kinds)
        if (is_shown(state, kind))
            draw_markers(kind, state.objects.lists[kind], view, state.display.picture);
}

} // namespace

void read_object_counts(EditorState& state) {
    Form1& form = state.form1;
    ObjectLists& objects = state.objects.lists;
    for (const ObjectKind kind : all_kinds)
        objects[kind].count = read_object_extent(state.rom, kind, form.Combo1).count;
    form.Label27 = std::to_string(objects[npc].count);
    form.Label28 = std::to_string(objects[chest].count);
    form.Label29 = std::to_string(objects[event_trigger].count);
    form.Label30 = std::to_string(objects[entrance].count + objects[long_entrance].count);
}

void draw_objects(EditorState& state) {
    const Form1& form = state.form1;
    reload_object_lists(state, all_kinds);
    draw_shown(state, draw_order, {form.HScroll1.value, form.VScroll1.value, tile_size(state)});
}

void read_world_objects(EditorState& state) {
    reload_object_lists(state, world_kinds);
}

void draw_world_objects(EditorState& state) {
    const Form1& form = state.form1;
    draw_shown(state, world_kinds, {form.HScroll2.value, form.VScroll2.value, world_tile_size});
}

void select_object_at(EditorState& state, std::uint8_t x, std::uint8_t y) {
    for (const ObjectKind kind : state.world_map_mode ? Kinds(world_kinds) : Kinds(all_kinds)) {
        const ObjectList& list = state.objects.lists[kind];
        for (int index = 0; is_shown(state, kind) && index < list.row_count; ++index)
            if (object_covers(kind, list, index, x, y))
                open_object(state, kind, index);
    }
}

} // namespace veldrune
