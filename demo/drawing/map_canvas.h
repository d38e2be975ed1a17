#pragma once

#include "demo/drawing/palettes.h"
#include "demo/drawing/random.h"
#include "demo/drawing/tile_pool.h"

#include <string>
#include <string_view>
#include <vector>

namespace veldrune::demo {

/// What stands where: one letter for every tile of a map. Outside it reads as its border.
struct Plan {
    int width;
    int height;
    std::string letters;

    Plan(int w, int h, char fill)
        : width(w), height(h), letters(static_cast<std::size_t>(w * h), fill) {}
    char& at(int x, int y) { return letters[static_cast<std::size_t>(y * width + x)]; }
    char at(int x, int y) const {
        return letters[static_cast<std::size_t>(std::clamp(y, 0, height - 1) * width +
                                                std::clamp(x, 0, width - 1))];
    }
    bool is(int x, int y, std::string_view kinds) const {
        return kinds.find(at(x, y)) != std::string_view::npos;
    }
    void rect(int x, int y, int w, int h, char letter);
};

/// The part of a tile that its ground covers, given which of the eight tiles around are of the
/// same ground. Edges lie up to 3 pixels inside and wave; corners are rounded.
struct Shape {
    std::uint8_t mask; // north, east, south, west in bits 0-3; NE, SE, SW, NW in bits 4-7
    bool inside(int x, int y) const;
    /// How many pixels above (x, y) the ground ends; limit where it does not end before.
    int from_top(int x, int y, int limit) const;
};

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

/// The shape of a plan's tile among its neighbours in members.
Shape shape_at(const Plan& plan, int x, int y, std::string_view members);

} // namespace veldrune::demo
