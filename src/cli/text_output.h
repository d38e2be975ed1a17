#pragma once

#include "inspect/listing.h"

#include <string>

namespace veldrune::cli {

/// A line of headings and a line a row, in aligned columns: words to the left, numbers to the
/// right. A listing whose headings are all blank has none. A cell whose text has several lines, and
/// a long list of numbers, take as many.
std::string text_of(const inspect::Listing& listing);

} // namespace veldrune::cli
