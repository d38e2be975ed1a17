#pragma once

#include "editor/editor_state.h"

namespace veldrune {

/// Where a save of the script in the Event Editor would write it.
struct SavePlace {
    std::string text;
    bool elsewhere = false; // not where the script was loaded, or nowhere
};
SavePlace save_place(const EditorState& state);

/// What can be said of its grid. This goes through all rows.
struct GridStatus {
    std::string size;      // bytes that a save would write, "-" for none, of those that were loaded
    bool too_long = false; // they are more
    bool changed = false;  // the grid holds other values than were loaded
};
GridStatus grid_status(const EditorState& state);

} // namespace veldrune
