#include "map/map_properties.h"
#include "rom/rom_layout.h"
#include "support/editor_fixture.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

using enum RecordField;

// The values as the game's bytes and words make them.
std::vector<std::pair<RecordField, std::uint32_t>> literal_values(const MapProperties& b) {
    const auto word = [&](std::size_t i) { return b[i] + 256u * b[i + 1]; };
    const auto dword = [&](std::size_t i) { return word(i) + 65536u * word(i + 2); };
    const std::uint32_t w = dword(7);
    const std::uint32_t d = dword(13);
    // clang-format off
    return {
        {battle_background, b[2] % 128u}, {battles_enabled, b[5] / 128u},
        {tileset1, w & 0x7F}, {tileset2, w >> 7 & 0x7F}, {tileset3, w >> 14 & 0x7F}, {tileset4, w >> 21 & 0x7F},
        {layer3_graphics, word(10) >> 4 & 0x3F}, {layer1_formation, word(11) >> 2 & 0x7F}, {layer2_formation, word(11) >> 9},
        {layer1_data, d & 0x3FF}, {layer2_data, d >> 10 & 0x3FF}, {layer3_data, d >> 20 & 0x3FF},
        {left_shift1, b[18]}, {left_shift2, b[19]}, {upward_shift1, b[20]}, {upward_shift2, b[21]}, {scroll_index, b[22]},
        {layer1_width, b[23] >> 6}, {layer1_height, b[23] >> 4 & 3}, {layer2_width, b[23] >> 2 & 3}, {layer2_height, b[23] & 3},
        {layer3_width, b[24] >> 6}, {layer3_height, b[24] >> 4 & 3}, {palette, b[25]},
        {animated_tileset, b[27] & 0x1F}, {byte27_high, b[27] >> 5}, {song, b[28]},
        {viewable_first, b[30]}, {viewable_second, b[31]}, {layer_priorities, b[32]},
    };
    // clang-format on
}

TEST(MapProperties, EveryValueIsItsBitsAndNoOthers) {
    Random random(1);
    for (int round = 0; round < 500; ++round) {
        const MapProperties record = random.bytes<33>();
        for (const auto& [field, value] : literal_values(record)) {
            ASSERT_EQ(record_value(record, field), value) << static_cast<int>(field);
            MapProperties changed = record;
            const std::uint32_t other = static_cast<std::uint32_t>(random.engine());
            set_record_value(changed, field, other);
            for (const auto& [each, old] : literal_values(changed))
                ASSERT_TRUE(each == field || record_value(record, each) == old);
            set_record_value(changed, field, value); // the bits of no value stay, too
            ASSERT_EQ(changed, record);
        }
    }
}

TEST(MapProperties, FieldsShowTheRecordInTheirForms) {
    OpenImage image(Bytes(rom_layout::image_size, 0));
    RomImage& rom = image.rom;
    ASSERT_TRUE(rom.write(data_pointer_offset(5), pointer24_bytes(0x12345)));
    ASSERT_TRUE(rom.write_byte(monster_set_offset(7), 0xAB));
    MapProperties record{};
    record[2] = record[7] = 0xFF;
    record[5] = 0x80;
    record[13] = 5;
    record[23] = 0xE4;
    Form1 form;
    show_record(rom, record, form);
    show_monster_set(rom, 7, form);
    EXPECT_TRUE(form.Check8);
    EXPECT_EQ(form.Text46 + " " + form.Text41, "7F AB");
    EXPECT_EQ(form.Text8 + " " + form.Text9 + " " + form.Text10, "127 1 0");
    EXPECT_EQ(form.Text2 + " " + form.Text5 + " " + form.Text1 + " " + form.Text3, "128 64 32 16");
    EXPECT_EQ(form.Text14, "1AF6F5");
    EXPECT_EQ(form.Text25, EMPTY_LAYER_TEXT);
    for (const auto& [byte, shown] : {std::pair{0x25, "0"}, {0x05, "N/A"}}) {
        record[27] = static_cast<std::uint8_t>(byte);
        show_byte27_high(record, form);
        EXPECT_EQ(form.Text26, shown);
        show_record(rom, record, form);
        EXPECT_EQ(form.Text18, "5");
        EXPECT_EQ(form.Text26, shown) << "stays";
    }
}

TEST(MapProperties, Layer3OrderComesFromThePriorityTableModulo256) {
    OpenImage image(Bytes(0x10200, 0));
    RomImage& rom = image.rom;
    MapProperties record{};
    record[32] = 100; // 300 wraps to 44
    const int orders[] = {2, 0, 0, 2, 1, 1, 1, 1};
    for (int v = 0; v < 256; ++v) {
        rom.write_byte(rom_layout::layer_priorities + 44, static_cast<std::uint8_t>(v));
        EXPECT_EQ(read_layer3_order(rom, record), orders[v & 7]) << v;
    }
}

} // namespace
} // namespace veldrune::test
