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

namespace {

/// The next darker colour of a row of ramps that start at values 1, 6 and 11.
Pixel darker(Pixel pixel) {
    return pixel % 16 % 5 == 1 ? pixel : static_cast<Pixel>(pixel - 1);
}

/// Puts a floor into the shadow of a wall above and of solid ground to the left.
void cast_shadow(Picture& tile, bool above, bool left) {
    tile.fill(0, 0, 16, 16, [&](int x, int y) -> Pixel {
        const int rim = std::min(above ? y : 16, left ? x + 2 : 16);
        const bool shaded = rim < 5 || (rim < 6 && (x + y) % 2 == 0);
        return shaded ? darker(rim < 2 ? darker(tile.at(x, y)) : tile.at(x, y)) : Pixel{0};
    });
}

} // namespace

const Stamp& Enclosure::tile(const Plan& plan, int x, int y) {
    const int row = wall_row(plan, x, y);
    const bool west = row != 0 && wall_row(plan, x - 1, y) == row;
    const bool east = row != 0 && wall_row(plan, x + 1, y) == row;
    const bool above = row == 0 && wall_row(plan, x, y - 1) != 0;
    const bool left = row == 0 && (plan.is(x - 1, y, "#") || wall_row(plan, x - 1, y) != 0);
    const int variant = scatter(x, y, 8, 4);
    const int place = row == 0 ? (x & 3) | (y & 3) << 2 | above << 4 | left << 5 : west | east << 1;
    const auto [found, fresh] = tiles_.try_emplace({row, place, row == 0 ? variant : 0});
    if (fresh) {
        Picture picture =
            row == 0 ? style_.floor(x & 3, y & 3, variant) : style_.wall(row - 1, west, east);
        cast_shadow(picture, above, left);
        found->second = cut(table_, picture);
    }
    return found->second;
}

void Enclosure::paint(MapCanvas& canvas, const Plan& plan) {
    for (int y = 0; y < plan.height; ++y)
        for (int x = 0; x < plan.width; ++x)
            if (!plan.is(x, y, "#"))
                canvas.ground(1, x, y, tile(plan, x, y));
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
