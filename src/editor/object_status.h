#pragma once

#include "editor/editor_state.h"

namespace veldrune {

/// What can be said of the object in the Object Info window beside its fields.
struct ObjectStatus {
    std::vector<ObjectControl> differing; // controls with another value than the list's row
    bool list_outdated = false;           // the image has another record than the list
    bool preview_outdated = false;        // the sprite has no picture: an earlier one stays
};
/// Reads the object's record from the image. Without a record, nothing differs.
ObjectStatus object_status(const EditorState& state);

} // namespace veldrune
