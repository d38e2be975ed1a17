#include "objects/markers.h"
#include "objects/sprite_preview.h"
#include "support/editor_fixture.h"
#include "support/object_image.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

using enum ObjectKind;

TEST(ObjectTables, CountsAreRoundedTiesToEven) {
    // clang-format off
    using Counts = std::vector<std::pair<std::size_t, int>>; // by the bytes of a list
    const struct { ObjectKind kind; int first; Counts counts; } cases[] = {
        {npc,           0,      {{255 * 9 + 4, 255}, {255 * 9 + 5, 0}, {0xFFFF, 0}}},
        {npc,           0x1000, {{0, 0}, {4, 0}, {13, 1}, {14, 2}}},
        {npc,           0x1001, {{0xFFFF, 0}}}, // it ends before it begins
        {chest,         9,      {{8, 2}}},
        {event_trigger, 0xFFF0, {{15, 3}}},
        {entrance,      7,      {{3, 0}, {9, 2}, {15, 2}, {21, 4}}},
        {long_entrance, 7,      {{4, 1}}},
    };
    // clang-format on
    Bytes bytes(0x300200);
    for (const auto& [kind, first, counts] : cases)
        for (const auto& [size, count] : counts) {
            const std::size_t start = static_cast<std::size_t>(first);
            put_word(bytes, place_of(kind).pointers + 2 * 413, start);
            put_word(bytes, place_of(kind).pointers + 2 * 414, start + size);
            const ObjectExtent extent = read_object_extent(OpenImage(bytes).rom, kind, 413);
            EXPECT_EQ(std::pair(extent.count, extent.first_offset), std::pair(count, first))
                << size;
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
    Bytes& image = open.bytes();
    // Characters at 0x1000: pixel (0, 0) of number n has value n + 1, pixel (7, 6) has 15.
    for (std::size_t n = 0; n < 6; ++n)
        for (std::size_t plane = 0; plane < 4; ++plane) {
            const std::size_t at = 0x1000 + 32 * n + plane % 2 + plane / 2 * 16;
            if ((n + 1) >> plane & 1)
                image[at] = 0x80;
            image[at + 2 * 6] = 0x01;
        }
    for (std::size_t i = 0; i < 256; ++i) // red is the number in the row, green the row
        put_word(image, 0x268200 + 2 * i, i % 16 | i / 16 << 5);
    Form10 form;
    for (const int sprite : {0, 0x56, 0x57, 0x72}) {
        const bool tall = sprite < 0x57;
        draw_sprite_preview(open.rom, 0x1000, sprite, 5, form);
        ASSERT_EQ(form.Picture1_height, tall ? 144 : 96);
        for (int y = 0; y < 144; ++y) // behind a short one nothing of the tall one stays
            for (int x = 0; x < 96; ++x) {
                const int px = x % 48 / 6, py = y % 48 / 6;
                const int first = y / 48 * 2 + x / 48 + (tall ? 1 : 2);
                const int value = y >= form.Picture1_height ? 0
                                  : px == 0 && py == 0      ? first
                                  : px == 7 && py == 6      ? 15
                                                            : 0;
                ASSERT_EQ(form.Picture1[static_cast<std::size_t>(96 * y + x)],
                          value == 0 ? 0u : static_cast<Colour>(value << 19 | 5 << 11))
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
    const auto plot = [&](std::int64_t x, std::int64_t y, Colour colour) {
        if (x >= 0 && x < 512 && y >= 0 && y < 512)
            expected->row(static_cast<int>(y))[x] = colour;
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
        drawn->fill(0x123456);
        *expected = *drawn;
        ASSERT_TRUE(kind != npc || list.row_count == 0 ||
                    !object_hit_by_click(kind, list, 0, list.bytes[4], list.bytes[5] % 64));
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
                    ASSERT_EQ(object_hit_by_click(kind, list, i, x, y),
                              x >= p.x && x < p.x + p.width && y >= p.y &&
                                  y < p.y + p.click_height);
        }
        ASSERT_TRUE(*drawn == *expected) << round;
    }
}

} // namespace
} // namespace veldrune::test
