#include "demo/drawing/map_canvas.h"

namespace veldrune::demo {

MapCanvas::MapCanvas(BlockTable& table, int width, int height)
    : table_(table), width_(width), height_(height),
      cells_(static_cast<std::size_t>(8 * width * height)) {}

void MapCanvas::put(int layer, int x, int y, int block, Level level, bool replace) {
    if (block == 0 || x < 0 || x >= 2 * width_ || y < 0 || y >= 2 * height_)
        return;
    Cell& there = cell(layer, x, y);
    there.block = replace ? block : table_.over(block, there.block);
    there.level = replace ? level : std::max(level, there.level);
}

void MapCanvas::stamp(int layer, int x, int y, const Stamp& stamp, int high) {
    for (int j = 0; j < stamp.height; ++j)
        for (int i = 0; i < stamp.width; ++i)
            put(layer, (x >> 3) + i, (y >> 3) + j,
                stamp.blocks[static_cast<std::size_t>(j * stamp.width + i)],
                8 * j < high ? Level::high : Level::low);
}

void MapCanvas::ground(int layer, int x, int y, const Stamp& tile) {
    for (int q = 0; q < 4; ++q)
        put(layer, 2 * x + q % 2, 2 * y + q / 2, tile.blocks[static_cast<std::size_t>(q)],
            Level::low, true);
}

bool MapCanvas::hides_all(int x, int y) const {
    for (int q = 0; q < 4; ++q)
        if (const Cell& top = cell(0, 2 * x + q % 2, 2 * y + q / 2);
            top.level == Level::low || !table_.opaque(top.block))
            return false;
    return true;
}

void MapCanvas::move_hiding_tiles_to_layer2() {
    for (int y = height_ - 2; y > 0; --y)
        for (int x = 0; x < width_; ++x)
            if (hides_all(x, y) && hides_all(x, y - 1))
                for (int q = 0; q < 4; ++q)
                    cell(1, 2 * x + q % 2, 2 * y + q / 2) =
                        std::exchange(cell(0, 2 * x + q % 2, 2 * y + q / 2), {});
}

std::vector<std::uint8_t> MapCanvas::formations(int layer, CharacterPool& characters,
                                                FormationPool& pool) const {
    std::vector<std::uint8_t> result;
    for (int y = 0; y < 2 * height_; y += 2)
        for (int x = 0; x < 2 * width_; x += 2) {
            FormationPool::Quadrants quadrants{};
            for (int q = 0; q < 4; ++q) {
                const Cell& c = cell(layer, x + q % 2, y + q / 2);
                const Character character = characters.find(table_.block(c.block));
                const bool high = c.level == Level::high && c.block != 0;
                quadrants[static_cast<std::size_t>(q)] = static_cast<std::uint16_t>(
                    character.tile | (character.attribute | (high ? 0x20 : 0)) << 8);
            }
            result.push_back(pool.find(quadrants));
        }
    return result;
}

} // namespace veldrune::demo
