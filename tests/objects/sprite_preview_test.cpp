#include "objects/sprite_preview.h"
#include "support/object_image.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

TEST(SpritePreview, ShowsTallAndShortSpritesSixTimesTheirSize) {
    MemoryDisk disk;
    Bytes& image = disk["a.smc"];
    image.resize(0x300200);
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
    RomImage rom(disk);
    rom.open("a.smc");
    for (const int sprite : {0, 0x56, 0x57, 0x72}) {
        const bool tall = sprite < 0x57;
        Form10 form;
        draw_sprite_preview(rom, 0x1000, sprite, 5, form);
        ASSERT_EQ(form.Picture1_height, tall ? 144 : 96);
        for (int y = 0; y < form.Picture1_height; ++y)
            for (int x = 0; x < 96; ++x) {
                const int px = x % 48 / 6, py = y % 48 / 6;
                const int first = y / 48 * 2 + x / 48 + (tall ? 1 : 2);
                const int value = px == 0 && py == 0 ? first : px == 7 && py == 6 ? 15 : 0;
                ASSERT_EQ(form.Picture1[static_cast<std::size_t>(96 * y + x)],
                          value == 0 ? 0u : static_cast<Colour>(value << 19 | 5 << 11))
                    << sprite << ": " << x << ", " << y;
            }
    }
}

} // namespace
} // namespace veldrune::test
