#pragma once

#include "inspect/listing.h"
#include "inspect/reading.h"

#include <optional>
#include <string>

namespace veldrune::inspect {

/// Which dialogues are listed, and how.
struct DialogueQuery {
    std::optional<int> number{}; // only this one
    std::string find{};          // only those whose text holds this, whatever the case
    bool wrapped = false;        // the text in lines, as the Event Editor shows it; objects, too
    bool all_objects = false;    // all that show it are named, not only ten
};

/// A line a dialogue: its place and text, the scripts that show it, and the maps and objects from
/// which a walk comes to these.
Listing list_dialogues(const ImageReading& reading, const DialogueQuery& query);

} // namespace veldrune::inspect
