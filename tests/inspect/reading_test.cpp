#include "inspect/ownership.h"
#include "map/chosen_map.h"
#include "support/editor_fixture.h"
#include "support/image_reports.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <set>

namespace veldrune::inspect {
namespace {

using test::demo_bytes;
using test::hex_bytes;

const MemoryImage& demo() {
    static const MemoryImage image{"a.smc", demo_bytes()};
    return image;
}
const ImageReading& demo_reading() {
    static const ImageReading reading = read_whole(demo());
    return reading;
}

TEST(MemoryImage, IsReadFromAFileThatNobodyMayWrite) {
    const std::unique_ptr<FileLayer> disk = make_disk();
    const auto path = std::filesystem::temp_directory_path() / "veldrune-reading-test.smc";
    ASSERT_EQ(write_file(*disk, path.string(), hex_bytes("01 02 03")), std::nullopt);
    std::filesystem::permissions(path, std::filesystem::perms::owner_read);
    MemoryImage image;
    EXPECT_EQ(read_image(*disk, path.string(), image), std::nullopt);
    EXPECT_EQ(image.bytes, hex_bytes("01 02 03"));
    EXPECT_FALSE(disk->open_to_read(path.string())->write_at(0, image.bytes));
    EXPECT_EQ(MemoryRom(image).rom().read_word(2), 0xFF03);
    std::filesystem::permissions(path,
                                 std::filesystem::perms::owner_all); // or some can't remove it
    std::filesystem::remove(path);
    EXPECT_NE(read_image(*disk, path.string(), image), std::nullopt);
}

TEST(Reading, HasTheStreamsThatALoadKeeps) {
    const MemoryRom rom(demo());
    const auto buffer = std::make_unique<DecompressBuffer>();
    const auto map = std::make_unique<ChosenMap>();
    for (int number = 0; number < rom_layout::map_count; ++number) {
        load_map(rom.rom(), number, *buffer, *map);
        for (int layer = 0; layer < layer_count; ++layer) {
            const Layer& loaded = map->layers[static_cast<std::size_t>(layer)];
            const LayerSize size = layer_size(map->map_properties, layer);
            const LayerSize kept = kept_size(size);
            const LayerStream& stream =
                *demo_reading().stream(layer_data_number(map->map_properties, layer));
            EXPECT_EQ(stream.packed.offset, rom_layout::layer_data + loaded.layer_offset);
            EXPECT_EQ(stream.packed.packed_size, loaded.layer_packed_size);
            EXPECT_GE(stream.size.width * stream.size.height, size.width * size.height);
            EXPECT_TRUE(std::ranges::any_of(stream.users, [&](StreamUser user) {
                return user.map == number && user.layer == layer;
            }));
            test::Bytes tiles(static_cast<std::size_t>(kept.width * kept.height));
            pack_layer(loaded.map, kept.width, kept.height, tiles);
            ASSERT_GE(stream.packed.bytes.size(), tiles.size());
            EXPECT_TRUE(
                std::ranges::equal(tiles, std::span(stream.packed.bytes).first(tiles.size())));
        }
    }
}

// "start: commands" of each script, offsets from the first byte: "?" marks what is a script only
// perhaps, "." a script that ends and ">" the script where another one's commands follow.
std::string walked(const test::Bytes& bytes, const std::vector<int>& roots) {
    constexpr int base = rom_layout::event_scripts;
    MemoryImage image{"a.smc", {}};
    test::put_bytes(image.bytes, base, bytes);
    std::vector<ScriptRoot> all;
    std::ranges::transform(roots, std::back_inserter(all), [](int root) {
        return ScriptRoot{base + root, 0};
    });
    const ScriptWalk walk = walk_scripts(image, false, all);
    std::string text;
    for (const WalkedScript& script : walk.scripts) {
        text += std::to_string(script.offset - base) + (script.sure ? ":" : "?:");
        for (const WalkedCommand& command : walk.commands_of(script))
            text += ' ' + std::to_string(command.offset - base) + (command.sure ? "" : "?");
        if (script.goes_on_at)
            text += " >" + std::to_string(*script.goes_on_at - base);
        text += script.length ? ". " : " ";
    }
    return text;
}

TEST(ScriptWalk, IsSureUpToTheFirstDoubt) {
    const struct {
        const char* bytes;
        std::vector<int> roots;
        const char* walk;
    } rows[] = {
        {"38 3D FE 38 FE", {0}, "0: 0 1 3 4. "},
        {"B2 06 00 00 FE 00 38 FE", {0}, "0: 0 4. 6: 6 7. "},
        {"B2 06 00 00 FE 00 38", {0}, "0: 0 4. 6: 6 "}, // cut by the end of the file
        {"38 38 FE", {0, 1}, "0: 0 >1. 1: 1 2. "},
        {"3D 38 38 FE", {0, 1}, "0: 0 2 3. 1: 1 >2. "}, // from within a command
        {"B2 00 00 00 FE", {0}, "0: 0 4. "},
        {"B2 FF FF FF FE", {0, 1000}, "0: 0 4. "}, // targets outside the file
        {"51 01 02 03 FE", {0}, "0: 0? 4?. "},
        {"53 00 00 00 B2 09 00 00 FE 38 FE", {0}, "0: 0? 4? 8?. 9?: 9? 10?. "},
        {"53 00 00 00 B2 09 00 00 FE 38 FE", {0, 9}, "0: 0? 4? 8?. 9: 9 10. "},
        {"B6 FE", {0}, "0: 0? 1?. "}, // no dialogue before it
        {"BE 01 09 00 00 B6 09 00 00 FE", {0}, "0: 0 5? >9. 9: 9. "},
        {"BE 00 FE", {0}, "0: 0? 2?. "},
        {"73 00 00 00 05 FE", {0}, "0: 0? 5?. "},
        {"73 00 00 01 02 AA BB FE", {0}, "0: 0 7. "},
        {"05 00 FE", {0}, "0: 0? 2?. "},
        {"05 02 80 E0 05 FE", {0}, "0: 0? 5?. "}, // the last action goes beyond
        {"05 82 80 FF FE", {0}, "0: 0 4. "},
        {"05 05 F9 08 00 00 FF FE FE", {0}, "0: 0 7. "}, // leads to actions
        {"FE", {0}, "0: 0. "},
    };
    for (const auto& row : rows)
        EXPECT_EQ(walked(hex_bytes(row.bytes), row.roots), row.walk) << row.bytes;
    EXPECT_EQ(walked(test::Bytes(10001, 0xFE), {0}), "0: 0. ");
    test::Bytes longest(10002, 0x38);
    longest.back() = 0xFE;
    EXPECT_TRUE(walked(longest, {1}).ends_with(" 10001. "));
    EXPECT_TRUE(walked(longest, {0}).ends_with(" 10000 "));
}

TEST(Ownership, AgreesWithMarksOnEveryByte) {
    const Ownership ownership(demo_reading());
    std::vector<bool> owned(demo_bytes().size());
    for (const OwnedRange& range : ownership.ranges())
        std::fill(owned.begin() + range.begin, owned.begin() + range.end, true);
    test::Random random(12);
    for (int i = 0; i < 300; ++i) {
        const std::int64_t begin = 0x190000 + random.below(0x50000);
        const std::int64_t end = begin + random.below(2000);
        std::vector<bool> gaps(static_cast<std::size_t>(end - begin), true);
        for (const ByteRange& gap : ownership.gaps_in(begin, end))
            std::fill(gaps.begin() + (gap.begin - begin), gaps.begin() + (gap.end - begin), false);
        EXPECT_TRUE(std::equal(gaps.begin(), gaps.end(), owned.begin() + begin));
        for (const OwnedRange& range : ownership.ranges())
            EXPECT_EQ(range.begin < end && range.end > begin,
                      std::ranges::count(ownership.owners_in(begin, end), range) == 1);
    }
    const auto owners = ownership.owners_in(record_offset(3), record_offset(4));
    ASSERT_EQ(owners.size(), 1u);
    EXPECT_EQ(owner_name(owners[0]), "map records");
}

TEST(Dump, ShowsEveryByteOfTablesAndRecords) {
    const Ownership ownership(demo_reading());
    const auto values = [](const ImageReading& reading) {
        std::set<std::string> lines;
        for (const Fact& fact : test::facts_of(reading))
            lines.insert(fact.key + ' ' + fact.value);
        return lines;
    };
    const std::set<std::string> before = values(demo_reading());
    EXPECT_EQ(before.size(), test::facts_of(demo_reading()).size());
    test::Random random(13);
    for (int i = 0; i < 12; ++i) {
        const OwnedRange& range = ownership.ranges()[random.engine() % ownership.ranges().size()];
        if (range.kind != OwnerKind::structure && range.kind < OwnerKind::npcs)
            continue; // the last bits of a stream may mean nothing
        MemoryImage changed = demo();
        const auto at = static_cast<std::size_t>(range.begin) +
                        random.engine() % static_cast<std::size_t>(range.end - range.begin);
        changed.bytes[at] ^= 0x10;
        EXPECT_NE(values(read_whole(changed)), before) << owner_name(range) << ' ' << at;
    }
}

} // namespace
} // namespace veldrune::inspect
