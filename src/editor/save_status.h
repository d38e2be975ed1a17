#pragma once

#include "editor/editor_state.h"
#include "saving/save_doubts.h"

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace veldrune {

/// What of the shown map or world is not in the image yet, and what the next save does.
struct SaveStatus {
    bool painting = false;               // on the map or the world
    bool command = false;                // "Clear Map" or "Paste Tile Formation"
    std::vector<RecordControl> fields;   // that differ, except those of left_out
    std::vector<RecordControl> left_out; // that differ, since the latest Save As leaves them out
    std::optional<std::chrono::system_clock::time_point> saved_at; // since the loading
    std::string save_goes_to; // the open image, where the path on show is not its own
    bool unsaved() const { return painting || command || !fields.empty(); }
};
SaveStatus save_status(const EditorState& state);

/// After a map has been loaded and is shown in the fields.
void remember_loaded_fields(EditorState& state);
/// After a whole save of the map into the open image.
void remember_saved_fields(EditorState& state, SaveKind kind);
/// After a world has been loaded or saved.
void remember_world_location(EditorState& state);

} // namespace veldrune
