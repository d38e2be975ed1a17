#include "render/literal_render.h"

#include <gtest/gtest.h>

#include <climits>

namespace veldrune::test {

struct Picture : testing::Test {
    PixelBuffer picture, turned;
};

TEST_F(Picture, LinesEndAtItsEdges) {
    const int lines[][3] = {{3, 7, 5},   {-9, 2, 0},   {510, 600, 511}, {INT_MIN, INT_MAX, 9},
                            {8, 8, 20},  {30, 20, 20}, {0, 512, -1},    {0, 512, 512},
                            {512, 9, 3}, {-9, 0, 100}, {600, 700, 100}};
    for (const auto& line : lines) {
        picture = turned = {};
        draw_row(picture, line[0], line[1], line[2], 7);
        draw_column(turned, line[2], line[0], line[1], 7);
        const auto row = [&](int x, int y) {
            return y == line[2] && x >= line[0] && x < line[1] ? 7 : 0;
        };
        EXPECT_EQ(differing(picture, row), 0) << line[0];
        EXPECT_EQ(differing(turned, [&](int x, int y) { return row(y, x); }), 0) << line[0];
    }
}

TEST_F(Picture, GridLinesStandAtTheTopAndLeftOfEveryCell) {
    for (const int size : {16, 32, 64, 128, 0, -5, INT_MAX}) {
        picture = {};
        draw_grid(picture, size);
        const auto grid = [&](int x, int y) {
            return size > 0 && (x % size == 0 || y % size == 0) ? 0xFFFFFF : 0;
        };
        EXPECT_EQ(differing(picture, grid), 0) << size;
    }
}

TEST_F(Picture, ShiftsInEveryDirectionAndLeavesTheRest) {
    for (const int dx : {0, 1, -1, 32, -128, 511, -512, 512})
        for (const int dy : {0, 1, -1, 32, -128, 511, -512, 512}) {
            for (Colour i = 0; i < picture.pixels.size(); ++i)
                picture.pixels[i] = i;
            shift_picture(picture, dx, dy);
            const auto moved = [&](int x, int y) {
                const int from_x = x - dx, from_y = y - dy;
                const bool uncovered = from_x < 0 || from_x > 511 || from_y < 0 || from_y > 511;
                return uncovered ? 512 * y + x : 512 * from_y + from_x;
            };
            EXPECT_EQ(differing(picture, moved), 0) << dx << ", " << dy;
        }
}

} // namespace veldrune::test
