#include "demo/places/plans.h"

namespace veldrune::demo {
namespace {

// Smooth noise from 0 to 255, with random values every size tiles.
int field(int x, int y, int size, std::uint32_t seed) {
    const auto corner = [&](int i, int j) {
        return static_cast<int>(mix(static_cast<std::uint32_t>(x / size + i),
                                    static_cast<std::uint32_t>(y / size + j), seed) &
                                255);
    };
    const int fx = x % size, fy = y % size;
    const int top = corner(0, 0) * (size - fx) + corner(1, 0) * fx;
    const int bottom = corner(0, 1) * (size - fx) + corner(1, 1) * fx;
    return (top * (size - fy) + bottom * fy) / (size * size);
}

// Draws letter along a path from left to right that wanders up and down, and bridges over water.
void wander(Plan& plan, int from, int to, int y, int thickness, char letter, std::string_view keep,
            Random& random) {
    for (int x = from; x < to; ++x) {
        for (int i = 0; i < thickness; ++i)
            if (const int j = std::clamp(y + i, 0, plan.height - 1); !plan.is(x, j, keep))
                plan.at(x, j) = plan.is(x, j, "~") ? '=' : letter;
        if (x % 3 == 2 && !plan.is(x, y, "="))
            y = std::clamp(y + random.between(-1, 1), 2, std::max(2, plan.height - 3));
    }
}

void disc(Plan& plan, int cx, int cy, int rx, int ry, char letter) {
    for (int y = std::max(0, cy - ry); y <= std::min(plan.height - 1, cy + ry); ++y)
        for (int x = std::max(0, cx - rx); x <= std::min(plan.width - 1, cx + rx); ++x) {
            const int dx = (2 * ry + 1) * (x - cx), dy = (2 * rx + 1) * (y - cy);
            const int edge = (2 * rx + 1) * (2 * ry + 1);
            if (3 * (dx * dx + dy * dy) <= edge * edge)
                plan.at(x, y) = letter;
        }
}

// Whether the w by h tiles from (x, y) on are on the plan and all in kinds.
bool all(const Plan& plan, int x, int y, int w, int h, std::string_view kinds) {
    if (x < 0 || y < 0 || x + w > plan.width || y + h > plan.height)
        return false;
    for (int j = y; j < y + h; ++j)
        for (int i = x; i < x + w; ++i)
            if (!plan.is(i, j, kinds))
                return false;
    return true;
}

// Whether a tree's crown would hide only open ground.
bool open_above(const Plan& plan, int x, int y) {
    for (int j = std::max(y - 3, 0); j <= y; ++j)
        for (int i = std::max(x - 1, 0); i <= std::min(x + 1, plan.width - 1); ++i)
            if (!plan.is(i, j, ".,\"TYPB"))
                return false;
    return true;
}

// Puts patches of flowers and, less often, single things on bare ground.
void adorn(Plan& plan, std::string_view things, int rarity, Random& random) {
    const auto seed = static_cast<std::uint32_t>(random.below(1 << 20));
    for (int y = 0; y < plan.height; ++y)
        for (int x = 0; x < plan.width; ++x)
            if (plan.is(x, y, ".")) {
                if (field(x, y, 5, seed) > 190)
                    plan.at(x, y) = ',';
                else if (random.one_in(rarity) && all(plan, x - 1, y - 1, 3, 5, ".,"))
                    plan.at(x, y) = things[static_cast<std::size_t>(
                        random.below(static_cast<int>(things.size())))];
            }
}

// Leaves bare ground in the eastern half of every eighth layout, so that its layer 1 is smaller
// than its layer 2.
void clear_east(Plan& plan, int layout) {
    const int half = plan.width / 2;
    for (int y = 0; layout % 8 == 5 && y < plan.height; ++y)
        for (int x = std::max(half - 6, 0); x < plan.width; ++x)
            if (plan.is(x, y, "HIJ_") || (x >= half - 1 && !plan.is(x, y, ".,\":~c")))
                plan.at(x, y) = '.';
}

struct Room {
    int x, y, w, h;
};

void furnish(Plan& plan, const Room& room, int wall_height, std::span<const Furnishing> furniture,
             Random& random) {
    if (room.w > 11 && !random.one_in(3))
        plan.rect(room.x + room.w / 2 - 3, room.y + wall_height + 3, 6, 4, 'k');
    for (const Furnishing& thing : furniture) {
        const int x = random.between(room.x + 1, room.x + room.w - 1 - thing.width);
        const int wall = room.y + wall_height;
        const int y = thing.by_wall ? wall - 1 : random.between(wall + 2, room.y + room.h - 1);
        const int above = thing.by_wall ? 0 : 3;
        if (all(plan, x - 1, y - above, thing.width + 2, above + 1, ".")) {
            plan.rect(x, y, thing.width, 1, '_');
            plan.at(x, y) = thing.letter;
        }
    }
}

} // namespace

Plan village_plan(int layout, int width, int height, Random& random) {
    Plan plan(width, height, '.');
    for (int road = std::min(height / 2 + 1, 17); road < height; road += 24) {
        plan.rect(1, road, width - 2, 2, ':');
        for (int x = 2; x + 8 <= width; x += random.between(8, 10)) {
            const char house = "HHIJ"[random.below(4)];
            const int across = house == 'I' ? 7 : 5;
            plan.rect(x, road - 9, across, 7, '_');
            plan.at(x, road - 3) = house;
            plan.rect(x + across / 2, road - 2, 1, 2, ':');
        }
        if (width >= 32)
            plan.rect(width / 2, road - 1, 6, 5, 'c');
        if (road + 12 < height) {
            plan.rect(width / 3, road, 1, 12, ':');
            disc(plan, width / 3 + 9, road + 9, 5, 3, '~');
        }
    }
    for (int y = 0; y < height; y += 2)
        for (int x = 0; x < width; x += 2) {
            const bool border = y == 0 || x == 0 || x >= width - 2 || y >= height - 2;
            if (open_above(plan, x, y) && border && !random.one_in(4))
                plan.at(x, y) = 'T';
            else if (open_above(plan, x, y) && random.one_in(12))
                plan.at(x, y) = layout % 2 ? 'T' : 'b';
        }
    adorn(plan, "bbpRrs", 22, random);
    clear_east(plan, layout);
    return plan;
}

Plan woodland_plan(int layout, int width, int height, Random& random) {
    Plan plan(width, height, '.');
    const auto seed = static_cast<std::uint32_t>(random.below(1 << 20));
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            if (field(x, y, 6, seed + 1) > 165)
                plan.at(x, y) = '"';
    if (width >= 32) { // a stream with a pool
        for (int y = 0; y < height; ++y)
            plan.rect(width / 3 + field(0, y, 7, seed + 3) / 40, y, 3, 1, '~');
        disc(plan, width / 3 + 4, height / 2, 5, 3, '~');
    }
    wander(plan, 0, width, std::min(9, height / 2), 2, ':', "", random);
    if (height >= 64)
        wander(plan, 0, width, height * 3 / 4, 2, ':', "", random);
    for (int y = 0; y < height; y += 2)
        for (int x = (y / 2) & 1; x < width; x += 2) {
            if (!open_above(plan, x, y))
                continue;
            if (field(x, y, 9, seed) > 120 || y < 3 || x < 2) {
                const bool dark = field(x, y, 16, seed + 2) > 160;
                plan.rect(x - 1, y - 1, 3, 2, '.'); // no tall grass around the foot
                plan.at(x, y) = dark                             ? 'P'
                                : layout % 5 == 3                ? 'B'
                                : field(x, y, 8, seed + 4) > 150 ? 'Y'
                                                                 : 'T';
            }
        }
    adorn(plan, "bsrRb", 14, random);
    clear_east(plan, layout);
    return plan;
}

Plan cavern_plan(int layout, int width, int height, Random& random) {
    Plan plan(width, height, '#');
    // Caverns, each connected to the next by a winding tunnel.
    int x = 8, y = 8;
    disc(plan, x, y, 7, 5, '.');
    for (int count = 1 + width * height / 200; count > 0; --count) {
        const int to_x = random.between(5, width - 6), to_y = random.between(6, height - 5);
        while (x != to_x || y != to_y) {
            if (x != to_x && (y == to_y || random.one_in(2)))
                x += x < to_x ? 1 : -1;
            else
                y += y < to_y ? 1 : -1;
            disc(plan, x, y, 1 + (x + y) / 5 % 2, 3, '.');
        }
        const int rx = random.between(4, 7), ry = random.between(4, 5);
        disc(plan, x, y, rx, ry, '.');
        const int feature = random.below(6);
        if (feature < 4)
            disc(plan, x, y + 1, rx / 2, 2, "~~Og"[feature]);
    }
    plan.rect(0, 0, width, 2, '#');
    plan.rect(0, height - 2, width, 2, '#');
    plan.rect(0, 0, 1, height, '#');
    plan.rect(width - 1, 0, 1, height, '#');
    disc(plan, 11, 10, 2, 1, '~');
    const auto seed = static_cast<std::uint32_t>(random.below(1 << 20));
    for (y = 0; y < height; ++y)
        for (x = 0; x < width; ++x)
            if (all(plan, x, y - 2, 1, 3, ".g") && field(x, y, 5, seed) > 200)
                plan.at(x, y) = 'g';
    for (y = 3; y < height - 1; ++y)
        for (x = 1; x < width - 1; ++x) {
            const bool free = all(plan, x - 1, y - 2, 3, 4, ".g");
            const bool by_wall =
                plan.is(x, y - 3, "#") || plan.is(x - 2, y, "#") || plan.is(x + 2, y, "#");
            if (free && random.one_in(by_wall ? 3 : 24))
                plan.at(x, y) = by_wall ? (layout % 2 ? "cvvim" : "cccim")[random.below(5)]
                                        : "rRi"[random.below(3)];
        }
    return plan;
}

Plan rooms_plan(int width, int height, int wall_height, std::span<const Furnishing> furniture,
                Random& random) {
    Plan plan(width, height, '#');
    for (int y = 0; y < height; y += 16)
        for (int x = 0; x < width; x += 16) {
            const int left = random.below(2), low = random.below(3);
            const Room room{x + 1 + left, y + 1, 14 - left - random.below(2), 14 - low};
            plan.rect(room.x, room.y, room.w, room.h, '.');
            // A doorway is as high as the walls, plus three tiles of floor.
            if (x + 16 < width)
                plan.rect(x + 12, y + 5, 8, wall_height + 3, '.');
            if (y + 16 < height)
                plan.rect(x + 7, y + 11, 2, 9, '.');
            if (y > 0)
                plan.rect(x + 7, y, 2, wall_height + 1, '_'); // keeps the doorway free
            furnish(plan, room, wall_height, furniture, random);
        }
    return plan;
}

} // namespace veldrune::demo
