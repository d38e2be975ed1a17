#include "editor/object_lists.h"

#include "editor/object_window.h"
#include "rom/reported_access.h"

namespace veldrune {

namespace {

// The number of records of all kinds that share a label.
int shown_count(const ObjectLists& lists, std::string Form1::*label) {
    int count = 0;
    for (const ObjectKind kind : map_object_kinds)
        if (object_kind_row(kind).count == label)
            count += lists[kind].count;
    return count;
}

} // namespace

void read_object_counts(EditorState& state) {
    ObjectLists& lists = state.objects.lists;
    for (const ObjectKind kind : map_object_kinds)
        lists[kind].count = read_object_extent(state.rom, kind, state.form1.Combo1).count;
    for (const ObjectKind kind : map_object_kinds) {
        const auto label = object_kind_row(kind).count;
        state.form1.*label = std::to_string(shown_count(lists, label));
    }
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
