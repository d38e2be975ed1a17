#pragma once

#include "editor/editor_state.h"

namespace veldrune {

/// Renews the counts of the five lists for row form1.Combo1 of the map list and shows them beside
/// the boxes. The rows stay.
void read_object_counts(EditorState& state);

/// Reads the rows of the kinds for row form1.Combo1 of the map list. Lists that the disk refuses to
/// give are empty, which is reported. The object window drops a record of another map or image.
void read_object_lists(EditorState& state, ObjectKinds kinds);

} // namespace veldrune
