#pragma once

#include "demo/drawing/palettes.h"
#include "demo/drawing/place.h"
#include "demo/image/map_objects.h"
#include "demo/places/demo_maps.h"
#include "demo/places/scenery.h"

#include <array>
#include <optional>

namespace veldrune::demo {

/// A way in and out: its tiles, and the tile where one arrives through it.
struct Gate {
    Place first;
    int length; // tiles after the first
    bool down;
    Place landing;
};

/// A layout with the data for placing objects on it.
struct Site {
    Plan plan;
    Plan floor; // '.' where one can walk to, else '#'
    bool outdoors;
    std::vector<Gate>
        doors; // of houses; without any, tiles at the edge of the floor, far from each other

    /// floor becomes the largest connected area of walkable.
    Site(Plan layout, const Plan& walkable, bool is_outdoors);
    bool open(int x, int y) const {
        return x >= 0 && y >= 0 && x < floor.width && y < floor.height && floor.is(x, y, ".");
    }
    /// The way out on a side; on a path, if one leads there.
    Gate edge(Facing side) const;

  private:
    /// The first way out in the rows or columns next to a side, on tiles of letters; if these are
    /// empty, on any tile.
    std::optional<Gate> way_out(Facing side, int lines, std::string_view letters) const;
    void find_house_doors();
    void find_thresholds();
};

/// From the first town on, the kinds rotate; five maps, one of each kind, form a region.
constexpr int kind_of(int map) {
    return std::max(map - demo_map::town, 0) % kind_count;
}
constexpr int region_of(int map) {
    return std::max(map - demo_map::town, 0) / kind_count;
}

/// By kind and layout; the regions use the layouts of a kind in rotation.
using Sites = std::array<std::vector<Site>, kind_count>;
inline const Site& site_of(const Sites& sites, int map) {
    const std::vector<Site>& layouts = sites[static_cast<std::size_t>(kind_of(map))];
    return layouts[static_cast<std::size_t>(region_of(map)) % layouts.size()];
}

} // namespace veldrune::demo
