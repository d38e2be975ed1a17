#pragma once

#include "demo/drawing/plan.h"
#include "demo/drawing/tile_pool.h"

#include <vector>

namespace veldrune::demo {

enum class Level { low, high };

/// Layers 1 and 2 of a map as blocks.
class MapCanvas {
  public:
    MapCanvas(BlockTable& table, int width, int height);

    /// Puts a block on layer 0 or 1, over the block there or in its place. Does nothing outside.
    void put(int layer, int x, int y, int block, Level level, bool replace = false);
    /// Puts a stamp with its upper left corner at pixel (x, y), multiples of 8. The blocks of its
    /// upper high pixel rows get high priority.
    void stamp(int layer, int x, int y, const Stamp& stamp, int high);
    /// Replaces the tile at (x, y).
    void ground(int layer, int x, int y, const Stamp& tile);
    /// Moves opaque high tiles of layer 1 to layer 2 where the tile above them is one, too. That
    /// frees layer 1.
    void move_hiding_tiles_to_layer2();
    std::vector<std::uint8_t> formations(int layer, CharacterPool& characters,
                                         FormationPool& pool) const;

  private:
    struct Cell {
        int block = 0;
        Level level = Level::low;
    };
    Cell& cell(int layer, int x, int y) {
        return cells_[static_cast<std::size_t>((layer * 2 * height_ + y) * 2 * width_ + x)];
    }
    const Cell& cell(int layer, int x, int y) const {
        return cells_[static_cast<std::size_t>((layer * 2 * height_ + y) * 2 * width_ + x)];
    }

    bool hides_all(int x, int y) const;

    BlockTable& table_;
    int width_;
    int height_;
    std::vector<Cell> cells_;
};

} // namespace veldrune::demo
