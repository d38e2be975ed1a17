#pragma once

namespace veldrune::demo {

/// The position of a tile on a map.
struct Place {
    int x, y;
};

} // namespace veldrune::demo
