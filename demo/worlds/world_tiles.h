#pragma once

#include "demo/drawing/palettes.h"
#include "demo/worlds/world_land.h"
#include "world_map/worlds.h"

#include <array>
#include <cstdint>
#include <map>
#include <vector>

namespace veldrune::demo {

/// The 16 rows of 16 colours of a world; the first eight are its own.
using WorldColours = std::array<Rgb, 256>;
WorldColours world_colours(World world);

/// The number of the tile that shows place (x, y).
std::uint8_t tile_number(const Land& land, int x, int y);

/// The tiles of a world and the graphics block that they make.
class WorldTiles {
  public:
    explicit WorldTiles(World world);
    /// Tile table, characters and their palette rows.
    std::vector<std::uint8_t> graphics() const;

  private:
    void draw_grounds(World world);
    void draw_places();
    void put(int tile, const Picture& picture);
    void put_block(int tile, const Picture& picture);
    int add_character(const Picture& picture, int x, int y);

    std::array<std::array<int, 4>, 256> table_{};
    std::vector<std::array<std::uint8_t, 64>> characters_;
    std::map<std::array<std::uint8_t, 64>, int> numbers_;
};

} // namespace veldrune::demo
