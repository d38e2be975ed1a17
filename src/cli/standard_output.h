#pragma once

#include <string_view>

namespace veldrune::cli {

/// Writes to standard output. Throws Failure where that can't be done, and ReaderGone.
void put_out(std::string_view text);

/// Shows text in place of the one before it, on a terminal; nowhere else.
void put_progress(std::string_view text);

} // namespace veldrune::cli
