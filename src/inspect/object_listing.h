#pragma once

#include "inspect/listing.h"
#include "inspect/reading.h"

#include <optional>

namespace veldrune::inspect {

/// The objects of a map, or of all maps without one: a column for each value that any kind has.
/// Flags count as 8 * byte + bit.
Listing object_table(const ImageReading& reading, std::optional<int> map);

/// The same for people: the values in words, as the object window shows them.
Listing object_lines(const ImageReading& reading, std::optional<int> map);

} // namespace veldrune::inspect
