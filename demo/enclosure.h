#pragma once

#include "demo/map_canvas.h"
#include "demo/scenery.h"

#include <map>

namespace veldrune::demo {

/// How rooms and caverns of a kind look. In a plan '#' is solid; below it the first rows of a room
/// show its wall.
struct EnclosureStyle {
    int wall_height; // tiles
    /// A floor tile: x and y count tiles modulo 4, variant is 0 to 3.
    Picture (*floor)(int x, int y, int variant);
    /// A tile of a wall: row 0 is the uppermost; whether the wall goes on to the west and east.
    Picture (*wall)(int row, bool west, bool east);
    /// The top of solid ground.
    Picture (*top)(Shape shape, int variant);
    std::string_view never_wall; // letters that stand in for floor even below '#'
};

/// An object on a tile of a plan: its lower left is that of the tile, moved to the right and up.
struct Prop {
    Stamp stamp;
    int right = 0;     // pixels, multiples of 8
    int up = 0;        // pixels, multiples of 8
    int high_rows = 0; // rows of blocks that are high, from the top
};

/// Draws solid ground, walls and floors.
class Enclosure {
  public:
    Enclosure(BlockTable& table, const EnclosureStyle& style);
    void paint(MapCanvas& canvas, const Plan& plan);
    /// 0 where (x, y) is no wall, else its row counted from 1.
    int wall_row(const Plan& plan, int x, int y) const;

  private:
    const Stamp& tile(const Plan& plan, int x, int y);

    BlockTable& table_;
    EnclosureStyle style_;
    Ground top_;
    std::map<std::array<int, 3>, Stamp> tiles_; // by wall row, surroundings and variant
};

using Props = std::map<char, Prop>;
void paint_props(const Props& props, MapCanvas& canvas, const Plan& plan);

} // namespace veldrune::demo
