#pragma once

#include <functional>
#include <string>

namespace veldrune::inspect {

/// One thing that is not the same in two images.
struct Difference {
    std::string thing;  // "map 12", "data 12, layer 1 of maps 5, 9", "bytes 300200-3002FF"
    std::string what;   // "song", "3 tiles in columns 4-6, row 2"
    std::string before; // its value in the first image, as a dump has it; empty where it has none
    std::string after;  // and in the second
};
using TakeDifference = std::function<void(const Difference&)>;

} // namespace veldrune::inspect
