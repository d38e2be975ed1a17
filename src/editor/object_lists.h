#pragma once

#include "editor/editor_state.h"

namespace veldrune {

/// Reads the counts of the five lists for row form1.Combo1 of the map list and shows them beside
/// the check boxes. The rows stay as they are.
void read_object_counts(EditorState& state);

/// Reads the rows of the kinds for a map. If the disk refuses a read, all lists are emptied, which
/// is reported. The object window drops a record of another map or image.
void read_object_lists(EditorState& state, ObjectKinds kinds, int map);

} // namespace veldrune
