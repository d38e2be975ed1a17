#pragma once

#include "demo/drawing/place.h"

#include <array>
#include <cstdint>
#include <vector>

namespace veldrune::demo {

inline constexpr int world_tiles = 256; // per row, and rows

/// The ground of a corner of a tile. A tile mixes at most two: deep and shallow water, shallow
/// water and grass, or grass and one of the grounds after it.
enum class Ground : std::uint8_t { deep, shallow, grass, forest, desert, mountain };

/// The object on a tile, if any.
enum class Feature : std::uint8_t {
    none,
    road,
    bridge_top, // half of a bridge that leads from north to south
    bridge_bottom,
    bridge_left, // half of a bridge that leads from west to east
    bridge_right,
    village,
    town,
    harbour,
    castle, // the upper left one of four tiles
    tower,
    cave,
    ruin,
    peak,    // the upper left one of four tiles
    occupied // the other three of these tiles, or outside the map
};

/// A world: the grounds of all corners, where corner (x, y) is the upper left one of tile (x, y),
/// and the features of the tiles.
struct Land {
    std::vector<Ground> grounds = std::vector<Ground>(world_tiles * world_tiles);
    std::vector<Feature> features = std::vector<Feature>(world_tiles * world_tiles);
    std::vector<Place> places; // the settlements, castles, towers, ruins and caves
    std::vector<Place> roads;  // tiles of roads

    /// Deep water outside the map.
    Ground ground(int x, int y) const {
        return contains(x, y) ? grounds[index(x, y)] : Ground::deep;
    }
    Feature feature(int x, int y) const {
        return contains(x, y) ? features[index(x, y)] : Feature::occupied;
    }
    void set(int x, int y, Ground ground) {
        if (contains(x, y))
            grounds[index(x, y)] = ground;
    }
    void set(int x, int y, Feature feature) { features[index(x, y)] = feature; }
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
