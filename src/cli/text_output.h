#pragma once

#include "inspect/listing.h"

#include <string>

namespace veldrune::cli {

/// A line of headings and a line a row, in aligned columns: words and lists to the left, numbers to
/// the right. A cell whose text has several lines, and a long list of numbers, take as many. What
/// is wider than 80 characters moves the rest of its own line alone.
std::string text_of(const inspect::Listing& listing);

} // namespace veldrune::cli
