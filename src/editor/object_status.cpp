#include "editor/object_status.h"

#include "editor/object_window.h"

#include <algorithm>

namespace veldrune {
namespace {

bool image_differs(const EditorState& state, int index, std::span<const std::uint8_t> row) {
    if (!is_from(state.objects.lists.source, state.rom))
        return false;
    ObjectBytes record;
    const auto held = std::span(record).first(row.size());
    state.rom.read(object_offset(chosen_kind(state.form10), chosen_list(state), index), held);
    return !std::ranges::equal(held, row);
}

} // namespace

ObjectStatus object_status(const EditorState& state) {
    const std::optional<int> index = state.objects.selected_object.index;
    const ObjectKind kind = chosen_kind(state.form10);
    const ObjectList& list = chosen_list(state);
    if (!index || *index >= list.row_count)
        return {};
    const auto row = object_row(kind, list, *index);
    ObjectBytes record{};
    std::ranges::copy(row, record.begin());
    return {differing_controls(kind, record, state.form10), image_differs(state, *index, row),
            preview_is_outdated(state)};
}

} // namespace veldrune
