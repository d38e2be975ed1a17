#pragma once

#include "demo/drawing/drawn_picture.h"
#include "demo/drawing/map_canvas.h"
#include "demo/places/plans.h"

#include <array>
#include <map>
#include <span>

namespace veldrune::demo {

/// A ground that joins its neighbours.
struct GroundArt {
    std::string_view letters; // of a plan that it covers; none: all
    std::string_view joins;   // letters towards which it has no edge
    Picture (*draw)(Shape shape, int variant);
    int variants = 1;
    int layer = 1;     // 0 or 1, for layers 1 and 2
    int patch = 1;     // tiles that share a variant
    bool feet = false; // covers the tiles that the foot of a tree on letters may touch instead
};

/// An object: its lower left is that of the tile of its letter, moved to the left and up.
struct PropArt {
    char letter;
    DrawnPicture picture;
    int high = 0; // pixels from the top that hide who stands behind
    int layer = 0;
    int left = 0;
    int up = 0;
};

/// How rooms and caverns look. In a plan '#' is solid; the tiles below it show the wall.
struct WallArt {
    int height; // tiles
    /// Four tiles wide: a wall by itself, one that goes on to the west, to the east, to both.
    DrawnPicture wall;
    /// The tiles of a floor, which repeat; its variants lie one below the other.
    DrawnPicture floor;
    int floor_variants;
    Picture (*top)(Shape shape, int variant);
};

/// All that the maps of one kind of place are made with.
struct PlaceArt {
    std::span<const DrawnPicture, 4> animated; // the frames of its animated tile
    Plan (*plan)(int layout, int width, int height, Random& random);
    const WallArt* walls;               // none out of doors
    std::span<const GroundArt> grounds; // in the order of painting
    std::span<const PropArt> props;
};
extern const PlaceArt town_art, forest_art, cave_art, castle_art, interior_art;

/// Paints plans. Pictures are drawn and cut when a map first needs them.
class Scenery {
  public:
    Scenery(const PlaceArt& art, BlockTable& table);
    void paint(MapCanvas& canvas, const Plan& plan);
    /// Where one can walk on a plan, '.', and where not, '#': behind tree crowns and the like, too.
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
