#pragma once

#include "inspect/difference.h"
#include "inspect/listing.h"
#include "inspect/reading.h"

#include <vector>

namespace veldrune::inspect {

/// What differs between two images, each thing once, by what is stored: what a dump shows, streams
/// that are packed otherwise or lie elsewhere, rows of scripts, and then bytes that mean nothing
/// known. What only follows from another finding, such as a script to which nothing leads any more,
/// is left out where its own bytes are the same.
std::vector<Difference> diff_images(const ImageReading& a, const ImageReading& b);

/// The findings in columns, and as lines of text.
Listing finding_table(const std::vector<Difference>& findings);
Listing finding_lines(const std::vector<Difference>& findings);

} // namespace veldrune::inspect
