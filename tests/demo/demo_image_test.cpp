#include "demo/demo_image.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>

namespace veldrune::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

// A reader of its own: nothing here goes through the program's tables or decoders.
struct Reader {
    const Bytes& image;

    int byte(int at) const { return image.at(static_cast<std::size_t>(at)); }
    int word(int at) const { return byte(at) | byte(at + 1) << 8; }
    int pointer(int at) const { return word(at) | byte(at + 2) << 16; }
    /// Bits of the record, the lowest of byte 0 first.
    int bits(int map, int first, int count) const {
        int value = 0;
        for (int i = 0; i < count; ++i)
            value |= (byte(0x2D9100 + 33 * map + (first + i) / 8) >> (first + i) % 8 & 1) << i;
        return value;
    }
    int end_of_stream(int at) const { return at + word(at); }
    Bytes decode(int at) const {
        std::array<std::uint8_t, 2048> ring{};
        Bytes result;
        const auto put = [&](std::uint8_t value) {
            ring[(result.size() + 0x7DE) % 2048] = value;
            result.push_back(value);
        };
        int next = at + 2;
        const int end = end_of_stream(at);
        while (next < end)
            for (int control = byte(next++), item = 0; item < 8 && next < end; ++item) {
                if (control >> item & 1) {
                    put(static_cast<std::uint8_t>(byte(next++)));
                    continue;
                }
                const int reference = word(next);
                next += 2;
                for (int i = 0; i < (reference >> 11) + 3; ++i)
                    put(ring[static_cast<std::size_t>((reference + i) & 2047)]);
            }
        return result;
    }

    // First bits in the record: data numbers 104 + 10 * layer; width and height codes by layer.
    int data_number(int map, int layer) const { return bits(map, 104 + 10 * layer, 10); }
    int width(int map, int layer) const {
        return 16 << bits(map, std::array{190, 186, 198}[static_cast<std::size_t>(layer)], 2);
    }
    int height(int map, int layer) const {
        return 16 << bits(map, std::array{188, 184, 196}[static_cast<std::size_t>(layer)], 2);
    }
    int layer_stream(int number) const { return 0x19D3B0 + pointer(0x19CF90 + 3 * number); }
    std::size_t size(int map, int layer) const {
        return static_cast<std::size_t>(width(map, layer) * height(map, layer));
    }
    Bytes layer(int map, int which) const {
        Bytes cells = decode(layer_stream(data_number(map, which)));
        cells.resize(size(map, which));
        return cells;
    }
    bool has_layer3(int map) const { return layer_stream(data_number(map, 2)) != 0x19D3B0; }
    Bytes formations(int map, int layer) const {
        return decode(0x1E0200 + pointer(0x1FBC00 + 3 * bits(map, 90 + 7 * layer, 7)));
    }
    int layer3_graphics(int map) const { return bits(map, 84, 6); }
    int layer3_order(int map) const {
        const int v = byte(0x10002 + 3 * bits(map, 256, 8) % 256);
        return v & 4 ? 1 : (v & 3) == 0 || (v & 3) == 3 ? 2 : 0;
    }
};

/// A stream's output of size bytes; its last run may go on with zeros behind them.
bool holds(const Bytes& output, std::size_t size) {
    return output.size() >= size && output.size() < size + 34 &&
           std::count(output.begin() + static_cast<std::ptrdiff_t>(size), output.end(), 0) ==
               static_cast<std::ptrdiff_t>(output.size() - size);
}

class DemoImage : public testing::Test {
  protected:
    static const Bytes& image() {
        static const Bytes made = demo::make_demo_image();
        return made;
    }
    const Reader rom{image()};
};

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
