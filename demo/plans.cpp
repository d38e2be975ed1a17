#include "demo/plans.h"

namespace veldrune::demo {
namespace {

/// A smooth field of values from 0 to 255 with hills of about size tiles.
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

/// Draws letter along a way of tiles from left to right that wanders up and down.
void wander(Plan& plan, int from, int to, int y, int thickness, char letter, std::string_view keep,
            Random& random) {
    for (int x = from; x < to; ++x) {
        for (int i = 0; i < thickness; ++i)
            if (const int j = std::clamp(y + i, 0, plan.height - 1); !plan.is(x, j, keep))
                plan.at(x, j) = letter;
        if (x % 3 == 2)
            y = std::clamp(y + random.between(-1, 1), 2, std::max(2, plan.height - 3));
    }
}

void disc(Plan& plan, int cx, int cy, int rx, int ry, char letter, std::string_view keep = "") {
    for (int y = std::max(0, cy - ry); y <= std::min(plan.height - 1, cy + ry); ++y)
        for (int x = std::max(0, cx - rx); x <= std::min(plan.width - 1, cx + rx); ++x)
            if ((x - cx) * (x - cx) * ry * ry + (y - cy) * (y - cy) * rx * rx <=
                    rx * rx * ry * ry &&
                !plan.is(x, y, keep))
                plan.at(x, y) = letter;
}

/// True where the w by h tiles from (x, y) on are all in kinds and on the plan.
bool all(const Plan& plan, int x, int y, int w, int h, std::string_view kinds) {
    if (x < 0 || y < 0 || x + w > plan.width || y + h > plan.height)
        return false;
    for (int j = y; j < y + h; ++j)
        for (int i = x; i < x + w; ++i)
            if (!plan.is(i, j, kinds))
                return false;
    return true;
}

/// Flowers in patches and single things here and there on bare ground.
void adorn(Plan& plan, std::string_view things, int rarity, Random& random) {
    const auto seed = static_cast<std::uint32_t>(random.below(1 << 20));
    for (int y = 0; y < plan.height; ++y)
        for (int x = 0; x < plan.width; ++x)
            if (plan.is(x, y, ".")) {
                if (field(x, y, 5, seed) > 190)
                    plan.at(x, y) = ',';
                else if (random.one_in(rarity) && all(plan, x - 1, y - 1, 3, 3, ".,"))
                    plan.at(x, y) = things[static_cast<std::size_t>(
                        random.below(static_cast<int>(things.size())))];
            }
}

} // namespace

Plan drawn_plan(std::initializer_list<std::string_view> rows) {
    Plan plan(static_cast<int>(rows.begin()->size()), static_cast<int>(rows.size()), '.');
    plan.letters.clear();
    for (const std::string_view row : rows)
        plan.letters += row;
    return plan;
}

Plan village_plan(int layout, int width, int height, Random& random) {
    Plan plan(width, height, '.');
    const int road = height / 2 + 1;
    plan.rect(1, road, width - 2, 2, ':');
    for (int x = 2; x + 8 <= width; x += random.between(8, 10)) {
        const char house = "HHIJ"[random.below(4)];
        const int door = house == 'I' ? 3 : 2;
        plan.at(x, road - 3) = house;
        plan.rect(x + 1, road - 3, house == 'I' ? 6 : 4, 1, '_');
        plan.rect(x + door, road - 2, 1, 2, ':');
    }
    if (width >= 32)
        plan.rect(width / 2, road - 1, 6, 5, 'c');
    if (height >= 32) {
        plan.rect(width / 3, road, 1, height - road, ':');
        disc(plan, width / 3 + 9, height - 6, 5, 3, '~');
    }
    for (int y = 0; y < height; y += 2)
        for (int x = 0; x < width; x += 2) {
            const bool border = y == 0 || x == 0 || x >= width - 2 || y >= height - 2;
            if (all(plan, x, y, 1, 1, ".") && border && !random.one_in(4))
                plan.at(x, y) = 'T';
            else if (y > road + 4 && random.one_in(9) && all(plan, x - 1, y - 1, 3, 3, "."))
                plan.at(x, y) = layout % 2 ? 'T' : 'b';
        }
    adorn(plan, "bbRrs", 22, random);
    return plan;
}

Plan woodland_plan(int layout, int width, int height, Random& random) {
    Plan plan(width, height, '.');
    const auto seed = static_cast<std::uint32_t>(random.below(1 << 20));
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            if (field(x, y, 6, seed + 1) > 165)
                plan.at(x, y) = '"';
    if (height >= 32)
        disc(plan, width * 2 / 3, height / 3, 5, 3, '~');
    wander(plan, 0, width, std::min(9, height / 2), 2, ':', "", random);
    if (height >= 64)
        wander(plan, 0, width, height * 3 / 4, 2, ':', "", random);
    for (int y = 0; y < height; y += 2)
        for (int x = (y / 2) & 1; x < width; x += 2) {
            if (!all(plan, std::max(x - 1, 0), y, x + 2 > width ? 1 : 2, std::min(2, height - y),
                     ".\""))
                continue;
            const int density = field(x, y, 9, seed);
            if (density > 105 || y < 3 || x < 2)
                plan.at(x, y) = field(x, y, 16, seed + 2) > 160 ? 'P' : layout % 5 == 3 ? 'B' : 'T';
        }
    adorn(plan, "bsrRb", 14, random);
    return plan;
}

Plan cavern_plan(int layout, int width, int height, Random& random) {
    Plan plan(width, height, '#');
    // Caverns joined by tunnels, one after the other.
    int last_x = width / 3, last_y = 6;
    disc(plan, 7, 8, 6, 5, '.');
    const int count = 2 + width * height / 180;
    for (int i = 0; i < count; ++i) {
        const int x = random.between(5, width - 6), y = random.between(6, height - 5);
        disc(plan, x, y, random.between(3, 6), random.between(3, 4), '.');
        plan.rect(std::min(x, last_x), last_y - 1, std::abs(x - last_x) + 1, 4, '.');
        plan.rect(x - 1, std::min(y, last_y), 3, std::abs(y - last_y) + 3, '.');
        last_x = x;
        last_y = y;
    }
    for (int x = 0; x < width; ++x)
        for (const int y : {0, height - 1, height - 2})
            plan.at(x, y) = '#';
    for (int y = 0; y < height; ++y)
        plan.at(0, y) = plan.at(width - 1, y) = '#';
    for (int i = 0; i < count; ++i) {
        const int x = random.between(4, width - 8), y = random.between(6, height - 8);
        if (all(plan, x - 1, y - 4, 7, 9, ".")) {
            disc(plan, x + 2, y + 1, 2, 1 + random.below(2), '~');
        }
    }
    for (int y = 3; y < height - 1; ++y)
        for (int x = 1; x < width - 1; ++x)
            if (all(plan, x - 1, y - 3, 3, 5, ".") && random.one_in(7))
                plan.at(x, y) = (layout % 2 ? "cvirRm" : "civrRm")[random.below(6)];
    return plan;
}

Plan rooms_plan(int width, int height, int wall_height, std::span<const Furnishing> furniture,
                Random& random) {
    Plan plan(width, height, '#');
    const int columns = std::max(1, width / 16), rows = std::max(1, height / 16);
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c) {
            const int x = 16 * c + 1 + random.below(2), y = 16 * r + 1;
            const int w = 16 * (c + 1) - 1 - random.below(2) - x,
                      h = 16 * (r + 1) - 1 - random.below(2) - y;
            plan.rect(x, y, w, h, '.');
            for (const Furnishing& thing : furniture) {
                if (random.one_in(4))
                    continue;
                const int tx = random.between(x + 1, x + w - 1 - thing.width);
                const int ty = thing.by_wall ? y + wall_height
                                             : random.between(y + wall_height + 2, y + h - 2);
                if (all(plan, tx - 1, ty - (thing.by_wall ? 0 : 1), thing.width + 2,
                        thing.by_wall ? 1 : 3, "."))
                    plan.rect(tx, ty, thing.width, 1, '_'), plan.at(tx, ty) = thing.letter;
            }
            if (c + 1 < columns)
                plan.rect(x + w, 16 * r + 6, 16 * (c + 1) + 3 - x - w, wall_height + 2, '.');
            if (r + 1 < rows)
                plan.rect(16 * c + 7, y + h, 2, 16 * (r + 1) + 2 - y - h, '.');
        }
    return plan;
}

} // namespace veldrune::demo
