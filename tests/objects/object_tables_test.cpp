#include "objects/object_tables.h"
#include "support/object_image.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

using enum ObjectKind;

struct Image {
    MemoryDisk disk;
    RomImage rom{disk};
    explicit Image(const Bytes& bytes) {
        disk["a.smc"] = bytes;
        rom.open("a.smc");
    }
};

TEST(ObjectTables, CountsAreRoundedTiesToEven) {
    // clang-format off
    const struct { ObjectKind kind; std::size_t first, size; int count; } cases[] = {
        {npc, 0x1000, 13, 1}, {npc, 0x1000, 14, 2},       {npc, 0x1000, 4, 0},       {npc, 0x1000, 0, 0},
        {npc, 0x1001, 0xFFFF, 0}, {npc, 0, 255 * 9 + 4, 255}, {npc, 0, 255 * 9 + 5, 0}, {npc, 0, 0xFFFF, 0},
        {entrance, 7, 3, 0},  {entrance, 7, 9, 2},        {entrance, 7, 15, 2},      {entrance, 7, 21, 4},
        {chest, 9, 8, 2},     {event_trigger, 0xFFF0, 15, 3}, {long_entrance, 7, 4, 1},
    };
    // clang-format on
    for (const auto& c : cases) {
        Bytes bytes(0x300200);
        put_word(bytes, place_of(c.kind).pointers + 2 * 413, c.first);
        put_word(bytes, place_of(c.kind).pointers + 2 * 414, c.first + c.size);
        const ObjectExtent extent = read_object_extent(Image(bytes).rom, c.kind, 413);
        EXPECT_EQ(extent.count, c.count) << c.first << " " << c.size;
        EXPECT_EQ(extent.first_offset, static_cast<int>(c.first));
    }
}

TEST(ObjectTables, ItemNamesAndSpritesAreFound) {
    Bytes bytes(0x300200, 0xFF);
    const Bytes name = {0x7F, 0x80, 0x99, 0x9A, 0xB3, 0xB4, 0xBD, 190, 191, 192, 193, 194, 195};
    const Bytes last = {196, 197, 198, 199, 200, 211, 212, 0};
    std::ranges::copy(name, bytes.data() + 0x12B500 + 31 * 13);
    std::ranges::copy(last, bytes.data() + 0x12B500 + 255 * 13);
    put_word(bytes, 0xD2F2 + 2 * 0x72, 0x5A10);
    put_word(bytes, 0xD43C + 2 * 0x72, 0x77D5); // the bank is the low byte
    Image image(bytes);
    const auto names = load_item_names(image.rom);
    ASSERT_EQ(names.size(), 256u);
    EXPECT_EQ(names[31], "1F AZaz09!?:\"'");
    EXPECT_EQ(names[255], "FF -.,_\"" + std::string(5, ' '));
    EXPECT_EQ(sprite_graphics_offset(image.rom, 0x72), 0x155C10);
}

} // namespace
} // namespace veldrune::test
