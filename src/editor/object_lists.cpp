#include "editor/object_lists.h"

#include "editor/object_window.h"
#include "rom/reported_access.h"

namespace veldrune {

using enum ObjectKind;

void read_object_counts(EditorState& state) {
    Form1& form = state.form1;
    ObjectLists& objects = state.objects.lists;
    for (const ObjectKind kind : map_object_kinds)
        objects[kind].count = read_object_extent(state.rom, kind, form.Combo1).count;
    form.Label27 = std::to_string(objects[npc].count);
    form.Label28 = std::to_string(objects[chest].count);
    form.Label29 = std::to_string(objects[event_trigger].count);
    form.Label30 = std::to_string(objects[entrance].count + objects[long_entrance].count);
}

// The object window must not keep a record of another map or image, nor a list rows that the disk
// has refused to give: a save would write them where they don't belong.
void read_object_lists(EditorState& state, ObjectKinds kinds, int map) {
    const ReadWatch reads(state.rom);
    ObjectLists& lists = state.objects.lists;
    const bool same = load_object_lists(state.rom, kinds, map, lists);
    const bool refused =
        report_refused_reads(reads, "The objects of the map are not shown.", state.dialogs);
    if (refused)
        lists = {};
    if (refused || !same)
        drop_object(state);
}

} // namespace veldrune
