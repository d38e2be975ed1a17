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

    /// Puts a block on layer 0 or 1; block coordinates outside are ignored.
    void put(int layer, int x, int y, int block, Level level, bool replace = false);
    /// Puts a stamp with its upper left at pixel (x, y), multiples of 8. Blocks are high in
    /// its first high pixels.
    void stamp(int layer, int x, int y, const Stamp& stamp, int high);
    /// Puts a tile over whatever is there, on tile (x, y).
    void ground(int layer, int x, int y, const Stamp& tile);
    /// High tiles of layer 1 that hide all below, like the tile above them, go to layer 2, which
    /// leaves layer 1 free.
    void sink_deep_tops();
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
