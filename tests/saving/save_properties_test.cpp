#include "rom/number_text.h"
#include "rom/rom_layout.h"
#include "saving/save_properties.h"
#include "support/editor_fixture.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

constexpr int map_index = 17;
constexpr std::size_t record_at = 0x2D9100 + 33 * map_index;
constexpr std::size_t monster_at = 0xF5800 + map_index;

using Text = std::string Form1::*;
// clang-format off
// The fields by the number in their names.
constexpr std::pair<int, Text> decimals[] = {
    {6, &Form1::Text6},   {7, &Form1::Text7},   {8, &Form1::Text8},   {9, &Form1::Text9},   {10, &Form1::Text10},
    {11, &Form1::Text11}, {13, &Form1::Text13}, {16, &Form1::Text16}, {17, &Form1::Text17}, {18, &Form1::Text18},
    {23, &Form1::Text23}, {37, &Form1::Text37}, {44, &Form1::Text44}, {45, &Form1::Text45}};
constexpr std::pair<int, Text> hexadecimals[] = {
    {39, &Form1::Text39}, {40, &Form1::Text40}, {41, &Form1::Text41}, {42, &Form1::Text42}, {43, &Form1::Text43},
    {46, &Form1::Text46}};
constexpr std::pair<int, Text> locations[] = {{12, &Form1::Text12}, {14, &Form1::Text14}, {25, &Form1::Text25}};
constexpr std::pair<int, Text> sizes[] = {
    {1, &Form1::Text1}, {2, &Form1::Text2}, {21, &Form1::Text21}, {3, &Form1::Text3}, {5, &Form1::Text5}, {22, &Form1::Text22}};
// clang-format on

// The window's numbers, each kept beside the text that a field shows of it.
struct Fields {
    std::map<int, std::uint32_t> value;
    Form1 form;

    explicit Fields(Random& random) {
        const auto any = [&](int limit) { return static_cast<std::uint32_t>(random.below(limit)); };
        for (const auto& [name, text] : decimals)
            form.*text = std::to_string(value[name] = any(300));
        for (const auto& [name, text] : hexadecimals)
            form.*text = format_hex(value[name] = any(300));
        for (const auto& [name, text] : locations)
            form.*text = format_hex(value[name] = any(0x1000000));
        for (const auto& [name, text] : sizes)
            form.*text = std::to_string(
                value[name] = 16u << any(name == 3 || name == 5 || name == 22 ? 3 : 4));
        form.Check8 = random.below(2) != 0;
    }
    std::uint32_t operator[](int name) const { return value.at(name); }
};

std::uint32_t code(std::uint32_t side) {
    return side == 16 ? 0 : side == 32 ? 1 : side == 64 ? 2 : 3;
}
std::uint8_t low(std::uint32_t value) {
    return static_cast<std::uint8_t>(value);
}

void put24(Bytes& image, std::uint32_t number, std::uint32_t location) {
    const std::uint32_t pointer = location - 0x19D3B0;
    for (std::uint32_t i = 0; i < 3; ++i)
        image[0x19CF90 + 3 * number + i] = low(pointer >> (8 * i));
}

// What Save makes of an image, worked out byte by byte.
void literal_save(Bytes& image, const MapProperties& record, const Fields& f) {
    std::array<std::uint32_t, 33> b;
    std::copy(record.begin(), record.end(), b.begin());
    b[23] = code(f[2]) * 64 + code(f[5]) * 16 + code(f[1]) * 4 + code(f[3]);
    b[24] = code(f[21]) * 64 + code(f[22]) * 16 + b[24] % 16;
    b[12] = low(f[7] * 2) + (f[6] >> 6 & 1);
    b[11] = low(f[6] * 4) + (f[23] >> 4 & 3);
    b[10] = f[23] % 16 * 16 + b[10] % 16;
    put24(image, (b[13] + 256 * b[14]) & 0x3FF, f[14]);
    put24(image, ((b[14] + 256 * b[15]) & 0xFFC) / 4, f[12]);
    put24(image, ((b[15] + 256 * b[16]) & 0x3FF0) / 16, f[25]);
    b[18] = f[39];
    b[19] = f[40];
    b[20] = f[42];
    b[21] = f[43];
    b[7] = (f[8] & 0x7F) + f[9] * 128;
    b[8] = (f[9] & 0x7E) / 2 + f[10] * 64;
    b[9] = (f[10] & 0x7C) / 4 + f[11] * 32;
    b[10] = (b[10] & 0xF0) + (f[11] & 0x78) / 8;
    b[27] = (b[27] & 0xE0) + (f[18] & 0x1F);
    b[30] = f[16];
    b[31] = f[17];
    b[28] = f[44];
    b[25] = f[13];
    b[32] = f[37];
    b[22] = f[45];
    b[5] = b[5] % 128 + (f.form.Check8 ? 128 : 0);
    b[2] = (b[2] & 0x80) + (f[46] & 0x7F);
    image[monster_at] = low(f[41]);
    for (std::size_t i = 0; i < 33; ++i)
        image[record_at + i] = low(b[i]);
}

// The same for Save As, which writes some of these bytes.
void literal_save_as(Bytes& image, const MapProperties& loaded, const Fields& f) {
    put24(image, (loaded[14] / 4u) + (loaded[15] & 15u) * 64, f[12]);
    put24(image, loaded[13] + (loaded[14] & 3u) * 256, f[14]);
    Bytes saved = image;
    literal_save(saved, loaded, f);
    for (const std::size_t i : {7u, 8u, 9u, 11u, 12u, 23u, 25u, 27u, 30u, 31u})
        image[record_at + i] = saved[record_at + i];
    image[record_at + 10] = low(saved[record_at + 10] % 16 + loaded[10] / 16u * 16);
}

struct Saver : OpenImage {
    Saver() : OpenImage(Bytes(rom_layout::image_size, 0x5A)) {}
};

TEST(SaveProperties, BothSavesWriteTheSumsOfTheFieldsAndNothingElse) {
    Random random(3);
    Saver saver;
    for (int round = 0; round < 300; ++round) {
        MapProperties record = random.bytes<33>();
        Fields fields(random);
        Bytes expected = saver.bytes();
        literal_save(expected, record, fields);
        ASSERT_TRUE(save_map_properties(saver.rom, fields.form, record, map_index, saver.dialogs));
        ASSERT_EQ(saver.bytes(), expected);
        ASSERT_EQ(record, read_record(saver.rom, map_index));

        const MapProperties loaded = random.bytes<33>();
        Fields others(random);
        literal_save_as(expected, loaded, others);
        saver.disk.log.clear();
        ASSERT_TRUE(
            save_map_properties_as(saver.rom, others.form, loaded, map_index, saver.dialogs));
        ASSERT_EQ(saver.bytes(), expected);
        ASSERT_EQ(saver.disk.log[0].offset, saver.disk.log[2].offset + 2)
            << "the highest byte first";
    }
    EXPECT_TRUE(saver.dialogs.silent());
}

TEST(SaveProperties, BadFieldsAreToldAndKeepTheirBits) {
    Random random(4);
    Saver saver;
    MapProperties record = random.bytes<33>();
    const MapProperties before = record;
    Form1 form;
    show_record(saver.rom, record, form);
    form.Text1 = "17x";
    form.Text2 = "48";
    form.Text5 = "128";
    form.Text9 = "";
    form.Text13 = "12a";
    form.Text21 = "16x";
    form.Text22 = "0";
    form.Text41 = "5A";
    form.Text46 = "G1";
    ASSERT_TRUE(save_map_properties(saver.rom, form, record, map_index, saver.dialogs));
    const Message width{"The map width must be either 16, 32, 64, or 128", "Error"};
    const Message height{"The map height must be either 16, 32, or 64", "Error"};
    EXPECT_EQ(saver.dialogs.messages,
              (Messages{width, no_number("17x", "decimal"), width, no_number("16x", "decimal"),
                        height, height, no_number("", "decimal"), no_number("12a", "decimal"),
                        no_number("G1", "hex")}));
    MapProperties expected = before;
    set_record_value(expected, RecordField::battle_background, 0x11);
    EXPECT_EQ(record, expected);
    // Save As leaves the bits of a field without a number, too.
    form.Text1 = form.Text2 = "16";
    form.Text5 = "64";
    form.Text46 = "0";
    ASSERT_TRUE(save_map_properties_as(saver.rom, form, record, map_index, saver.dialogs));
    const MapProperties after = read_record(saver.rom, map_index);
    EXPECT_EQ(after[25], record[25]);
    EXPECT_EQ(record_value(after, RecordField::tileset2),
              record_value(record, RecordField::tileset2));
}

TEST(SaveProperties, SaveAsHalvesSizesTakenAsBytes) {
    // clang-format off
    const struct { const char* side; int code; } cases[] = { // -1: refused
        {"16",  0},
        {"272", 0},
        {"32",  1},
        {"33",  1},
        {"64",  2},
        {"67",  2},
        {"128", 3},
        {"135", 3},
        {"0",   -1},
        {"15",  -1},
        {"48",  -1},
        {"136", -1},
        {"256", -1},
    };
    // clang-format on
    Random random(5);
    for (const auto& c : cases) {
        Saver saver;
        Fields fields(random);
        fields.form.Text2 = c.side; // the last of the four
        const std::uint8_t before = saver.bytes()[record_at + 23];
        ASSERT_TRUE(save_map_properties_as(saver.rom, fields.form, random.bytes<33>(), map_index,
                                           saver.dialogs));
        const std::uint8_t after = saver.bytes()[record_at + 23];
        EXPECT_EQ(after >> 6, c.code < 0 ? before >> 6 : c.code) << c.side;
        EXPECT_TRUE(c.code >= 0 || after == before);
        EXPECT_EQ(saver.dialogs.messages,
                  Messages(c.code < 0 ? 1 : 0, {"Not a valid mapsize", "error"}));
    }
}

} // namespace
} // namespace veldrune::test
