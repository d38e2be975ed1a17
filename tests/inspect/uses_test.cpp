#include "events/script_decoder.h"
#include "inspect/dialogue_listing.h"
#include "inspect/dump.h"
#include "inspect/field_names.h"
#include "inspect/map_reports.h"
#include "inspect/object_listing.h"
#include "inspect/script_listing.h"
#include "inspect/tile_uses.h"
#include "inspect/uses.h"
#include "map/chosen_map.h"
#include "rom/number_text.h"
#include "support/editor_fixture.h"
#include "support/object_image.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace veldrune::inspect {
namespace {

using test::Bytes;
using test::demo_bytes;
using test::hex_bytes;

const ImageReading& demo_reading() {
    static const MemoryImage image{"a.smc", demo_bytes()};
    static const ImageReading reading = read_whole(image);
    return reading;
}

// The cells of these columns, less blank ones, with blanks between them; a line a row.
std::string text_of(const Listing& listing, const std::set<std::string>& keys) {
    std::string text;
    for (const std::vector<Cell>& row : listing.rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i)
            if (const std::string cell = cell_text(row[i], listing.columns[i].form);
                keys.contains(listing.columns[i].key) && !cell.empty())
                line.append(line.empty() ? "" : " ").append(cell);
        text += line + "\n";
    }
    return text;
}

const std::string& words(const std::vector<Cell>& row, std::size_t column) {
    return row[column].text;
}

// Every row, its place and its bytes; the place where it goes on, if it does.
void expect_rows_of_grid(const ImageReading& reading, const WalkedScript& script) {
    const MemoryRom rom(reading.image);
    ScriptGrid grid;
    load_script(rom.rom(), script.offset, reading.dialogue_patched, grid);
    const Listing listing = list_script(reading, script.offset, true);
    std::int64_t next = script.offset;
    std::size_t row = 0;
    for (const std::vector<Cell>& cells : listing.rows) {
        if (words(cells, 5).starts_with("goes on at ")) {
            EXPECT_EQ(script.goes_on_at, cells[0].value);
            EXPECT_EQ(++row, listing.rows.size());
            return;
        }
        for (const ScriptColumn column : {primary, secondary, tertiary, explanation}) {
            const std::string& cell = row_at(grid, 1 + static_cast<int>(row)).cells[column];
            const std::size_t blank = column == explanation || is_blank(cell) ? 0 : 1;
            EXPECT_EQ(cell_text(cells[2 + column], CellForm::words),
                      is_blank(cell) ? "" : cell.substr(blank));
        }
        const auto size = static_cast<std::int64_t>((words(cells, 1).size() + 1) / 3);
        EXPECT_TRUE(cells[0].value == next || cells[0].value == next - 1); // of one byte's halves
        next = cells[0].value + size;
        EXPECT_EQ(words(cells, 1), hex_text(reading.image.at(cells[0].value, size)));
        ++row;
    }
    EXPECT_EQ(row + 2, grid.size());
}

TEST(ScriptListing, HasTheRowsOfTheGrid) {
    for (const WalkedScript& script : demo_reading().scripts.scripts)
        expect_rows_of_grid(demo_reading(), script);
    test::Random random(15);
    MemoryImage image{"a.smc", demo_bytes()};
    for (std::size_t at = rom_layout::event_scripts; at < 0xA8000; ++at)
        image.bytes[at] = random.byte();
    const ImageReading reading = read_whole(image);
    for (std::size_t i = 0; i < reading.scripts.scripts.size(); i += 9)
        expect_rows_of_grid(reading, reading.scripts.scripts[i]);
}

// The offsets of the rows of a script that are no more than perhaps one.
TEST(ScriptListing, MarksWhatIsNotSure) {
    MemoryImage image{"a.smc", Bytes(rom_layout::image_size)};
    test::put_objects(image.bytes, ObjectKind::npc, 2, {Bytes(9)});
    test::put_bytes(image.bytes, rom_layout::event_scripts, hex_bytes("38 51 01 02 03 38 FE FE"));
    const ImageReading reading = read_whole(image);
    EXPECT_EQ(text_of(list_script(reading, 0xA0200, false), {"at", "command", "certainty"}),
              "A0200 38 sure\nA0201 51 perhaps\nA0202 perhaps\nA0203 perhaps\nA0204 perhaps\n"
              "A0205 38 perhaps\nA0206 FE perhaps\n");
    EXPECT_EQ(text_of(list_script(reading, 0xA0207, false), {"at", "certainty"}),
              "A0207 perhaps\n");
    EXPECT_EQ(text_of(list_scripts(reading), {"script", "length", "commands", "objects"}),
              "A0200 7 4 1\n");
}

// Objects of map 2, whose script is at A0200.
MemoryImage made_image(const char* script) {
    MemoryImage image{"a.smc", Bytes(rom_layout::image_size)};
    // Flag 1EE0:5, sprite 9; chests: flag 1:2 with an item, GP, a monster; entrances
    test::put_objects(image.bytes, ObjectKind::npc, 2, {hex_bytes("00 00 40 01 11 12 09 00 02")});
    test::put_objects(
        image.bytes, ObjectKind::chest, 2,
        {hex_bytes("01 02 0A 40 09"), hex_bytes("01 02 0B 80 09"), hex_bytes("01 02 0B 60 09")});
    test::put_objects(image.bytes, ObjectKind::entrance, 2,
                      {hex_bytes("01 02 07 00 03 04"), hex_bytes("01 02 07 02 03 04")});
    test::put_objects(image.bytes, ObjectKind::long_entrance, 2,
                      {hex_bytes("01 02 03 07 00 03 04")});
    image.bytes[static_cast<std::size_t>(record_offset(3)) + 28] = 5; // its song
    test::put_bytes(image.bytes, rom_layout::event_scripts, hex_bytes(script));
    return image;
}

TEST(Uses, FindsWhatRefersToSomething) {
    constexpr std::int64_t flags = 8 * 0x1E80;
    const struct {
        const char* script;
        Use use;
        std::int64_t value;
        const char* found;
    } rows[] = {
        {"D0 0D D1 0D D2 0D FE", Use::flag, flags + 0xD,
         "command A0200 sure\ncommand A0202 sure\n"},
        {"DD FF FE", Use::flag, 8 * 0x1F40 + 0xFF, "command A0200 sure\n"},
        {"10 05 E5 07 E2 07 FF FE", Use::flag, flags + 0x107,
         "action A0200 sure\naction A0200 sure\n"},
        {"C1 05 83 05 03 00 00 00 FE", Use::flag, 8 * 0x1EE0 + 5,
         "npc 0 sure\ncommand A0200 perhaps\ncommand A0200 perhaps\n"},
        {"B8 03 BC 03 00 FE", Use::flag, 8 * 0x1DC9 + 3, "command A0200 sure\n"},
        {"BC 03 00 FE", Use::flag, flags + 3, "command A0200 perhaps\n"},
        {"51 00 00 00 D0 0D FE", Use::flag, flags + 0xD, "command A0204 perhaps\n"},
        {"FE", Use::chest_flag, 8 + 2, "chest 0 sure\n"},
        {"B2 00 00 00 FE", Use::event, 0xA0200, "npc 0 sure\ncommand A0200 sure\n"},
        {"BE 02 06 06 06 00 00 00 05 05 F9 06 06 06 FF FE", Use::event, 0x100806,
         "command A0200 sure\naction A0208 sure\n"},
        {"4B 03 80 48 03 40 4B 04 00 FE", Use::dialogue, 3,
         "command A0200 sure\ncommand A0203 sure\n"},
        {"6A 07 00 01 02 00 6B 07 02 01 02 00 FE", Use::map, 7,
         "entrance 0 sure\nlong-entrance 0 sure\ncommand A0200 sure\n"
         "entrance 1 perhaps\ncommand A0206 perhaps\n"},
        {"80 09 81 09 80 0A FE", Use::item, 9,
         "chest 0 sure\ncommand A0200 sure\ncommand A0202 sure\n"},
        {"EF 05 FF F0 05 F1 05 01 F0 01 FE", Use::song, 5,
         "map sure\ncommand A0200 sure\ncommand A0203 sure\ncommand A0205 sure\n"},
        {"37 09 05 37 05 09 FE", Use::sprite, 9, "npc 0 sure\ncommand A0203 sure\n"},
        {"73 00 00 02 01 06 09 FE", Use::tile, 9, "command A0200 perhaps\n"},
    };
    for (const auto& row : rows) {
        const MemoryImage image = made_image(row.script);
        Listing listing = list_uses(read_whole(image), {row.use, row.value});
        for (std::vector<Cell>& cells : listing.rows)
            if (cells[0].text != "command" && cells[0].text != "action")
                cells[4] = {}; // where an object lies is its list's matter
        EXPECT_EQ(text_of(listing, {"what", "number", "at", "certainty"}), row.found) << row.script;
    }
}

TEST(ObjectListing, ShowsValuesAsTheWindow) {
    const MemoryImage image = made_image("FE");
    const ImageReading reading = read_whole(image);
    EXPECT_EQ(text_of(object_lines(reading, 2), {"kind", "column", "row", "values"}),
              "npc 11 12 event A0200, palette 0, flag 1EE0:5, speed Slowest, sprite 9, movement 0, "
              "vehicle None, facing Down, turn-to-talk\n"
              "chest 1 2 flag 1:2, Item, contents 9 \n"
              "chest 1 2 flag 1:3, GP, contents 9 \n"
              "chest 1 2 flag 1:3, Monster in a Box, contents 9 \n"
              "entrance 1 2 target-map 7, target-column 3, target-row 4\n"
              "entrance 1 2 target-map 207, target-column 3, target-row 4\n"
              "long-entrance 1 2 target-map 7, target-column 3, target-row 4, width 3\n");
    EXPECT_TRUE(object_lines(reading, 5).rows.empty());
    Listing table = object_table(reading, {});
    table.rows.resize(2);
    EXPECT_EQ(text_of(table, {"kind", "event", "flag", "turn-to-talk"}),
              "npc 655872 63237 1\nchest 10\n");
}

TEST(Tiles, AreCountedAsTheMapsHaveThem) {
    const MemoryRom rom(demo_reading().image);
    const auto buffer = std::make_unique<DecompressBuffer>();
    const auto map = std::make_unique<ChosenMap>();
    std::array<std::int64_t, 256> cells{};
    const auto set = record_value(demo_reading().records[2], RecordField::layer2_formation);
    for (int number = 0; number < rom_layout::map_count; ++number) {
        load_map(rom.rom(), number, *buffer, *map);
        for (const int layer : {0, 1})
            if (record_value(map->map_properties, layer_fields[layer].formation) == set) {
                const LayerSize size = layer_size(map->map_properties, layer);
                for (int y = 0; y < size.height; ++y)
                    for (int x = 0; x < size.width; ++x)
                        ++cells[map->layers[static_cast<std::size_t>(layer)].map.at(x, y)];
            }
    }
    const Listing all = list_tiles(demo_reading(), static_cast<int>(set), false);
    for (std::size_t tile = 0; tile < cells.size(); ++tile) {
        EXPECT_EQ(all.rows[tile][1].value, cells[tile]) << tile;
        std::int64_t sum = 0;
        for (const auto& row :
             list_tile_uses(demo_reading(), static_cast<std::uint8_t>(tile), static_cast<int>(set))
                 .rows)
            sum += row[0].text == "map" ? row[3].value : 0;
        EXPECT_EQ(sum, cells[tile]) << tile;
    }
    EXPECT_EQ(std::ssize(list_tiles(demo_reading(), static_cast<int>(set), true).rows),
              std::ranges::count(cells, 0));
}

// The commands to which a walk from an offset comes.
void walk(const std::map<std::int64_t, const WalkedCommand*>& commands, std::int64_t offset,
          std::set<std::int64_t>& met) {
    for (auto at = commands.find(offset); at != commands.end() && met.insert(offset).second;
         at = commands.find(offset)) {
        CommandItems items;
        read_items(demo_reading().image, *at->second, items);
        for (const ScriptItem& item : items.items)
            if (item.kind == ParameterKind::pointer && item.level == ScriptLevel::value)
                walk(commands, item.value, met);
        for (const std::int64_t target : items.list)
            walk(commands, target, met);
        if (at->second->code == return_command)
            return;
        offset = at->second->end();
    }
}

TEST(Dialogues, NameEveryObjectThatComesToThem) {
    std::map<std::int64_t, const WalkedCommand*> commands;
    for (const WalkedCommand& command : demo_reading().scripts.commands)
        commands[command.offset] = &command;
    std::map<std::int64_t, std::string> names;
    std::map<std::int64_t, std::set<std::int64_t>> maps, loading;
    for (const ObjectAt& object : demo_reading().objects) {
        const auto script = script_offset(object.kind, object.bytes);
        std::set<std::int64_t> met, shown;
        if (script)
            walk(commands, *script, met);
        for (const std::int64_t offset : met) {
            if (loads_map(commands[offset]->code))
                loading[offset].insert(object.map);
            if (commands[offset]->dialogue >= 0)
                shown.insert(commands[offset]->dialogue);
        }
        for (const std::int64_t dialogue : shown) {
            names[dialogue]
                .append(names[dialogue].empty() ? "" : ", ")
                .append(object_place(object));
            maps[dialogue].insert(object.map);
        }
    }
    ASSERT_GT(names.size(), 100u);
    for (const auto& row : list_dialogues(demo_reading(), {.all_objects = true}).rows) {
        const std::set<std::int64_t>& own = maps[row[0].value];
        EXPECT_EQ(row[5].text, names[row[0].value]);
        EXPECT_EQ(row[4].values, (std::vector<std::int64_t>{own.begin(), own.end()}));
    }
    const auto ways = [](std::int64_t map, const char* what) {
        std::map<std::int64_t, std::vector<std::int64_t>> found; // by the command's offset
        for (const auto& row : list_map(demo_reading(), static_cast<int>(map)).rows)
            if (row[0].text.starts_with(what))
                found[std::stoi(row[0].text.substr(row[0].text.rfind(' ')), nullptr, 16)] =
                    row[1].values;
        return found;
    };
    ASSERT_GT(loading.size(), 1u);
    for (const auto& [offset, own] : loading) {
        CommandItems items;
        read_items(demo_reading().image, *commands[offset], items);
        EXPECT_EQ(ways(items.items[1].value, "from: script")[offset],
                  (std::vector<std::int64_t>{own.begin(), own.end()}));
    }
    for (const std::int64_t map : {0, 2, 3, 4, 5, 8})
        for (const auto& [offset, own] : loading)
            EXPECT_EQ(ways(map, "exit: script").contains(offset), own.contains(map)) << map;
}

TEST(Dialogues, AreFoundWhateverTheCase) {
    const Listing found = list_dialogues(demo_reading(), {.find = "cOLD and SWEET"});
    ASSERT_FALSE(found.rows.empty());
    for (const auto& row : found.rows)
        EXPECT_NE(row[2].text.find("Cold and sweet"), std::string::npos);
    EXPECT_TRUE(list_dialogues(demo_reading(), {.number = 0, .find = "cold"}).rows.empty());
}

} // namespace
} // namespace veldrune::inspect
