#include "demo/drawing/plan.h"

#include "demo/drawing/pixel_art.h"

namespace veldrune::demo {

Plan::Plan(AssetText text) : width(0), height(0) {
    for (const std::string_view line : text)
        if (!is_note(line) && !explains_a_letter(line)) {
            width = static_cast<int>(line.size());
            ++height;
            letters.append(line);
        }
}

void Plan::rect(int x, int y, int w, int h, char letter) {
    for (int j = std::max(y, 0); j < std::min(y + h, height); ++j)
        for (int i = std::max(x, 0); i < std::min(x + w, width); ++i)
            at(i, j) = letter;
}

bool Shape::inside(int x, int y) const {
    // The mask bits of a quadrant's sides and corner, by (right half) + 2 * (lower half).
    static constexpr int x_sides[4] = {8, 2, 8, 2}, y_sides[4] = {1, 1, 4, 4},
                         corner[4] = {128, 16, 64, 32};
    const int quadrant = (x >= 8 ? 1 : 0) + (y >= 8 ? 2 : 0);
    const int u = x >= 8 ? 15 - x : x;
    const int w = y >= 8 ? 15 - y : y;
    const bool joined_x = mask & x_sides[quadrant];
    const bool joined_y = mask & y_sides[quadrant];
    const bool inside_x = u >= wobble(y);
    const bool inside_y = w >= wobble(x + 5);
    if (joined_x && joined_y)
        return (mask & corner[quadrant]) != 0 || inside_x || inside_y || u + w >= 5;
    if (!joined_x && !joined_y)
        return inside_x && inside_y && u + w >= 6;
    return joined_x ? inside_y : inside_x;
}

int Shape::from_top(int x, int y, int limit) const {
    for (int step = 1; step < limit; ++step)
        if (y - step < 0 ? (mask & 1) == 0 : !inside(x, y - step))
            return step;
    return limit;
}

Shape shape_at(const Plan& plan, int x, int y, std::string_view members) {
    static constexpr int dx[8] = {0, 1, 0, -1, 1, 1, -1, -1};
    static constexpr int dy[8] = {-1, 0, 1, 0, -1, 1, 1, -1};
    int mask = 0;
    for (int i = 0; i < 8; ++i)
        mask |= plan.is(x + dx[i], y + dy[i], members) << i;
    // A corner counts only if both sides next to it do.
    for (int i = 0; i < 4; ++i)
        if ((mask >> i & 1) == 0 || (mask >> ((i + 1) & 3) & 1) == 0)
            mask &= ~(16 << i);
    return {static_cast<std::uint8_t>(mask)};
}

} // namespace veldrune::demo
