#pragma once

#include "inspect/owner_kind.h"
#include "inspect/reading.h"

#include <span>
#include <string>
#include <vector>

namespace veldrune::inspect {

/// A stream of any kind, and how reports show it.
struct AnyStream {
    OwnerKind kind;
    int number;                          // as in OwnedRange
    std::string key;                     // in a dump: "data 045", "world dawn map"
    int width;                           // of the rows in which its bytes are shown
    const PackedStream* packed;          // in the reading
    std::span<const StreamUser> users{}; // of a layer's
    int tiles = 0;                       // that a layer has at its largest size; else 0
};

/// All streams of a reading, which must outlive them: layers, formation sets, graphics of layer 3,
/// worlds.
std::vector<AnyStream> all_streams(const ImageReading& reading);

} // namespace veldrune::inspect
