#pragma once

#include "forms/form1.h"
#include "map/map_properties.h"

#include <chrono>
#include <optional>
#include <vector>

namespace veldrune {

/// What the image holds of the chosen map or the open world, as far as it isn't in their own
/// groups: from their loading on, and from each of their saves.
struct LastSave {
    Form1 fields; // the texts and the box of the properties, as the image holds them
    std::optional<std::chrono::system_clock::time_point> at; // nothing since the loading
    std::vector<RecordControl> left_out; // by a Save As: Save once more would write them
    bool cleared = false;                // "Clear Map" has emptied the layers since then
    bool pasted = false; // "Paste Tile Formation" has replaced the record since the last Save
};

} // namespace veldrune
