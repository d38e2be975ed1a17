#include "demo/enclosure.h"

namespace veldrune::demo {

Enclosure::Enclosure(BlockTable& table, const EnclosureStyle& style)
    : table_(table), style_(style), top_(table, style.top) {}

int Enclosure::wall_row(const Plan& plan, int x, int y) const {
    if (plan.is(x, y, "#") || plan.is(x, y, style_.never_wall) || x < 0 || x >= plan.width)
        return 0;
    for (int row = 1; row <= style_.wall_height; ++row)
        if (y - row >= 0 && plan.is(x, y - row, "#"))
            return row;
    return 0;
}

void Enclosure::paint(MapCanvas& canvas, const Plan& plan) {
    for (int y = 0; y < plan.height; ++y)
        for (int x = 0; x < plan.width; ++x) {
            if (plan.is(x, y, "#"))
                continue;
            const int row = wall_row(plan, x, y);
            const bool west = wall_row(plan, x - 1, y) == row,
                       east = wall_row(plan, x + 1, y) == row;
            const int variant = scatter(x, y - row, 9, 3);
            const int key = row == 0 ? (x & 3) | (y & 3) << 2 | scatter(x, y, 8, 4) << 4
                                     : row | west << 2 | east << 3 | variant << 4;
            auto& tiles = row == 0 ? floors_ : walls_;
            auto place = tiles.find(key);
            if (place == tiles.end())
                place =
                    tiles
                        .emplace(key, cut(table_,
                                          row == 0 ? style_.floor(x & 3,
                                                                  (y & 3) + 4 * scatter(x, y, 8, 4))
                                                   : style_.wall(row - 1, west, east, variant)))
                        .first;
            canvas.ground(1, x, y, place->second);
        }
    top_.paint(canvas, 1, plan, "#", "#", 1);
    // What rises in front of a floor may hide who stands behind it.
    for (int y = 1; y < plan.height; ++y)
        for (int x = 0; x < plan.width; ++x)
            if (plan.is(x, y, "#") && !plan.is(x, y - 1, "#"))
                canvas.stamp(0, 16 * x, 16 * y, top_.tile(shape_at(plan, x, y, "#"), 0), 2);
}

void paint_props(const Props& props, MapCanvas& canvas, const Plan& plan) {
    for (int y = 0; y < plan.height; ++y)
        for (int x = 0; x < plan.width; ++x)
            if (const auto found = props.find(plan.at(x, y)); found != props.end()) {
                const Prop& prop = found->second;
                canvas.stamp(0, 16 * x + prop.right, 16 * (y + 1) - 8 * prop.stamp.height - prop.up,
                             prop.stamp, prop.high_rows);
            }
}

} // namespace veldrune::demo
