#pragma once

#include "inspect/listing.h"

#include <string>
#include <string_view>

namespace veldrune::cli {

/// Grows when a key is renamed or removed; new keys alone do not change it.
inline constexpr int json_format = 1;

/// One object: "format", "image" (the path), "command", and under the key array an array of
/// objects, a line each, with the columns' keys in their order.
std::string json_of(const std::string& image, const char* command, const char* array,
                    const inspect::Listing& listing);

/// The same in pieces, for a listing too long to be held: what comes before its rows, each of them,
/// and what comes after them.
std::string json_begin(const std::string& image, const char* command, const char* array);
std::string json_row(const std::vector<inspect::Column>& columns,
                     const std::vector<inspect::Cell>& row, bool first);
inline constexpr const char* json_end = "\n]}\n";

/// A text of any bytes as one of whole UTF-8 characters: a byte b that belongs to none becomes the
/// character U+EF00 + b. So do the three bytes of each character from U+EF80 to U+EFFF, so that the
/// bytes can always be had back.
std::string utf8_text(std::string_view bytes);

} // namespace veldrune::cli
