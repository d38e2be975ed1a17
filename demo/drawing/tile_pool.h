#pragma once

#include "demo/drawing/drawn_picture.h"
#include "demo/drawing/palettes.h"
#include "demo/drawing/pixel_art.h"

#include <array>
#include <cstdint>
#include <map>
#include <unordered_map>
#include <utility>
#include <vector>

namespace veldrune::demo {

/// 8 by 8 pixels in one palette row.
using Block = std::array<Pixel, 64>;

/// The block at pixel (x, y) of a picture.
Block block_at(const Picture& picture, int x, int y);
/// Appends 32 bytes: eight rows of planes 0 and 1, then eight rows of planes 2 and 3.
void append_planes(std::vector<std::uint8_t>& bytes, const Block& block);

struct BlockHash {
    std::size_t operator()(const Block& block) const;
};

/// All different blocks in the pictures of a kind of place. Block 0 is empty. A block has one
/// palette row, that of most of its pixels; the others get the most similar colours of that row.
class BlockTable {
  public:
    explicit BlockTable(const PaletteColours& colours);
    int cut(const Picture& picture, int x, int y);
    /// top drawn over bottom, in the palette row of top.
    int over(int top, int bottom);
    const Block& block(int number) const { return blocks_[static_cast<std::size_t>(number)]; }
    bool opaque(int number) const;

  private:
    int add_in_row(const Block& pixels, int row);

    PaletteColours colours_;
    std::vector<Block> blocks_;
    std::unordered_map<Block, int, BlockHash> numbers_;
    std::map<std::pair<int, int>, int> merged_;
};

/// A picture cut into blocks.
struct Stamp {
    int width; // in blocks
    int height;
    std::vector<int> blocks;
};
Stamp cut(BlockTable& table, const Picture& picture);

/// A block as a formation refers to it: character number, flips and palette row.
struct Character {
    std::uint8_t tile;
    std::uint8_t attribute; // vhprrrcc
};

/// The characters of a kind of place: 640 in four groups of 256, 128, 128 and 128, and 16 animated
/// tiles of four. Blocks that are mirror images of each other share a character.
class CharacterPool {
  public:
    static constexpr int still_count = 640;
    CharacterPool();
    /// Adds the animated tile; its frames are 16 by 16 pixels.
    void add_animated(std::span<const DrawnPicture, 4> frames);
    Character find(const Block& block);

    /// 32 bytes per character.
    const std::vector<std::uint8_t>& graphics() const { return graphics_; }
    /// 128 bytes per frame, four frames per tile.
    const std::vector<std::uint8_t>& animated_graphics() const { return animated_; }

  private:
    int used() const { return static_cast<int>(shapes_.size()); }
    void remember(const Block& shape, int number);
    std::pair<int, std::uint8_t> nearest(const Block& shape) const;

    std::vector<Block> shapes_;
    std::vector<std::uint8_t> graphics_;
    std::vector<std::uint8_t> animated_;
    std::unordered_map<Block, std::pair<int, std::uint8_t>, BlockHash> numbers_;
};

/// The formations of one layer: four characters each. Formation 0 is empty.
class FormationPool {
  public:
    using Quadrants = std::array<std::uint16_t, 4>; // tile byte, and attribute byte in bits 8 to 15
    FormationPool() { numbers_[Quadrants{}] = 0; }
    /// The number of a formation. When all 256 are in use, that of the most similar one.
    std::uint8_t find(const Quadrants& quadrants);
    /// 2048 bytes: tile bytes of the four quadrants, then their attribute bytes.
    std::vector<std::uint8_t> bytes() const;

  private:
    std::vector<Quadrants> list_{Quadrants{}};
    std::map<Quadrants, std::uint8_t> numbers_;
};

} // namespace veldrune::demo
