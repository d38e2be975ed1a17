#pragma once

namespace veldrune::demo {

/// A tile of a map.
struct Place {
    int x, y;
};

} // namespace veldrune::demo
