#include "inspect/check.h"
#include "inspect/room.h"
#include "map/chosen_map.h"
#include "rom/number_text.h"
#include "saving/expand.h"
#include "saving/save_layers.h"
#include "support/editor_fixture.h"
#include "support/image_reports.h"

#include <gtest/gtest.h>

namespace veldrune::inspect {
namespace {

using namespace rom_layout;
using test::Bytes;
using test::demo_bytes;
using test::hex_bytes;
using test::put_bytes;
using test::put_word;

constexpr int town = demo::demo_map::town;
constexpr std::size_t free_place = 0x2F8000; // blank, after the worlds
constexpr std::size_t free_script = 0xC0000; // a place that no script has and an NPC can name
constexpr int unused_number = 351;           // of layer data

std::vector<Finding> check(const Bytes& bytes) {
    const MemoryImage image{"a.smc", bytes};
    return check_image(read_whole(image));
}

std::size_t stream_at(const Bytes& bytes, int number) {
    const auto entry = static_cast<std::size_t>(data_pointer_offset(number));
    return static_cast<std::size_t>(layer_data) + bytes[entry] + (bytes[entry + 1] << 8) +
           (bytes[entry + 2] << 16);
}
void point_data(Bytes& bytes, int number, std::size_t offset) {
    put_bytes(bytes, static_cast<std::size_t>(data_pointer_offset(number)),
              pointer24_bytes(static_cast<std::int64_t>(offset) - layer_data));
}
void set_field(Bytes& bytes, int map, RecordField field, std::uint32_t value) {
    MapProperties record;
    const auto at = static_cast<std::size_t>(record_offset(map));
    std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(at), record.size(), record.begin());
    set_record_value(record, field, value);
    put_bytes(bytes, at, record);
}
int town_data(const Bytes& bytes) {
    MapProperties record;
    std::copy_n(bytes.begin() + record_offset(town), record.size(), record.begin());
    return layer_data_number(record, 0);
}
int length_at(const Bytes& bytes, std::size_t at) {
    return bytes[at] | bytes[at + 1] << 8;
}
Bytes taken(const Bytes& bytes, std::size_t at) {
    const auto first = bytes.begin() + static_cast<std::ptrdiff_t>(at);
    return {first, first + length_at(bytes, at)};
}
// Makes the length field of the town's first layer say more or less.
void stretch(Bytes& bytes, int more) {
    const std::size_t at = stream_at(bytes, town_data(bytes));
    put_word(bytes, at, static_cast<std::size_t>(length_at(bytes, at) + more));
}
std::size_t dawn_at(const Bytes& bytes) {
    return static_cast<std::size_t>(offset_of_address(bytes[dawn_map_pointer] |
                                                      bytes[dawn_map_pointer + 1] << 8 |
                                                      bytes[dawn_map_pointer + 2] << 16));
}
// The pointer after the last map's: it ends that map's list.
void end_last_list(Bytes& bytes, std::int32_t pointers, int past_begin) {
    const auto at = static_cast<std::size_t>(pointers + 2 * map_count);
    put_word(bytes, at, static_cast<std::size_t>(length_at(bytes, at - 2) + past_begin));
}
// The town's first record of a kind.
std::size_t town_record(const Bytes& bytes, ObjectKind kind) {
    const ObjectKindRow& row = object_kind_row(kind);
    return static_cast<std::size_t>(
        row.base + length_at(bytes, static_cast<std::size_t>(row.pointers + 2 * town)));
}
// A script of its own for the town's first NPC.
void give_script(Bytes& bytes, const Bytes& script) {
    put_bytes(bytes, free_script, script);
    const std::size_t at = town_record(bytes, ObjectKind::npc);
    const std::size_t event = free_script - event_scripts;
    put_word(bytes, at, event);
    bytes[at + 2] = static_cast<std::uint8_t>((bytes[at + 2] & 0xFC) | event >> 16);
}
void patch(Bytes& bytes) {
    test::OpenImage image(bytes);
    PatchFlags flags{};
    apply_dialogue_patch(image.rom, flags, image.dialogs);
    bytes = image.bytes();
}

struct Fault {
    const char* check;
    const char* place; // its beginning
    void (*plant)(Bytes&);
};

// clang-format off
constexpr Fault faults[] = {
    {"stream-outside", "map 2 layer 1 at 119D3AF", [](Bytes& b) { point_data(b, town_data(b), 0x119D3AF); }},
    {"stream-outside", "map 2 layer 1 at 3001FD", [](Bytes& b) { put_word(b, 0x3001FD, 4); point_data(b, town_data(b), 0x3001FD); }},
    {"stream-overlap", "map 2 layer 1 at ", [](Bytes& b) { stretch(b, 2); }},
    {"stream-structure", "map 2 layer 1 at ", [](Bytes& b) {
        const Bytes stream = taken(b, stream_at(b, town_data(b)));
        point_data(b, town_data(b), patch_marks - stream.size());
        put_bytes(b, patch_marks - stream.size(), stream);
        stretch(b, 1);
    }},
    {"stream-short", "map 2 layer 1 at ", [](Bytes& b) { stretch(b, -10); }},
    {"world-long", "World of Dawn map at 2F8000", [](Bytes& b) {
        put_bytes(b, free_place, taken(b, dawn_at(b)));
        put_word(b, free_place, 0x8000);
        put_bytes(b, dawn_map_pointer, pointer24_bytes(address_of_offset(free_place)));
    }},
    {"world-short", "World of Dawn map at ", [](Bytes& b) { put_word(b, dawn_at(b), static_cast<std::size_t>(length_at(b, dawn_at(b)) - 9)); }},
    {"list-falls", "map 413 npc list", [](Bytes& b) { end_last_list(b, npcs, -9); }},
    {"list-long", "map 413 long-entrance list", [](Bytes& b) { end_last_list(b, long_entrances, 256 * 7); }},
    {"list-part", "map 413 chest list", [](Bytes& b) { end_last_list(b, chest_pointers, 6); }},
    {"list-elsewhere", "map 413 chest list", [](Bytes& b) { end_last_list(b, chest_pointers, 55); }},
    {"script-endless", "map 2 npc 0 event C0000", [](Bytes& b) { give_script(b, Bytes(10001, 0x38)); }},
    {"jump-outside", "script C0000 at C0001", [](Bytes& b) { give_script(b, hex_bytes("38 B2 FF FF FF FE")); }},
    {"dialogue-outside", "script C0000 at C0000", [](Bytes& b) { give_script(b, hex_bytes("4B FF 0C FE")); }},
    {"dialogue-outside", "script C0000 at C0000", [](Bytes& b) {
        give_script(b, hex_bytes("4B FE 0C FE"));
        patch(b);
        put_bytes(b, new_dialogue_pointers + 3 * 3326, hex_bytes("FF FF FF"));
    }},
    {"patch-code", "Dialogue Patch", [](Bytes& b) { patch(b); b[dialogue_routine] ^= 1; }},
    {"patch-mark", "Dialogue Patch", [](Bytes& b) { patch(b); b[patch_marks + 1] = 0xFF; }},
    {"patch-table", "Dialogue Patch", [](Bytes& b) { patch(b); b.resize(image_size); }},
    {"patch-table", "Dialogue Patch", [](Bytes& b) {
        patch(b);
        b.resize(image_size);
        b.resize(expanded_image_size);
    }},
};
// What may be meant.
constexpr Fault oddities[] = {
    {"stream-overlap", "map 2 layer 1 at ", [](Bytes& b) { stretch(b, 1); }},
    {"stream-outside", "map 1 layer 1 at ", [](Bytes& b) {
        set_field(b, 1, RecordField::layer1_data, unused_number);
        point_data(b, unused_number, 0x119D3AF);
    }},
    {"list-empty", "script C0000 at C0000", [](Bytes& b) { give_script(b, hex_bytes("BE 00 4B FF 0C FE")); }},
    {"jump-inside", "script C0000 at C0000", [](Bytes& b) { give_script(b, hex_bytes("B2 02 FE 01 FE")); }},
    {"load-map", "script C0000 at C0000", [](Bytes& b) { give_script(b, hex_bytes("6A 9E 01 00 00 00 FE")); }},
    {"load-map", "script C0000 at C0000", [](Bytes& b) { give_script(b, hex_bytes("6B 02 00 40 00 00 FE")); }},
    {"map-number", "map 2 palette", [](Bytes& b) { set_field(b, town, RecordField::palette, 48); }},
    {"map-size", "map 2 layer 1", [](Bytes& b) { set_field(b, town, RecordField::layer1_height, 3); }},
    {"file-length", "file", [](Bytes& b) { b.push_back(0); }},
    {"object-number", "map 2 npc 0", [](Bytes& b) { b[town_record(b, ObjectKind::npc) + 6] = 165; }},
    {"target-place", "map 2 entrance 0", [](Bytes& b) { b[town_record(b, ObjectKind::entrance) + 5] = 64; }},
};
// clang-format on

// What is found in the demo image after planting, and was not before.
std::vector<Finding> planted(const Fault& fault) {
    Bytes bytes = demo_bytes();
    fault.plant(bytes);
    std::vector<Finding> findings = check(bytes);
    remove_known(findings, check(demo_bytes()));
    return findings;
}

void expect_only(const Fault& fault, const std::vector<Finding>& findings) {
    EXPECT_FALSE(findings.empty()) << fault.check;
    for (const Finding& finding : findings) {
        EXPECT_STREQ(finding.check, fault.check) << finding.place << ": " << finding.why;
        EXPECT_TRUE(finding.place.starts_with(fault.place)) << finding.place;
    }
}

TEST(Check, FindsEveryPlantedFaultAndNoOther) {
    std::vector<Finding> findings = check(demo_bytes());
    remove_unusual(findings);
    EXPECT_TRUE(findings.empty());
    for (const Fault& fault : faults) {
        std::vector<Finding> found = planted(fault);
        remove_unusual(found);
        expect_only(fault, found);
    }
    for (const Fault& oddity : oddities) {
        const std::vector<Finding> found = planted(oddity);
        expect_only(oddity, found);
        EXPECT_TRUE(std::ranges::all_of(found, [](const Finding& f) {
            return f.grade == Grade::unusual;
        })) << oddity.check;
    }
}

TEST(Check, BearsAnyBytes) {
    test::Random random(15);
    for (const int changes : {0, 100, 10000, 1000000}) {
        Bytes bytes(0x40200 + random.engine() % 0x3C0000);
        if (changes == 0)
            random.fill(bytes);
        else
            bytes = demo_bytes();
        for (int i = 0; i < changes; ++i)
            bytes[random.engine() % bytes.size()] = random.byte();
        const MemoryImage image{"a.smc", std::move(bytes)};
        const ImageReading reading = read_whole(image);
        EXPECT_FALSE(check_image(reading).empty());
        for (const Room& room : find_room(reading))
            EXPECT_TRUE(room.size > 0 && image.holds(room.offset, room.size));
    }
}

TEST(Check, SumsUpWhatIsMoreThanAsked) {
    const Finding finding{"a", Grade::unusual, "place", "why", ""};
    std::vector<Finding> findings(12, finding);
    findings.push_back({"b", Grade::fault, "place", "why", ""});
    EXPECT_EQ(list_findings(findings, 12).rows.size(), 13u);
    const auto rows = list_findings(findings, 10).rows;
    ASSERT_EQ(rows.size(), 12u);
    EXPECT_EQ(rows[0][0].text, "fault");
    EXPECT_EQ(rows[11][2].value, 2);
}

std::vector<Room> room_of(const Bytes& bytes) {
    const MemoryImage image{"a.smc", bytes};
    return find_room(read_whole(image));
}
// A number of layer data whose stream no other number has, and of 300 bytes and more.
int unshared_number(const Bytes& bytes) {
    for (int number = 0;; ++number) {
        int sharing = 0;
        for (int other = 0; other < layer_data_pointer_count; ++other)
            sharing += stream_at(bytes, other) == stream_at(bytes, number);
        if (sharing == 1 && length_at(bytes, stream_at(bytes, number)) >= 300)
            return number;
    }
}
bool has_room(const std::vector<Room>& rooms, Room wanted) {
    return std::ranges::any_of(rooms, [&](const Room& r) {
        return r.kind == wanted.kind && r.offset == wanted.offset && r.size == wanted.size &&
               r.contents == wanted.contents;
    });
}

TEST(Room, IsWhatAMovedStreamLeaves) {
    Bytes bytes = demo_bytes();
    const int number = unshared_number(bytes);
    const std::size_t at = stream_at(bytes, number);
    const int size = length_at(bytes, at);
    put_bytes(bytes, free_place, taken(bytes, at));
    point_data(bytes, number, free_place);
    const auto offset = static_cast<std::int64_t>(at);
    EXPECT_TRUE(has_room(room_of(bytes), {RoomKind::between, offset, size, RoomContents::data}));
    put_bytes(bytes, at, Bytes(static_cast<std::size_t>(size), 0xFF));
    EXPECT_TRUE(has_room(room_of(bytes), {RoomKind::between, offset, size, RoomContents::erased}));
    bytes[at + 256] = 1;
    const auto split = room_of(bytes);
    EXPECT_TRUE(has_room(split, {RoomKind::between, offset, 256, RoomContents::erased}));
    EXPECT_TRUE(has_room(split, {RoomKind::between, offset + 256, size - 256, RoomContents::data}));
    bytes.resize(expanded_image_size);
    EXPECT_TRUE(
        has_room(room_of(bytes), {RoomKind::added, 0x3028FD, 0xFD903, RoomContents::zeros}));
}

TEST(Room, IsBestWhereItIsSmallestAndCrossesNoBank) {
    EXPECT_EQ(crossed_bank(0x2001F0, 16), std::nullopt);
    EXPECT_EQ(crossed_bank(0x2001F0, 17), 0x200200);
    const auto between = RoomKind::between;
    const std::vector<Room> rooms = {
        {between, 0x0FF000, 40, RoomContents::zeros},
        {between, 0x1A0000, 100, RoomContents::data},
        {between, 0x1A1000, 200, RoomContents::zeros},
        {between, 0x1A2000, 150, RoomContents::erased},
        {between, 0x2001F0, 90, RoomContents::zeros},
    };
    const struct {
        std::int64_t bytes;
        StreamKind kind;
        std::int64_t offset; // -1: none
    } rows[] = {
        {40, StreamKind::layer, 0x0FF000},  {40, StreamKind::world, 0x200200},
        {75, StreamKind::layer, 0x1A2000},  {150, StreamKind::layer, 0x1A2000},
        {151, StreamKind::layer, 0x1A1000}, {201, StreamKind::layer, -1},
    };
    for (const auto& row : rows) {
        const auto best = best_room(rooms, row.bytes, row.kind);
        EXPECT_EQ(best ? best->offset : -1, row.offset) << row.bytes;
    }
    EXPECT_EQ(best_room({rooms.back()}, 80, StreamKind::layer)->offset, 0x2001F0);
}

TEST(Room, TakesASaveThatChangesNothingElse) {
    for (const int map : {town, demo::demo_map::forest, demo::demo_map::cave}) {
        test::Editor editor;
        const auto facts = [&] {
            const MemoryImage image{"a.smc", editor.image()};
            std::vector<std::string> lines;
            for (const Fact& fact : test::facts_of(read_whole(image)))
                lines.push_back(fact.key + fact.value);
            return lines;
        };
        const std::vector<std::string> before = facts();
        editor.choose(map);
        const int size = editor.s.map.layers[0].layer_packed_size;
        const auto place = best_room(room_of(editor.image()), size, StreamKind::layer);
        ASSERT_TRUE(place);
        editor.form.*layer_controls[0].location = format_hex(place->offset);
        const auto& layers = editor.s.map.layers;
        const auto packed = pack_layers(editor.form, layers, editor.s.work.compress_output);
        EXPECT_TRUE(save_layers(editor.s.rom, editor.form, layers, packed, editor.dialogs));
        EXPECT_EQ(taken(editor.image(), static_cast<std::size_t>(place->offset)).size(),
                  static_cast<std::size_t>(size));
        EXPECT_EQ(facts(), before) << map;
    }
}

} // namespace
} // namespace veldrune::inspect
