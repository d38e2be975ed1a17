#include "objects/markers.h"
#include "objects/sprite_preview.h"
#include "support/editor_fixture.h"
#include "support/object_image.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

using enum ObjectKind;

TEST(ObjectTables, CountsAreRoundedTiesToEven) {
    const std::tuple<ObjectKind, std::size_t, std::size_t, int> cases[] = {
        {npc, 0, 255 * 9 + 4, 255},
        {npc, 0, 255 * 9 + 5, 0},
        {entrance, 7, 9, 2},
        {entrance, 7, 15, 2},
        {npc, 0x1001, 0xF000, 0}}; // the last ends before it begins
    Bytes bytes(0x300200);
    for (const auto& [kind, first, size, count] : cases) {
        put_word(bytes, place_of(kind).pointers + 2 * 413, first);
        put_word(bytes, place_of(kind).pointers + 2 * 414, first + size);
        const ObjectExtent extent = read_object_extent(OpenImage(bytes).rom, kind, 413);
        EXPECT_EQ(extent.count, count) << size;
        EXPECT_EQ(extent.first_offset, static_cast<int>(first));
    }
}

TEST(ObjectTables, ItemNamesAndSpritesAreFound) {
    Bytes bytes(0x300200, 0xFF);
    const std::size_t names_at = 0x12B500;
    put_bytes(bytes, names_at + 13 * 31, hex_bytes("7F 80 99 9A B3 B4 BD BE BF C0 C1 C2 C3"));
    put_bytes(bytes, names_at + 13 * 255, hex_bytes("C4 C5 C6 C7 C8 D3 D4 00"));
    put_word(bytes, 0xD2F2 + 2 * 0x72, 0x5A10);
    put_word(bytes, 0xD43C + 2 * 0x72, 0x77D5); // the bank is the low byte
    OpenImage image(bytes);
    const auto names = load_item_names(image.rom);
    ASSERT_EQ(names.size(), 256u);
    EXPECT_EQ(names[31], "1F AZaz09!?:\"'");
    EXPECT_EQ(names[255], "FF -.,_\"" + std::string(5, ' '));
    EXPECT_EQ(sprite_graphics_offset(image.rom, 0x72), 0x155C10);
}

TEST(SpritePreview, ShowsTallAndShortSpritesSixTimesTheirSize) {
    OpenImage open(Bytes(0x300200, 0));
    // Six characters at 0x1000: number n has value n + 9 in all but its first two pixels.
    for (std::size_t n = 0; n < 6; ++n)
        for (std::size_t i = 0; i < 32; ++i) // rows of planes 0 and 1, then of planes 2 and 3
            if ((n + 9) >> (i / 16 * 2 + i % 2) & 1)
                open.bytes()[0x1000 + 32 * n + i] = i % 16 < 2 ? 0x3F : 0xFF;
    for (std::size_t i = 0; i < 256; ++i) // red is the number in the row, green the row
        put_word(open.bytes(), 0x268200 + 2 * i, i % 16 | i / 16 << 5);
    Form10 form;
    for (const int sprite : {0, 0x56, 0x57, 0x72}) {
        const bool tall = sprite < 0x57;
        draw_sprite_preview(open.rom, 0x1000, sprite, 5, form);
        ASSERT_EQ(form.Picture1_height, tall ? 144 : 96);
        for (int y = 0; y < 144; ++y) // below a short one nothing of the tall one stays
            for (int x = 0; x < 96; ++x) {
                const int character = y / 48 * 2 + x / 48 + (tall ? 0 : 1);
                const bool blank = y >= form.Picture1_height || (x % 48 < 12 && y % 48 < 6);
                ASSERT_EQ(form.Picture1.row(y)[x],
                          blank ? 0u : static_cast<Colour>((character + 9) << 19 | 5 << 11))
                    << sprite << ": " << x << ", " << y;
            }
    }
}

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
    for (int round = 0; round < 600; ++round) {
        const ObjectKind kind = all_kinds[random.below(5)];
        ObjectList list;
        list.row_count = random.below(4);
        for (std::uint8_t& byte : list.bytes)
            byte = static_cast<std::uint8_t>(random.below(random.below(2) ? 256 : 40));
        const int size = 16 << random.below(4);
        const int h = round % 50 == 0 ? 2147483647 : random.below(40);
        const int v = round % 70 == 0 ? -2147483647 : random.below(40);
        drawn->fill(0x123456);
        *expected = *drawn;
        ASSERT_TRUE(kind != npc || list.row_count == 0 ||
                    !object_hit_by_click(kind, list, 0, list.bytes[4], list.bytes[5] % 64));
        draw_markers(kind, list, {h, v, size}, *drawn);
        for (int i = 0; i < list.row_count; ++i) {
            const Place p = place_in(kind, object_row(kind, list, i));
            const std::int64_t x0 = (std::int64_t{p.x} - h) * size, x1 = x0 + p.width * size;
            const std::int64_t y0 = (std::int64_t{p.y} - v) * size, y1 = y0 + p.height * size;
            for (std::int64_t y = y0; y <= y1; ++y)
                for (std::int64_t x = x0; x <= x1; x += y == y0 || y == y1 ? 1 : x1 - x0)
                    if (x >= 0 && x < view_size && y >= 0 && y < view_size)
                        expected->row(static_cast<int>(y))[x] = colours[static_cast<int>(kind)];
            for (int y = 0; y < 256; ++y)
                for (int x = 0; x < 256; ++x)
                    ASSERT_EQ(object_hit_by_click(kind, list, i, x, y),
                              x >= p.x && x < p.x + p.width && y >= p.y &&
                                  y < p.y + p.click_height);
        }
        ASSERT_TRUE(*drawn == *expected) << round;
    }
}

} // namespace
} // namespace veldrune::test
