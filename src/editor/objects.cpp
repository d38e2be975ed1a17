#include "editor/objects.h"

#include "editor/object_window.h"
#include "editor/view.h"
#include "objects/markers.h"

namespace veldrune {
namespace {

using enum ObjectKind;

// Markers that are drawn later lie on top; of the objects on a tile the one matched last is opened.
constexpr ObjectKind all_kinds[] = {npc, chest, event_trigger, entrance, long_entrance};
constexpr ObjectKind draw_order[] = {npc, long_entrance, entrance, chest, event_trigger};

bool is_shown(const EditorState& state, ObjectKind kind) {
    return state.form1.*object_kind_row(kind).shown;
}

// What the disk has refused to give must not be saved over what stands there.
void empty_object_lists(EditorState& state) {
    state.objects = {};
    drop_object(state);
    state.dialogs.message(
        "Reading " + state.rom.path() + " failed. The objects of the map are not shown.", "Error");
}

// A record of another map or image must not stay in the object window: a save would put it in the
// wrong place.
void reload_object_lists(EditorState& state) {
    ObjectLists& objects = state.objects;
    const int map = state.form1.Combo1;
    const FileIdentity image = state.rom.identity();
    const bool same = objects.map == map && objects.image == image;
    objects.map = map;
    objects.image = image;
    state.rom.take_read_refusal(); // of a reading before
    for (const ObjectKind kind : all_kinds)
        load_object_list(state.rom, kind, map, objects[kind]);
    if (state.rom.take_read_refusal())
        empty_object_lists(state);
    else if (!same)
        drop_object(state);
}

} // namespace

void read_object_counts(EditorState& state) {
    Form1& form = state.form1;
    ObjectLists& objects = state.objects;
    for (const ObjectKind kind : all_kinds)
        objects[kind].count = read_object_extent(state.rom, kind, form.Combo1).count;
    form.Label27 = std::to_string(objects[npc].count);
    form.Label28 = std::to_string(objects[chest].count);
    form.Label29 = std::to_string(objects[event_trigger].count);
    form.Label30 = std::to_string(objects[entrance].count + objects[long_entrance].count);
}

void draw_objects(EditorState& state) {
    reload_object_lists(state);
    const MarkerView view{state.form1.HScroll1.value, state.form1.VScroll1.value, tile_size(state)};
    for (const ObjectKind kind : draw_order)
        if (is_shown(state, kind))
            draw_markers(kind, state.objects[kind], view, state.picture);
}

void select_object_at(EditorState& state, std::uint8_t x, std::uint8_t y) {
    for (const ObjectKind kind : all_kinds) {
        const ObjectList& list = state.objects[kind];
        for (int index = 0; is_shown(state, kind) && index < list.row_count; ++index)
            if (object_covers(kind, list, index, x, y))
                open_object(state, kind, index);
    }
}

} // namespace veldrune
