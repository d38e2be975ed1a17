#pragma once

#include "inspect/diff.h"
#include "inspect/dump.h"

namespace veldrune::test {

/// All that is handed over piece by piece.
inline std::vector<inspect::Fact> facts_of(const inspect::ImageReading& reading) {
    std::vector<inspect::Fact> all;
    dump_image(reading, [&](auto& facts) { all.insert(all.end(), facts.begin(), facts.end()); });
    return all;
}
inline std::vector<inspect::Difference> differences_of(const inspect::ImageReading& a,
                                                       const inspect::ImageReading& b) {
    std::vector<inspect::Difference> all;
    diff_images(a, b, [&](auto& difference) { all.push_back(difference); });
    return all;
}

} // namespace veldrune::test
