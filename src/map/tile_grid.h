#pragma once

#include <array>
#include <cstdint>

namespace veldrune {

/// Tile numbers row by row, without gaps.
template <int columns_, int rows_>
struct TileGrid {
    static constexpr int columns = columns_;
    static constexpr int rows = rows_;
    std::array<std::uint8_t, columns * rows> cells{};

    static constexpr bool contains(std::int64_t column, std::int64_t row) {
        return column >= 0 && column < columns && row >= 0 && row < rows;
    }
    /// The place must be one that the grid contains.
    std::uint8_t& at(std::int64_t column, std::int64_t row) { return cells[index(column, row)]; }
    std::uint8_t at(std::int64_t column, std::int64_t row) const {
        return cells[index(column, row)];
    }

  private:
    static constexpr std::size_t index(std::int64_t column, std::int64_t row) {
        return static_cast<std::size_t>(row * columns + column);
    }
};

} // namespace veldrune
