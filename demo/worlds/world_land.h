#pragma once

#include "demo/drawing/place.h"

#include <array>
#include <cstdint>
#include <vector>

namespace veldrune::demo {

inline constexpr int world_tiles = 256; // in a row, and rows

/// What a corner of a tile is. A tile mixes two neighbours at the most: deep and shallow water,
/// shallow water and grass, or grass and one of the kinds after it.
enum class Ground : std::uint8_t { deep, shallow, grass, forest, desert, mountain };

/// What stands on a tile, if anything.
enum class Sight : std::uint8_t {
    none,
    road,
    bridge_top, // half of a bridge each, over a river that runs across
    bridge_bottom,
    bridge_left,
    bridge_right,
    village,
    town,
    harbour,
    castle, // the upper left one of four tiles
    tower,
    cave,
    ruin,
    peak, // the upper left one of four tiles
    taken // the rest of those four
};

/// A world: the grounds of all corners, the corner of tile (x, y) at its upper left, and what
/// stands on the tiles.
struct Land {
    std::vector<Ground> grounds = std::vector<Ground>(world_tiles * world_tiles);
    std::vector<Sight> sights = std::vector<Sight>(world_tiles * world_tiles);
    std::vector<Place> places; // the settlements, castles, towers, ruins and caves
    std::vector<Place> roads;  // tiles of roads

    /// Beyond the edge lies deep water.
    Ground ground(int x, int y) const {
        return contains(x, y) ? grounds[index(x, y)] : Ground::deep;
    }
    Sight sight(int x, int y) const { return contains(x, y) ? sights[index(x, y)] : Sight::taken; }
    void set(int x, int y, Ground ground) {
        if (contains(x, y))
            grounds[index(x, y)] = ground;
    }
    void set(int x, int y, Sight sight) { sights[index(x, y)] = sight; }
    /// The corners of a tile: upper left, upper right, lower left, lower right.
    std::array<Ground, 4> corners(int x, int y) const {
        return {ground(x, y), ground(x + 1, y), ground(x, y + 1), ground(x + 1, y + 1)};
    }

    static bool contains(int x, int y) {
        return x >= 0 && x < world_tiles && y >= 0 && y < world_tiles;
    }
    static std::size_t index(int x, int y) { return static_cast<std::size_t>(y * world_tiles + x); }
};

} // namespace veldrune::demo
