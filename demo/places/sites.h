#pragma once

#include "demo/drawing/palettes.h"
#include "demo/drawing/place.h"
#include "demo/image/map_objects.h"
#include "demo/places/demo_maps.h"
#include "demo/places/scenery.h"

#include <array>
#include <optional>

namespace veldrune::demo {

/// A way in and out: its tiles, and where one stands who has come through it.
struct Gate {
    Place first;
    int length; // tiles beyond the first
    bool down;
    Place landing;
};

/// A layout as those who fill it with life see it.
struct Site {
    Plan plan;
    Plan floor; // '.' where one can get to, else '#'
    bool outdoors;
    std::vector<Gate> doors; // of houses; elsewhere thresholds, far from each other

    /// Takes the largest ground that hangs together out of what can be walked on.
    Site(Plan layout, const Plan& walkable, bool is_outdoors);
    bool open(int x, int y) const {
        return x >= 0 && y >= 0 && x < floor.width && y < floor.height && floor.is(x, y, ".");
    }
    /// The way out on a side, along a path where there is one.
    Gate edge(Facing side) const;

  private:
    /// The first way out in lines next to the side, on tiles of letters or, with none, on any.
    std::optional<Gate> way_out(Facing side, int lines, std::string_view letters) const;
    void find_house_doors();
    void find_thresholds();
};

/// Every fifth map is of a kind, from the first town on; each turn of five is a region.
constexpr int kind_of(int map) {
    return std::max(map - demo_map::town, 0) % kind_count;
}
constexpr int region_of(int map) {
    return std::max(map - demo_map::town, 0) / kind_count;
}

/// By kind and layout; the layouts of a kind return from region to region.
using Sites = std::array<std::vector<Site>, kind_count>;
inline const Site& site_of(const Sites& sites, int map) {
    const std::vector<Site>& layouts = sites[static_cast<std::size_t>(kind_of(map))];
    return layouts[static_cast<std::size_t>(region_of(map)) % layouts.size()];
}

} // namespace veldrune::demo
