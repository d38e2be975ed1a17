// The record of a map: its values, the fields that show them, and both ways of saving them.

#include "map/map_properties.h"
#include "rom/number_text.h"
#include "rom/rom_layout.h"
#include "saving/save_properties.h"
#include "support/editor_fixture.h"

#include <gtest/gtest.h>

#include <iterator>

namespace veldrune::test {
namespace {

using enum RecordField;

// How a field shows the number that its bits hold.
enum class Shown { decimal, hexadecimal, width, height, location };

std::string shown_text(Shown shown, int number) {
    if (shown == Shown::width || shown == Shown::height)
        return std::to_string(16 << number);
    return shown == Shown::decimal ? std::to_string(number) : format_hex(number);
}

struct RecordFact {
    RecordField field;
    std::uint32_t value;      // as the game's bytes and words make it
    std::string Form1::*text; // of two none: they show in Check8 and Text26
    Shown shown;
    bool in_save_as; // Save As writes it, too
};

// What is true of a map's record, independently of the program.
std::vector<RecordFact> record_facts(const MapProperties& b) {
    using F = Form1;
    using enum Shown;
    const auto word = [&](std::size_t i) { return b[i] + 256u * b[i + 1]; };
    const std::uint32_t w = word(7) + 65536u * word(9);
    const std::uint32_t d = word(13) + 65536u * word(15);
    // clang-format off
    return {
        {battle_background, b[2] % 128u,         &F::Text46, hexadecimal, false},
        {tileset1,          w & 0x7F,            &F::Text8,  decimal,     true},
        {tileset2,          w >> 7 & 0x7F,       &F::Text9,  decimal,     true},
        {tileset3,          w >> 14 & 0x7F,      &F::Text10, decimal,     true},
        {tileset4,          w >> 21 & 0x7F,      &F::Text11, decimal,     true},
        {layer3_graphics,   word(10) >> 4 & 63,  &F::Text23, decimal,     true},
        {layer1_formation,  word(11) >> 2 & 127, &F::Text6,  decimal,     true},
        {layer2_formation,  word(11) >> 9,       &F::Text7,  decimal,     true},
        {layer1_data,       d & 0x3FF,           &F::Text14, location,    true},
        {layer2_data,       d >> 10 & 0x3FF,     &F::Text12, location,    true},
        {layer3_data,       d >> 20 & 0x3FF,     &F::Text25, location,    false},
        {left_shift1,       b[18],               &F::Text39, hexadecimal, false},
        {left_shift2,       b[19],               &F::Text40, hexadecimal, false},
        {upward_shift1,     b[20],               &F::Text42, hexadecimal, false},
        {upward_shift2,     b[21],               &F::Text43, hexadecimal, false},
        {scroll_index,      b[22],               &F::Text45, decimal,     false},
        {layer1_width,      b[23] / 64u,         &F::Text2,  width,       true},
        {layer1_height,     b[23] / 16u % 4,     &F::Text5,  height,      true},
        {layer2_width,      b[23] / 4u % 4,      &F::Text1,  width,       true},
        {layer2_height,     b[23] % 4u,          &F::Text3,  height,      true},
        {layer3_width,      b[24] / 64u,         &F::Text21, width,       false},
        {layer3_height,     b[24] / 16u % 4,     &F::Text22, height,      false},
        {palette,           b[25],               &F::Text13, decimal,     true},
        {animated_tileset,  b[27] % 32u,         &F::Text18, decimal,     true},
        {song,              b[28],               &F::Text44, decimal,     false},
        {viewable_first,    b[30],               &F::Text16, decimal,     true},
        {viewable_second,   b[31],               &F::Text17, decimal,     true},
        {layer_priorities,  b[32],               &F::Text37, decimal,     false},
        {battles_enabled,   b[5] / 128u,         nullptr,    decimal,     false},
        {byte27_high,       b[27] / 32u,         nullptr,    decimal,     false},
    };
    // clang-format on
}

TEST(MapProperties, EveryValueIsItsBitsAndNoOthersAndShowsInItsForm) {
    Random random(1);
    MapProperties all_set;
    all_set.fill(0xFF);
    const auto most = record_facts(all_set);
    OpenImage image{Bytes(rom_layout::image_size)};
    random.fill(image.bytes());
    for (std::size_t map = 0; map < 300; ++map) {
        const MapProperties record = random.bytes<33>();
        Form1 form;
        form.Text26 = "stays";
        show_record(image.rom, record, form);
        show_monster_set(image.rom, static_cast<int>(map), form);
        const auto facts = record_facts(record);
        for (std::size_t i = 0; i < facts.size(); ++i) {
            const RecordFact& fact = facts[i];
            ASSERT_EQ(record_value(record, fact.field), fact.value) << i;
            const int pointer = image.rom.read_pointer24(0x19CF90 + 3 * fact.value);
            const int number = fact.shown == Shown::location ? 0x19D3B0 + pointer : int(fact.value);
            ASSERT_TRUE(!fact.text || form.*fact.text == shown_text(fact.shown, number)) << i;
            const auto written = static_cast<std::uint32_t>(random.engine());
            MapProperties changed = record;
            set_record_value(changed, fact.field, written);
            ASSERT_EQ(record_facts(changed)[i].value, written & most[i].value) << i;
            set_record_value(changed, fact.field, fact.value); // all other bits stay
            ASSERT_EQ(changed, record) << i;
        }
        ASSERT_EQ(form.Text41, format_hex(image.bytes()[0xF5800 + map]));
        ASSERT_EQ(form.Check8, record[5] >= 128);
        ASSERT_EQ(form.Text26, "stays");
        show_byte27_high(record, form);
        ASSERT_EQ(form.Text26, record[27] < 32 ? "N/A" : std::to_string(record[27] / 32 - 1));
    }
}

TEST(MapProperties, Layer3OrderComesFromThePriorityTableModulo256) {
    OpenImage image(Bytes(0x10200, 0));
    MapProperties record{};
    record[32] = 100; // 300 wraps to 44
    const int orders[] = {2, 0, 0, 2, 1, 1, 1, 1};
    for (int v = 0; v < 256; ++v) {
        image.bytes()[rom_layout::layer_priorities + 44] = static_cast<std::uint8_t>(v);
        EXPECT_EQ(read_layer3_order(image.rom, record), orders[v & 7]) << v;
    }
}

constexpr int map_index = 17;
constexpr std::size_t record_at = 0x2D9100 + 33 * map_index;

// Numbers typed into the window, many of them too large for their bits.
struct Typed {
    Form1 form;
    std::vector<RecordFact> facts = record_facts({});

    explicit Typed(Random& random) {
        constexpr int limits[] = {300, 300, 4, 3, 0x1000000}; // by Shown
        for (RecordFact& fact : facts) {
            const int number = random.below(limits[static_cast<std::size_t>(fact.shown)]);
            fact.value = static_cast<std::uint32_t>(number);
            if (fact.text)
                form.*fact.text = shown_text(fact.shown, number);
            if (fact.field == battles_enabled)
                form.Check8 = number % 2 != 0;
        }
    }
};

// Puts a typed number into the record, or into the image's pointer that the record names.
void put(const RecordFact& typed, const MapProperties& names, MapProperties& record, Bytes& image) {
    if (typed.shown != Shown::location)
        return set_record_value(record, typed.field, typed.value);
    const std::uint32_t pointer = typed.value - 0x19D3B0;
    const std::size_t at = 0x19CF90 + 3 * record_value(names, typed.field);
    put_word(image, at, pointer);
    image[at + 2] = static_cast<std::uint8_t>(pointer >> 16);
}

TEST(SaveProperties, BothSavesWriteTheNumbersOfTheFieldsAndNothingElse) {
    Random random(3);
    OpenImage saver{Bytes(rom_layout::image_size, 0x5A)};
    Bytes expected = saver.bytes();
    for (int round = 0; round < 300; ++round) {
        MapProperties record = random.bytes<33>();
        MapProperties merged = record;
        Typed typed(random);
        for (const RecordFact& fact : typed.facts)
            put(fact, record, merged, expected);
        set_record_value(merged, byte27_high, record[27] / 32);
        put_bytes(expected, record_at, merged);
        expected[0xF5800 + map_index] = random.byte();
        typed.form.Text41 = format_hex(0x100 + expected[0xF5800 + map_index]);
        ASSERT_TRUE(save_map_properties(saver.rom, typed.form, record, map_index, saver.dialogs));
        ASSERT_EQ(saver.bytes(), expected);
        ASSERT_EQ(record, merged);

        const MapProperties loaded = random.bytes<33>();
        Typed others(random);
        for (auto fact = std::rbegin(others.facts); fact != std::rend(others.facts); ++fact)
            if (fact->in_save_as)
                put(*fact, loaded, merged, expected);
        set_record_value(merged, byte27_high, loaded[27] / 32);
        merged[10] = static_cast<std::uint8_t>(merged[10] % 16 + loaded[10] / 16 * 16);
        put_bytes(expected, record_at, merged);
        ASSERT_TRUE(
            save_map_properties_as(saver.rom, others.form, loaded, map_index, saver.dialogs));
        ASSERT_EQ(saver.bytes(), expected);
    }
    EXPECT_TRUE(saver.dialogs.silent());
}

TEST(SaveProperties, BadFieldsAreReportedAndKeepTheirBits) {
    OpenImage saver{Bytes(rom_layout::image_size, 0x5A)};
    MapProperties record = Random(4).bytes<33>();
    MapProperties expected = record;
    set_record_value(expected, battle_background, 0x11);
    Form1 form;
    show_record(saver.rom, record, form);
    form.Text2 = "48";
    form.Text5 = "128";
    form.Text9 = "";
    form.Text21 = "16x";
    form.Text41 = "5A";
    form.Text46 = "G1";
    ASSERT_TRUE(save_map_properties(saver.rom, form, record, map_index, saver.dialogs));
    EXPECT_EQ(saver.dialogs.messages,
              (Messages{{"The map width must be either 16, 32, 64, or 128", "Error"},
                        no_number("16x", "decimal"),
                        {"The map height must be either 16, 32, or 64", "Error"},
                        no_number("", "decimal"),
                        no_number("G1", "hex")}));
    EXPECT_EQ(record, expected);
    ASSERT_TRUE(save_map_properties_as(saver.rom, form, record, map_index, saver.dialogs));
    EXPECT_EQ(read_record(saver.rom, map_index), record);
}

TEST(SaveProperties, SaveAsHalvesSizesTakenAsBytes) {
    const std::pair<const char*, int> cases[] = {// -1: refused
                                                 {"272", 0}, {"33", 1},  {"67", 2},   {"135", 3},
                                                 {"15", -1}, {"48", -1}, {"136", -1}, {"256", -1}};
    for (const auto& [side, code] : cases) {
        OpenImage saver{Bytes(rom_layout::image_size, 0x5A)};
        Random random(5);
        Form1 form = Typed(random).form;
        form.Text2 = side; // the last of the four
        ASSERT_TRUE(save_map_properties_as(saver.rom, form, {}, map_index, saver.dialogs));
        const int after = saver.bytes()[record_at + 23];
        EXPECT_EQ(code < 0 ? after : after >> 6, code < 0 ? 0x5A : code) << side;
        EXPECT_EQ(saver.dialogs.messages, Messages(code < 0, {"Not a valid mapsize", "error"}));
    }
}

} // namespace
} // namespace veldrune::test
