#pragma once

#include "editor/commands.h"

#include <optional>
#include <string>

namespace veldrune {

/// Whether the picture shows the chosen map as the fields and boxes have it.
struct PictureStatus {
    std::string shown;            // what it shows instead; empty where it does
    std::optional<Command> renew; // the build that would renew it
    std::string why_not;          // why none would
};
PictureStatus picture_status(const EditorState& state);

} // namespace veldrune
