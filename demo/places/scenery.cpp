#include "demo/places/scenery.h"

#include "demo/drawing/random.h"

namespace veldrune::demo {
namespace {

// The next darker colour, in a palette row with ramps that start at values 1, 6 and 11.
Pixel darker(Pixel pixel) {
    return pixel % 16 % 5 == 1 ? pixel : static_cast<Pixel>(pixel - 1);
}

// Darkens a floor in the shadow of a wall above it and of a wall on its left.
Picture shadowed(Picture tile, bool above, bool left) {
    tile.fill(0, 0, 16, 16, [&](int x, int y) -> Pixel {
        const int rim = std::min(above ? y : 16, left ? x + 2 : 16);
        const bool shaded = rim < 5 || (rim < 6 && (x + y) % 2 == 0);
        return shaded ? darker(rim < 2 ? darker(tile.at(x, y)) : tile.at(x, y)) : Pixel{0};
    });
    return tile;
}

bool covers(const GroundArt& ground, const Plan& plan, int x, int y) {
    if (!ground.feet)
        return ground.letters.empty() || plan.is(x, y, ground.letters);
    for (int i = 0; i < 6; ++i)
        if (plan.is(x - 1 + i % 3, y + i / 3, ground.letters))
            return true;
    return false;
}

constexpr int wall_key = -1, floor_key = -2, top_key = -3; // the keys of grounds are their numbers

} // namespace

Scenery::Scenery(const PlaceArt& art, BlockTable& table) : art_(art), table_(table) {
    for (const PropArt& prop : art.props)
        props_.emplace(prop.letter, std::pair{&prop, cut(table, prop.picture.draw())});
}

template <class Draw>
const Stamp& Scenery::tile(const Key& key, Draw draw) {
    auto place = tiles_.find(key);
    if (place == tiles_.end())
        place = tiles_.emplace(key, cut(table_, draw())).first;
    return place->second;
}

int Scenery::wall_row(const Plan& plan, int x, int y) const {
    if (plan.is(x, y, "#") || x < 0 || x >= plan.width)
        return 0;
    for (int row = 1; row <= art_.walls->height; ++row)
        if (y >= row && plan.is(x, y - row, "#"))
            return row;
    return 0;
}

Picture Scenery::floor_tile(int x, int y, int variant) const {
    const int variants = art_.walls->floor_variants;
    const Picture floor = art_.walls->floor.draw();
    const int columns = floor.width / 16, rows = floor.height / 16 / variants;
    return tile_of(floor, x % columns, y % rows + variant % variants * rows);
}

void Scenery::paint_room(MapCanvas& canvas, const Plan& plan, int x, int y) {
    const WallArt& walls = *art_.walls;
    if (plan.is(x, y, "#")) {
        const Shape shape = shape_at(plan, x, y, "#");
        const Stamp& top = tile({top_key, shape.mask}, [&] { return walls.top(shape, 0); });
        canvas.ground(1, x, y, top);
        // A wall below a floor hides people behind it.
        if (y > 0 && !plan.is(x, y - 1, "#"))
            canvas.stamp(0, 16 * x, 16 * y, top, 16);
        return;
    }
    if (const int row = wall_row(plan, x, y); row != 0) {
        const bool west = wall_row(plan, x - 1, y) == row, east = wall_row(plan, x + 1, y) == row;
        canvas.ground(1, x, y, tile({wall_key, row, west, east}, [&] {
                          return tile_of(walls.wall.draw(), west + 2 * east, row - 1);
                      }));
        return;
    }
    const bool above = wall_row(plan, x, y - 1) != 0;
    const bool left = plan.is(x - 1, y, "#") || wall_row(plan, x - 1, y) != 0;
    const int variant = scatter(x, y, 8, 4);
    canvas.ground(1, x, y, tile({floor_key, x % 4 + y % 4 * 4, above + left * 2, variant}, [&] {
                      return shadowed(floor_tile(x, y, variant), above, left);
                  }));
}

void Scenery::paint_ground(MapCanvas& canvas, const Plan& plan, int number) {
    const GroundArt& ground = art_.grounds[static_cast<std::size_t>(number)];
    for (int y = 0; y < plan.height; ++y)
        for (int x = 0; x < plan.width; ++x)
            if (covers(ground, plan, x, y)) {
                const Shape shape = shape_at(plan, x, y, ground.joins);
                const int variant = scatter(x / ground.patch, y / ground.patch, 1, ground.variants);
                canvas.ground(ground.layer, x, y, tile({number, shape.mask, variant}, [&] {
                                  return ground.draw(shape, variant);
                              }));
            }
}

void Scenery::paint_props(MapCanvas& canvas, const Plan& plan, int x, int y) {
    for (auto [at, end] = props_.equal_range(plan.at(x, y)); at != end; ++at) {
        const auto& [prop, stamp] = at->second;
        canvas.stamp(prop->layer, 16 * x - prop->left, 16 * (y + 1) - 8 * stamp.height - prop->up,
                     stamp, prop->high);
    }
}

void Scenery::paint(MapCanvas& canvas, const Plan& plan) {
    for (int y = 0; art_.walls != nullptr && y < plan.height; ++y)
        for (int x = 0; x < plan.width; ++x)
            paint_room(canvas, plan, x, y);
    for (int number = 0; number < static_cast<int>(art_.grounds.size()); ++number)
        paint_ground(canvas, plan, number);
    for (int y = 0; y < plan.height; ++y)
        for (int x = 0; x < plan.width; ++x)
            paint_props(canvas, plan, x, y);
    canvas.move_hiding_tiles_to_layer2();
}

Plan Scenery::walkable(const Plan& plan) const {
    static constexpr std::string_view no_ground = "~hftO#", trodden_props = "=S";
    Plan floor(plan.width, plan.height, '.');
    for (int y = 0; y < plan.height; ++y)
        for (int x = 0; x < plan.width; ++x)
            if (plan.is(x, y, no_ground) || (art_.walls != nullptr && wall_row(plan, x, y) != 0))
                floor.at(x, y) = '#';
    for (int y = 0; y < plan.height; ++y)
        for (int x = 0; x < plan.width; ++x) {
            if (plan.is(x, y, trodden_props))
                continue;
            for (auto [at, end] = props_.equal_range(plan.at(x, y)); at != end; ++at) {
                const auto& [prop, stamp] = at->second;
                const int bottom = 16 * (y + 1) - prop->up, top = bottom - 8 * stamp.height;
                const int left = 16 * x - prop->left, right = left + 8 * stamp.width;
                const int column = (left + 160) / 16 - 10, row = (top + 160) / 16 - 10;
                floor.rect(column, row, (right + 15) / 16 - column, (bottom + 15) / 16 - row, '#');
            }
        }
    return floor;
}

} // namespace veldrune::demo
