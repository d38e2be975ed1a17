#include "objects/markers.h"
#include "support/editor_fixture.h"
#include "support/object_image.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

using enum ObjectKind;

constexpr Colour colours[] = {0xFF0000, 0xFFFF00, 0x0000FF, 0x00FF00, 0x00FF00};

struct Place {
    int x, y, width, height, click_height;
};

Place place_in(ObjectKind kind, std::span<const std::uint8_t> r) {
    if (kind == npc)
        return {r[4], r[5] % 64, 1, 1, 1};
    if (kind != long_entrance)
        return {r[0], r[1], 1, 1, 1};
    return r[2] < 128 ? Place{r[0], r[1], r[2] + 1, 1, 1}
                      : Place{r[0], r[1], 1, r[2] - 128, r[2] - 127};
}

TEST(Markers, MatchAReferencePixelByPixelAndAreClickedWhereTheyShow) {
    Random random(3);
    auto drawn = std::make_unique<PixelBuffer>();
    auto expected = std::make_unique<PixelBuffer>();
    const auto plot = [&](std::int64_t x, std::int64_t y, Colour colour) {
        if (x >= 0 && x < 512 && y >= 0 && y < 512)
            expected->pixels[static_cast<std::size_t>(512 * y + x)] = colour;
    };
    for (int round = 0; round < 600; ++round) {
        const ObjectKind kind = all_kinds[random.below(5)];
        ObjectList list;
        list.row_count = random.below(4);
        for (std::uint8_t& byte : list.bytes)
            byte = static_cast<std::uint8_t>(random.below(random.below(2) ? 256 : 40));
        const int size = 16 << random.below(4);
        const int h = round % 50 == 0 ? 2147483647 : random.below(40);
        const int v = round % 70 == 0 ? -2147483647 : random.below(40);
        drawn->pixels.fill(0x123456), expected->pixels.fill(0x123456);
        ASSERT_TRUE(kind != npc || list.row_count == 0 ||
                    !object_covers(kind, list, 0, list.bytes[4], list.bytes[5] % 64));
        draw_markers(kind, list, {h, v, size}, *drawn);
        for (int i = 0; i < list.row_count; ++i) {
            const Place p = place_in(kind, object_row(kind, list, i));
            const std::int64_t x0 = (std::int64_t{p.x} - h) * size, x1 = x0 + p.width * size;
            const std::int64_t y0 = (std::int64_t{p.y} - v) * size, y1 = y0 + p.height * size;
            for (std::int64_t x = x0; x <= x1; ++x)
                for (const std::int64_t y : {y0, y1})
                    plot(x, y, colours[static_cast<int>(kind)]);
            for (std::int64_t y = y0; y <= y1; ++y)
                for (const std::int64_t x : {x0, x1})
                    plot(x, y, colours[static_cast<int>(kind)]);
            for (int y = 0; y < 256; ++y)
                for (int x = 0; x < 256; ++x)
                    ASSERT_EQ(object_covers(kind, list, i, x, y), x >= p.x && x < p.x + p.width &&
                                                                      y >= p.y &&
                                                                      y < p.y + p.click_height);
        }
        ASSERT_EQ(drawn->pixels, expected->pixels) << round;
    }
}

} // namespace
} // namespace veldrune::test
