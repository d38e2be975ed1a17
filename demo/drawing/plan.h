#pragma once

#include "demo/assets/asset.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <string>

namespace veldrune::demo {

/// A map as one letter per tile. Reading outside gives the nearest tile inside.
struct Plan {
    int width;
    int height;
    std::string letters;

    Plan(int w, int h, char fill)
        : width(w), height(h), letters(static_cast<std::size_t>(w * h), fill) {}
    /// Reads a text of demo/assets/plans.
    explicit Plan(AssetText text);
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

/// In a plan's text, lines that each explain a letter come before the drawing.
constexpr bool explains_a_letter(std::string_view line) {
    return line.size() > 1 && line[1] == ' ';
}
constexpr FirstError check_plans(AssetText text) {
    std::array<bool, 256> known{};
    std::size_t width = 0, height = 0;
    const auto error_of = [&](std::string_view line) {
        if (explains_a_letter(line)) {
            known[line[0] & 255u] = true;
            return AssetError::none;
        }
        width = height++ == 0 ? line.size() : width;
        if (line.size() != width)
            return line.size() < width ? AssetError::too_short : AssetError::too_long;
        const auto drawn = [&](char letter) { return known[letter & 255u]; };
        return std::ranges::all_of(line, drawn) ? AssetError::none : AssetError::unknown_letter;
    };
    return first_error(text, error_of, [&] {
        const bool map_size = std::has_single_bit(width) && width >= 16 && width <= 128 &&
                              std::has_single_bit(height) && height >= 16 && height <= 64;
        return map_size ? AssetError::none : AssetError::wrong_count_of_lines;
    });
}

/// The part of a tile that its ground covers, depending on which of the eight tiles around it have
/// the same ground. Edges are wavy, up to 3 pixels inside the tile; corners are rounded.
struct Shape {
    std::uint8_t mask; // north, east, south, west in bits 0-3; NE, SE, SW, NW in bits 4-7
    bool inside(int x, int y) const;
    /// The number of pixels from (x, y) up to the end of the ground, at most limit.
    int from_top(int x, int y, int limit) const;
};

/// The shape of a plan's tile among its neighbours in members.
Shape shape_at(const Plan& plan, int x, int y, std::string_view members);

} // namespace veldrune::demo
