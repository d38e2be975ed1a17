#pragma once

#include "demo/drawing/drawn_picture.h"
#include "demo/drawing/map_canvas.h"
#include "demo/places/plans.h"

#include <array>
#include <map>
#include <span>

namespace veldrune::demo {

/// A ground with edges that depend on the neighbouring tiles.
struct GroundArt {
    std::string_view letters; // of the plan that it covers; empty: all
    std::string_view joins;   // letters of neighbours to which it has no edge
    Picture (*draw)(Shape shape, int variant);
    int variants = 1;
    int layer = 1;     // 0 is layer 1, 1 is layer 2
    int patch = 1;     // tiles that share a variant
    bool feet = false; // covers instead the tiles that the foot of a tree on letters may touch
};

/// An object. Its lower left corner is that of the tile with its letter, moved left and up.
struct PropArt {
    char letter;
    DrawnPicture picture;
    int high = 0; // pixel rows from the top that hide people behind it
    int layer = 0;
    int left = 0;
    int up = 0;
};

/// The look of rooms and caverns. In a plan '#' is solid; the tiles below it show the wall.
struct WallArt {
    int height; // tiles
    /// Four tiles wide: a single wall, one that continues to the west, to the east, to both.
    DrawnPicture wall;
    /// The tiles of a floor, which are repeated; the variants are one below the other.
    DrawnPicture floor;
    int floor_variants;
    Picture (*top)(Shape shape, int variant);
};

/// Everything that the maps of one kind of place are made from.
struct PlaceArt {
    std::span<const DrawnPicture, 4> animated; // the frames of its animated tile
    Plan (*plan)(int layout, int width, int height, Random& random);
    const WallArt* walls;               // null outdoors
    std::span<const GroundArt> grounds; // in the order of painting
    std::span<const PropArt> props;
};
extern const PlaceArt town_art, forest_art, cave_art, castle_art, interior_art;

/// Paints plans. Pictures are drawn and cut at their first use.
class Scenery {
  public:
    Scenery(const PlaceArt& art, BlockTable& table);
    void paint(MapCanvas& canvas, const Plan& plan);
    /// The tiles of a plan where one can walk, '.', and where not, '#'. Tiles hidden by objects,
    /// such as tree crowns, are '#', too.
    Plan walkable(const Plan& plan) const;

  private:
    using Key = std::array<int, 4>;
    /// Row of a wall on (x, y), counted from 1 at the top; 0 where there is none.
    int wall_row(const Plan& plan, int x, int y) const;
    Picture floor_tile(int x, int y, int variant) const;
    void paint_room(MapCanvas& canvas, const Plan& plan, int x, int y);
    void paint_ground(MapCanvas& canvas, const Plan& plan, int number);
    void paint_props(MapCanvas& canvas, const Plan& plan, int x, int y);
    template <class Draw>
    const Stamp& tile(const Key& key, Draw draw);

    const PlaceArt& art_;
    BlockTable& table_;
    std::map<Key, Stamp> tiles_; // of walls, floors and grounds
    std::multimap<char, std::pair<const PropArt*, Stamp>> props_;
};

} // namespace veldrune::demo
