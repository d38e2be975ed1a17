#pragma once

#include "demo/drawing/plan.h"
#include "demo/worlds/world_land.h"

namespace veldrune::demo {

/// A world drawn small, from a text of demo/assets/worlds: a letter for every four tiles by four.
struct Sketch {
    static constexpr int side = 64; // letters in a line, and lines
    static constexpr int cell = world_tiles / side;
    static constexpr std::string_view known = "~-.t:^r+=VTHCWOR";
    Plan plan;

    char at(int column, int row) const { return plan.at(column, row); }
    /// What stands on land takes the ground at its left, or grass by the water.
    Ground ground(int column, int row) const {
        constexpr std::string_view grounds = "~-.t:^"; // in the order of Ground
        const std::size_t kind = grounds.find(at(column, row));
        return kind != grounds.npos ? static_cast<Ground>(kind)
               : column == 0        ? Ground::grass
                                    : std::max(ground(column - 1, row), Ground::grass);
    }
    bool is_sea(int column, int row) const { return ground(column, row) <= Ground::shallow; }
    bool has_river(int column, int row) const {
        return at(column, row) == 'r' || at(column, row) == '=';
    }
    /// The upper half of a bridge for all of it.
    Sight sight(int column, int row) const {
        constexpr std::string_view sights = " +=   VTHCWOR"; // in the order of Sight
        const std::size_t kind = sights.find(at(column, row));
        return kind != sights.npos ? static_cast<Sight>(kind) : Sight::none;
    }
    bool has_road(int column, int row) const { return sight(column, row) != Sight::none; }
};

constexpr Fault check_worlds(AssetText text) {
    int lines = 0;
    const auto trouble_of = [&](std::string_view line) {
        ++lines;
        return line.size() < Sketch::side                           ? Trouble::too_short
               : line.size() > Sketch::side                         ? Trouble::too_long
               : line.find_first_not_of(Sketch::known) != line.npos ? Trouble::unknown_letter
                                                                    : Trouble::none;
    };
    return first_fault(text, trouble_of, [&] {
        return lines == Sketch::side ? Trouble::none : Trouble::wrong_count_of_lines;
    });
}

} // namespace veldrune::demo
