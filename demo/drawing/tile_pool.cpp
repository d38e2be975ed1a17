#include "demo/drawing/tile_pool.h"

namespace veldrune::demo {
namespace {

constexpr int animated_base = 640;
constexpr std::uint8_t no_flip = 0, flip_h = 0x40, flip_v = 0x80, flip_both = flip_h | flip_v;

Block flipped(const Block& block, std::uint8_t flips) {
    const std::size_t turn = (flips & flip_h ? 7u : 0u) + (flips & flip_v ? 56u : 0u);
    Block result;
    for (std::size_t i = 0; i < block.size(); ++i)
        result[i ^ turn] = block[i];
    return result;
}

// The values of the pixels, without their palette row.
Block shape_of(const Block& block) {
    Block shape = block;
    for (Pixel& pixel : shape)
        pixel &= 15;
    return shape;
}

int row_of(const Block& block) {
    for (const Pixel pixel : block)
        if (pixel != 0)
            return pixel >> 4;
    return 0;
}

int most_common_row(const Block& block) {
    std::array<int, 8> counts{};
    for (const Pixel pixel : block)
        if (pixel != 0)
            ++counts[pixel >> 4 & 7];
    return static_cast<int>(std::max_element(counts.begin(), counts.end()) - counts.begin());
}

} // namespace

Block block_at(const Picture& picture, int x, int y) {
    Block pixels;
    for (int i = 0; i < 64; ++i)
        pixels[static_cast<std::size_t>(i)] = picture.at(x + i % 8, y + i / 8);
    return pixels;
}

void append_planes(std::vector<std::uint8_t>& bytes, const Block& block) {
    for (int pair = 0; pair < 4; pair += 2)
        for (int row = 0; row < 8; ++row)
            for (int plane = pair; plane < pair + 2; ++plane) {
                int byte = 0;
                for (int x = 0; x < 8; ++x)
                    byte |= (block[static_cast<std::size_t>(8 * row + x)] >> plane & 1) << (7 - x);
                bytes.push_back(static_cast<std::uint8_t>(byte));
            }
}

std::size_t BlockHash::operator()(const Block& block) const {
    std::uint64_t hash = 0xCBF29CE484222325u;
    for (const Pixel pixel : block)
        hash = (hash ^ pixel) * 0x100000001B3u;
    return static_cast<std::size_t>(hash);
}

BlockTable::BlockTable(const PaletteColours& colours) : colours_(colours) {
    add_in_row(Block{}, 0);
}

int BlockTable::add_in_row(const Block& pixels, int row) {
    Block block = pixels;
    for (Pixel& pixel : block)
        if (pixel != 0 && pixel >> 4 != row)
            pixel = nearest_in_row(colours_, pixel, row);
    const auto [place, fresh] = numbers_.try_emplace(block, static_cast<int>(blocks_.size()));
    if (fresh)
        blocks_.push_back(block);
    return place->second;
}

int BlockTable::cut(const Picture& picture, int x, int y) {
    const Block pixels = block_at(picture, x, y);
    return add_in_row(pixels, most_common_row(pixels));
}

int BlockTable::over(int top, int bottom) {
    if (top == 0 || bottom == 0)
        return top + bottom;
    const auto [place, fresh] = merged_.try_emplace({top, bottom}, 0);
    if (fresh) {
        Block pixels = block(top);
        for (std::size_t i = 0; i < pixels.size(); ++i)
            pixels[i] = pixels[i] != 0 ? pixels[i] : block(bottom)[i];
        place->second = add_in_row(pixels, row_of(block(top)));
    }
    return place->second;
}

bool BlockTable::opaque(int number) const {
    return std::ranges::count(block(number), 0) == 0;
}

Stamp cut(BlockTable& table, const Picture& picture) {
    Stamp stamp{picture.width / 8, picture.height / 8, {}};
    for (int y = 0; y < stamp.height; ++y)
        for (int x = 0; x < stamp.width; ++x)
            stamp.blocks.push_back(table.cut(picture, 8 * x, 8 * y));
    return stamp;
}

CharacterPool::CharacterPool() {
    find(Block{});
}

void CharacterPool::remember(const Block& shape, int number) {
    for (const std::uint8_t flips : {no_flip, flip_h, flip_v, flip_both})
        numbers_.try_emplace(flipped(shape, flips), number, flips);
}

void CharacterPool::add_animated(std::span<const DrawnPicture, 4> frames) {
    for (const DrawnPicture& frame : frames)
        for (int quadrant = 0; quadrant < 4; ++quadrant) {
            const Picture drawn = frame.draw();
            const Block shape = shape_of(block_at(drawn, quadrant % 2 * 8, quadrant / 2 * 8));
            append_planes(animated_, shape);
            if (&frame == &frames.front())
                remember(shape, animated_base + quadrant);
        }
}

Character CharacterPool::find(const Block& block) {
    const Block shape = shape_of(block);
    auto place = numbers_.find(shape);
    if (place == numbers_.end() && used() < still_count) {
        remember(shape, used());
        shapes_.push_back(shape);
        append_planes(graphics_, shape);
        place = numbers_.find(shape);
    }
    const auto [number, flips] = place != numbers_.end() ? place->second : nearest(shape);
    const int attribute = number >> 8 | row_of(block) << 2 | flips;
    return {static_cast<std::uint8_t>(number), static_cast<std::uint8_t>(attribute)};
}

std::pair<int, std::uint8_t> CharacterPool::nearest(const Block& shape) const {
    std::pair<int, int> best{1000, 0};
    for (int number = 0; number < used(); ++number) {
        const Block& other = shapes_[static_cast<std::size_t>(number)];
        int different = 0;
        for (std::size_t i = 0; i < shape.size(); ++i)
            different += shape[i] != other[i] ? 1 + 4 * (shape[i] == 0 || other[i] == 0) : 0;
        best = std::min(best, {different, number});
    }
    return {best.second, std::uint8_t{0}};
}

std::uint8_t FormationPool::find(const Quadrants& quadrants) {
    if (const auto place = numbers_.find(quadrants); place != numbers_.end())
        return place->second;
    if (list_.size() < 256) {
        list_.push_back(quadrants);
        return numbers_[quadrants] = static_cast<std::uint8_t>(list_.size() - 1);
    }
    std::pair<int, std::size_t> best{5, 0};
    for (std::size_t number = 0; number < list_.size(); ++number) {
        int different = 0;
        for (std::size_t q = 0; q < 4; ++q)
            different += list_[number][q] != quadrants[q];
        best = std::min(best, {different, number});
    }
    return static_cast<std::uint8_t>(best.second);
}

std::vector<std::uint8_t> FormationPool::bytes() const {
    std::vector<std::uint8_t> result(2048);
    for (std::size_t f = 0; f < list_.size(); ++f)
        for (std::size_t q = 0; q < 4; ++q) {
            result[256 * q + f] = static_cast<std::uint8_t>(list_[f][q]);
            result[1024 + 256 * q + f] = static_cast<std::uint8_t>(list_[f][q] >> 8);
        }
    return result;
}

} // namespace veldrune::demo
