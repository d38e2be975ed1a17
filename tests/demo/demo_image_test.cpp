#include "demo/demo_image.h"
#include "support/demo_reader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>

namespace veldrune::test {
namespace {

/// A stream's output of size bytes; its last run may go on with zeros behind them.
bool holds(const Bytes& output, std::size_t size) {
    return output.size() >= size && output.size() < size + 34 &&
           std::count(output.begin() + static_cast<std::ptrdiff_t>(size), output.end(), 0) ==
               static_cast<std::ptrdiff_t>(output.size() - size);
}

constexpr int map_count = 414;

TEST_F(DemoImage, IsTheSameForASeedAndAnotherForAnother) {
    EXPECT_EQ(image().size(), 0x300200u);
    EXPECT_TRUE(image() == demo::make_demo_image(1));
    for (const std::uint32_t seed : {0u, 2u, 3u, 0xFFFFFFFFu})
        EXPECT_FALSE(image() == demo::make_demo_image(seed)) << seed;
}

TEST_F(DemoImage, StreamsFillTheirAreasAndDecodeToTheirSizes) {
    struct Area {
        int table, count, start, end;
        std::size_t size; // 0: any
    };
    const Area areas[] = {{0x19CF90, 352, 0x19D3B0, 0x1E0200, 0},
                          {0x1FBC00, 85, 0x1E0200, 0x1FBC00, 2048},
                          {0x26CF60, 21, 0x268980, 0x26CF60, 4096}};
    for (const Area& area : areas)
        for (int i = 0; i < area.count; ++i) {
            const int at = area.start + rom.pointer(area.table + 3 * i);
            ASSERT_LE(rom.end_of_stream(at), area.end) << i;
            EXPECT_TRUE(area.size == 0 || holds(rom.decode(at), area.size)) << i;
        }
    EXPECT_EQ(rom.layer(0, 0), Bytes(256)); // what a missing layer 3 points to
    for (int i = 0; i < 85; ++i)            // 256 characters at most
        EXPECT_LE(0x1FDD00 + rom.pointer(0x1FDC00 + 3 * i) + 32 * 128, 0x260200) << i;
}

TEST_F(DemoImage, EveryMapHasLayersOfItsSizeAndShowsSomething) {
    for (int map = 0; map < map_count; ++map) {
        for (int layer = 0; layer < 3; ++layer)
            ASSERT_TRUE(holds(rom.decode(rom.layer_stream(rom.data_number(map, layer))),
                              rom.size(map, layer)))
                << map << " layer " << layer + 1;
        const Bytes ground = rom.layer(map, 1);
        EXPECT_NE(std::ranges::count(ground, 0), static_cast<std::ptrdiff_t>(ground.size())) << map;
        EXPECT_LT(rom.bits(map, 200, 8), 48) << map; // palette
    }
}

TEST_F(DemoImage, PlacesUseManyFormationsInEveryFlipAndBothPriorities) {
    std::set<int> flips, high_layers;
    for (int map = demo::demo_map::town; map <= demo::demo_map::interior; ++map) {
        std::size_t used = 0;
        for (int layer = 0; layer < 2; ++layer) {
            const Bytes cells = rom.layer(map, layer);
            const Bytes formations = rom.formations(map, layer);
            const std::set<std::uint8_t> numbers(cells.begin(), cells.end());
            std::set<std::array<int, 8>> distinct;
            for (const std::uint8_t number : numbers) {
                std::array<int, 8> parts{};
                for (std::size_t i = 0; i < 8; ++i)
                    parts[i] = formations[256 * i + number];
                distinct.insert(parts);
                for (std::size_t q = 4; q < 8; ++q) {
                    flips.insert(parts[q] & 0xC0);
                    if (parts[q] & 0x20)
                        high_layers.insert(layer);
                }
            }
            used += distinct.size();
        }
        EXPECT_GE(used, 60u) << map;
    }
    EXPECT_EQ(flips, (std::set{0, 0x40, 0x80, 0xC0}));
    EXPECT_EQ(high_layers, (std::set{0, 1}));
}

TEST_F(DemoImage, AllThatARecordCanSayIsThere) {
    std::set<int> widths, heights, orders;
    std::map<int, int> users; // of each data number of layer 2
    for (int map = demo::demo_map::town; map < map_count; ++map) {
        for (int layer = 0; layer < 3; ++layer) {
            widths.insert(rom.width(map, layer));
            heights.insert(rom.height(map, layer));
        }
        ++users[rom.data_number(map, 1)];
        if (rom.has_layer3(map))
            orders.insert(rom.layer3_order(map));
    }
    EXPECT_EQ(widths, (std::set{16, 32, 64, 128}));
    EXPECT_EQ(heights, (std::set{16, 32, 64, 128}));
    EXPECT_EQ(orders, (std::set{0, 1, 2}));
    EXPECT_GT(std::ranges::max_element(users, {}, [](auto& u) { return u.second; })->second, 1);
}

TEST_F(DemoImage, NamedMapsAreWhatTheirNamesSay) {
    using namespace demo::demo_map;
    struct {
        int map;
        bool layer3;
        int order;
    } const orders[] = {{town, true, 2},         {forest, true, 2},    {cave, true, 2},
                        {castle_hall, false, 0}, {interior, false, 0}, {night_hall, true, 0},
                        {misty_town, true, 1}};
    for (const auto& row : orders) {
        EXPECT_EQ(rom.has_layer3(row.map), row.layer3) << row.map;
        EXPECT_TRUE(!row.layer3 || rom.layer3_order(row.map) == row.order) << row.map;
    }
    EXPECT_EQ(rom.layer3_graphics(night_hall), 6);
    EXPECT_EQ(rom.height(tall_cave, 0) + rom.height(tall_cave, 1), 256);
    EXPECT_EQ(2 * rom.width(open_town, 0), rom.width(open_town, 1));
    for (const int layer : {0, 1})
        EXPECT_EQ(rom.data_number(town_again, layer), rom.data_number(town, layer));
}

TEST_F(DemoImage, Layer3FormationsComeInEveryFlip) {
    std::set<int> flips;
    for (int map = 0; map < map_count; ++map)
        if (rom.has_layer3(map))
            for (const std::uint8_t cell : rom.layer(map, 2))
                flips.insert(cell & 63 ? cell & 0xC0 : 0);
    EXPECT_EQ(flips, (std::set{0, 0x40, 0x80, 0xC0}));
}

TEST_F(DemoImage, NoColourThatIsDrawnIsBlack) {
    for (int palette = 0; palette < 48; ++palette)
        for (int colour = 0; colour < 128; ++colour)
            EXPECT_NE(rom.word(0x2DC680 + 256 * palette + 2 * colour) & 0x7FFF, 0);
}

TEST_F(DemoImage, HasNoPatchMarks) {
    EXPECT_EQ(rom.word(0x3000E0), 0xFFFF);
}

TEST_F(DemoImage, AnimatedTilesLieInTheirArea) {
    for (int set = 0; set < 22; ++set)
        for (int tile = 0; tile < 16; ++tile)
            for (int frame = 0; frame < 4; ++frame) {
                const int base = 0x9401 + rom.word(0x93D5 + 2 * set);
                EXPECT_LE(rom.word(base + 10 * tile + 2 * frame), 0x8000 - 128);
            }
}

} // namespace
} // namespace veldrune::test
