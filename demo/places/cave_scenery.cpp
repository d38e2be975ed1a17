#include "demo/assets/pictures/caverns.h"
#include "demo/places/outdoor_art.h"
#include "demo/places/scenery.h"

namespace veldrune::demo {
namespace {

constexpr Ramp ground{ink(1, 1), 5};
constexpr Ramp rock{ink(1, 6), 5};
constexpr Ramp moss{ink(1, 11), 4};
constexpr Pixel deep = ink(1, 15);

consteval DrawnPicture cavern(std::string_view name) {
    return picture(assets::caverns, name);
}

// Moss that gets thinner towards its edges.
Picture draw_moss(Shape shape, int variant) {
    static const Picture floor = cavern("rock_floor").draw();
    Picture p = tile_of(floor, 0, 3);
    p.fill(0, 0, 16, 16, [&](int x, int y) -> Pixel {
        int depth = 0;
        for (const int step : {1, 2, 4})
            depth +=
                shape.inside(std::max(x - step, 0), y) + shape.inside(std::min(x + step, 15), y) +
                shape.inside(x, std::max(y - step, 0)) + shape.inside(x, std::min(y + step, 15));
        if (!shape.inside(x, y) || !dither(x, y, 2 * depth - 7))
            return 0;
        return moss[(x * 3 + y * 5 + variant) % 11 == 0 ? 3 : (x + y * 2) % 7 < 3 ? 1 : 2];
    });
    return p;
}

Picture draw_top(Shape shape, int) {
    Picture p(16, 16);
    p.fill(0, 0, 16, 16, [&](int x, int y) -> Pixel {
        if (!shape.inside(x, y))
            return y > 8 && !(shape.mask & 4) ? rock[y > 13 ? 4 : 3] : ground[0];
        int edge = 8; // distance to the nearest edge
        for (int step = 1; step < 8 && edge == 8; ++step)
            for (const int dx : {-step, 0, step})
                for (const int dy : {-step, 0, step})
                    if (!shape.inside(std::clamp(x + dx, 0, 15), std::clamp(y + dy, 0, 15)))
                        edge = step;
        if (edge == 1)
            return rock[4 - (y < 4 ? 2 : 0)];
        return edge < 4                                  ? rock[edge == 2 ? 2 : 1]
               : edge < 7 && dither(x, y, 20 - 3 * edge) ? rock[0]
                                                         : deep;
    });
    return p;
}

// clang-format off
constexpr WallArt walls{2, cavern("rock_wall"), cavern("rock_floor"), 4, draw_top};
constexpr GroundArt grounds[] = {
    {"gm", "gm", draw_moss, 2},
    {"~",  "~",  outdoor::draw_water},
    {"O",  "O",  outdoor::draw_pit},
};
constexpr PropArt props[] = {
    {'c', cavern("crystals"), 16},   {'v', cavern("crystals").in_row(3), 16},
    {'i', cavern("stalagmite"), 16}, {'m', cavern("mushrooms")},
    {'r', outdoor::outdoor_picture("stone")},           {'R', outdoor::outdoor_picture("rock")},
};
// clang-format on

} // namespace

const PlaceArt cave_art{outdoor::water, cavern_plan, &walls, grounds, props};

} // namespace veldrune::demo
