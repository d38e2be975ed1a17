#pragma once

#include "inspect/listing.h"
#include "inspect/reading.h"

#include <cstdint>
#include <span>
#include <string>

namespace veldrune::inspect {

/// What can be asked for.
enum class Use { flag, chest_flag, event, dialogue, map, item, song, sprite, tile };

/// What is asked for. Flags count as 8 * byte + bit.
struct UseQuery {
    Use use;
    std::int64_t value;
    int formation_set = 0; // of a tile
};

/// All that is known to refer to it, what does so only perhaps at the end.
Listing list_uses(const ImageReading& reading, const UseQuery& query);

/// What a search looks at, in a line: "npc event, trigger event; pointers of commands".
std::string looked_at(Use use);

} // namespace veldrune::inspect
