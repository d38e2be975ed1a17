#pragma once

#include "inspect/difference.h"
#include "inspect/listing.h"
#include "inspect/reading.h"

#include <vector>

namespace veldrune::inspect {

/// Hands over what differs between two images, each thing once, by what is stored: what a dump
/// shows, streams that are packed otherwise or lie elsewhere, rows of scripts, and then bytes that
/// mean nothing known. What only follows from another finding, such as a script to which nothing
/// leads any more, is left out where its own bytes are the same.
void diff_images(const ImageReading& a, const ImageReading& b, const TakeDifference& take);

/// A finding in columns, and as a line of text without its end.
std::vector<Column> difference_columns();
std::vector<Cell> difference_row(const Difference& finding);
std::string difference_line(const Difference& finding);

} // namespace veldrune::inspect
