#pragma once

#include "demo/drawing/plan.h"
#include "demo/worlds/world_land.h"

namespace veldrune::demo {

/// A sketch of a world from demo/assets/worlds: one letter for every four by four tiles.
struct Sketch {
    static constexpr int side = 64; // letters per line, and lines
    static constexpr int cell = world_tiles / side;
    static constexpr std::string_view known = "~-.t:^r+=VTHCWOR";
    Plan plan;

    char at(int column, int row) const { return plan.at(column, row); }
    /// A feature has the ground on its left, or grass at the coast.
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
    /// bridge_top for a bridge in either direction.
    Feature feature(int column, int row) const {
        constexpr std::string_view features = " +=   VTHCWOR"; // in the order of Feature
        const std::size_t kind = features.find(at(column, row));
        return kind != features.npos ? static_cast<Feature>(kind) : Feature::none;
    }
    bool has_road(int column, int row) const { return feature(column, row) != Feature::none; }
};

constexpr FirstError check_worlds(AssetText text) {
    int lines = 0;
    const auto error_of = [&](std::string_view line) {
        ++lines;
        return line.size() < Sketch::side                           ? AssetError::too_short
               : line.size() > Sketch::side                         ? AssetError::too_long
               : line.find_first_not_of(Sketch::known) != line.npos ? AssetError::unknown_letter
                                                                    : AssetError::none;
    };
    return first_error(text, error_of, [&] {
        return lines == Sketch::side ? AssetError::none : AssetError::wrong_count_of_lines;
    });
}

} // namespace veldrune::demo
