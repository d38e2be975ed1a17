#include "support/demo_reader.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>

namespace veldrune::test {
namespace {

constexpr int map_count = 414;

struct Table {
    int pointers, base, size, end;
};
constexpr Table npcs{0x41C10, 0x41C10, 9, 0x50200};
constexpr Table chests{0x2D84F4, 0x2D8834, 5, 0x2D9100};
constexpr Table triggers{0x40200, 0x40200, 5, 0x41C10};
constexpr Table entrances{0x1FBD00, 0x1FBD00, 6, 0x1FDC00};
constexpr Table long_entrances{0x2DF680, 0x2DF680, 7, 0x2E0200};
constexpr Table tables[] = {npcs, chests, triggers, entrances, long_entrances};

class DemoObjects : public DemoImage {
  protected:
    std::vector<Bytes> list(const Table& table, int map) const {
        std::vector<Bytes> rows;
        const int end = table.base + rom.word(table.pointers + 2 * map + 2);
        for (int at = table.base + rom.word(table.pointers + 2 * map); at < end; at += table.size)
            rows.emplace_back(image().begin() + at, image().begin() + at + table.size);
        return rows;
    }
    int wide(int map) const { return std::max(rom.width(map, 0), rom.width(map, 1)); }
    int high(int map) const {
        return std::min(64, std::max(rom.height(map, 0), rom.height(map, 1)));
    }
    bool on_map(int map, int x, int y) const { return x < wide(map) && y < high(map); }
};

/// A way from one map to a place on another; a short one is a long one of no length.
struct Way {
    int x, y, length, map, to_x, to_y;
    bool down;
    bool beside(int px, int py) const {
        const int right = down ? x : x + length, bottom = down ? y + length : y;
        return px >= x - 1 && px <= right + 1 && py >= y - 1 && py <= bottom + 1;
    }
};

Way way_of(const Bytes& row) {
    const int length = row.size() == 7 ? row[2] : 0;
    const std::size_t rest = row.size() - 4;
    return {row[0],        row[1],        length & 127, row[rest] | row[rest + 1] << 8,
            row[rest + 2], row[rest + 3], length > 127};
}

TEST_F(DemoObjects, ListsFollowEachOtherInsideTheirAreas) {
    for (const Table& table : tables) {
        int at = table.base + rom.word(table.pointers);
        EXPECT_GE(at, table.pointers + 2 * (map_count + 1));
        std::size_t empty = 0, several = 0;
        for (int map = 0; map < map_count; ++map) {
            const int next = table.base + rom.word(table.pointers + 2 * map + 2);
            ASSERT_GE(next, at) << map;
            ASSERT_EQ((next - at) % table.size, 0) << map;
            empty += next == at;
            several += next - at > table.size;
            at = next;
        }
        EXPECT_LE(at, table.end);
        EXPECT_GT(empty, 0u);
        EXPECT_GT(several, 40u);
    }
}

TEST_F(DemoObjects, StandOnTheirMapsAndSomeShareATile) {
    bool shared = false;
    for (int map = 2; map < map_count; ++map) {
        std::set<std::pair<int, int>> tiles;
        for (const Table& table : tables)
            for (const Bytes& row : list(table, map)) {
                const bool npc = table.size == 9;
                const int x = row[npc ? 4 : 0], y = row[npc ? 5 : 1] & (npc ? 63 : 255);
                EXPECT_TRUE(on_map(map, x, y)) << map << ": " << x << ", " << y;
                shared |= !tiles.emplace(x, y).second;
            }
        EXPECT_FALSE(tiles.empty()) << map;
    }
    EXPECT_TRUE(shared);
}

TEST_F(DemoObjects, EveryWayLeadsSomewhereAndBack) {
    std::map<int, std::vector<Way>> ways;
    std::set<bool> directions;
    for (int map = 2; map < map_count; ++map)
        for (const Table& table : {entrances, long_entrances})
            for (const Bytes& row : list(table, map)) {
                ways[map].push_back(way_of(row));
                if (row.size() == 7)
                    directions.insert(row[2] > 127);
            }
    for (const auto& [map, list_of_map] : ways)
        for (const Way& way : list_of_map) {
            ASSERT_LT(way.map, map_count) << map;
            EXPECT_TRUE(on_map(way.map, way.to_x, way.to_y)) << map;
            EXPECT_TRUE(std::ranges::any_of(ways[way.map],
                                            [&, from = map](const Way& back) {
                                                return back.map == from &&
                                                       back.beside(way.to_x, way.to_y) &&
                                                       way.beside(back.to_x, back.to_y);
                                            }))
                << map << " to " << way.map;
        }
    EXPECT_EQ(ways.size(), 412u);
    EXPECT_EQ(directions.size(), 2u);
}

TEST_F(DemoObjects, PeopleHaveSpritesOfBothSizesAndChestsEveryKindOfContents) {
    std::set<int> sprites, contents, facings, speeds, palettes;
    for (int map = 2; map < map_count; ++map) {
        for (const Bytes& row : list(npcs, map)) {
            EXPECT_LE(row[6], 0x72);
            sprites.insert(row[6]);
            palettes.insert(row[2] >> 2 & 7);
            facings.insert(row[8] & 3);
            speeds.insert(row[5] >> 6);
        }
        for (const Bytes& row : list(chests, map))
            contents.insert(row[3] & 0xF8);
    }
    EXPECT_LT(*sprites.begin(), 87);
    EXPECT_GE(*sprites.rbegin(), 87);
    EXPECT_GT(sprites.size(), 50u);
    EXPECT_EQ(palettes.size(), 8u);
    EXPECT_EQ(facings.size(), 4u);
    EXPECT_EQ(speeds.size(), 4u);
    EXPECT_EQ(contents, (std::set{0x08, 0x10, 0x20, 0x40, 0x80}));
}

TEST_F(DemoObjects, SpritesLieInRoomOfTheirOwnAndDiffer) {
    std::set<Bytes> pictures;
    for (int sprite = 0; sprite <= 0x72; ++sprite) {
        const int at = (rom.byte(0xD43C + 2 * sprite) - 0xC0) * 0x10000 +
                       rom.word(0xD2F2 + 2 * sprite) + 0x200;
        const int first = sprite < 87 ? 0 : 32, end = sprite < 87 ? 6 * 32 : 5 * 32;
        ASSERT_GE(at, 0x12C200) << sprite; // behind the item names
        ASSERT_LE(at + end, 0x19CF90) << sprite;
        Bytes picture(image().begin() + at + first, image().begin() + at + end);
        EXPECT_GT(std::ranges::count_if(picture, [](int byte) { return byte != 0; }), 60) << sprite;
        pictures.insert(std::move(picture));
    }
    EXPECT_GT(pictures.size(), 110u);
    for (int colour = 0; colour < 256; ++colour)
        EXPECT_TRUE(colour % 16 == 0 || (rom.word(0x268200 + 2 * colour) & 0x7FFF) != 0) << colour;
}

TEST_F(DemoObjects, ItemsHaveNamesOfTheirOwn) {
    std::set<std::string> names;
    for (int item = 0; item < 256; ++item) {
        std::string name;
        for (int i = 0; i < 13; ++i) {
            const int code = rom.byte(0x12B500 + 13 * item + i);
            name += code < 154    ? static_cast<char>('A' + code - 128)
                    : code < 180  ? static_cast<char>('a' + code - 154)
                    : code == 255 ? ' '
                                  : '*';
        }
        EXPECT_NE(name.find_first_not_of(' '), std::string::npos) << item;
        names.insert(name);
    }
    EXPECT_GT(names.size(), 230u);
    EXPECT_TRUE(names.contains("Iron Spear   "));
}

} // namespace
} // namespace veldrune::test
