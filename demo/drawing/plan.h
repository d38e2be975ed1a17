#pragma once

#include "demo/assets/asset.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <string>

namespace veldrune::demo {

/// What stands where: one letter for every tile of a map. Outside it reads as its border.
struct Plan {
    int width;
    int height;
    std::string letters;

    Plan(int w, int h, char fill)
        : width(w), height(h), letters(static_cast<std::size_t>(w * h), fill) {}
    /// The drawing of a text of demo/assets/plans.
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

/// A plan's text explains its letters first, each on a line of its own, and then draws.
constexpr bool explains_a_letter(std::string_view line) {
    return line.size() > 1 && line[1] == ' ';
}
constexpr Fault check_plans(AssetText text) {
    std::array<bool, 256> known{};
    std::size_t width = 0, height = 0;
    const auto trouble_of = [&](std::string_view line) {
        if (explains_a_letter(line)) {
            known[line[0] & 255u] = true;
            return Trouble::none;
        }
        width = height++ == 0 ? line.size() : width;
        if (line.size() != width)
            return line.size() < width ? Trouble::too_short : Trouble::too_long;
        const auto drawn = [&](char letter) { return known[letter & 255u]; };
        return std::ranges::all_of(line, drawn) ? Trouble::none : Trouble::unknown_letter;
    };
    return first_fault(text, trouble_of, [&] {
        const bool map_size = std::has_single_bit(width) && width >= 16 && width <= 128 &&
                              std::has_single_bit(height) && height >= 16 && height <= 64;
        return map_size ? Trouble::none : Trouble::wrong_count_of_lines;
    });
}

/// The part of a tile that its ground covers, given which of the eight tiles around are of the
/// same ground. Edges lie up to 3 pixels inside and wave; corners are rounded.
struct Shape {
    std::uint8_t mask; // north, east, south, west in bits 0-3; NE, SE, SW, NW in bits 4-7
    bool inside(int x, int y) const;
    /// How many pixels above (x, y) the ground ends; limit where it does not end before.
    int from_top(int x, int y, int limit) const;
};

/// The shape of a plan's tile among its neighbours in members.
Shape shape_at(const Plan& plan, int x, int y, std::string_view members);

} // namespace veldrune::demo
