// Any bytes as an image, and another one like it: every report of veldrune-inspect comes to an end,
// stays within its bound and names only places in the file.

#include "fuzz_target.h"
#include "inspect/all_streams.h"
#include "inspect/check.h"
#include "inspect/dialogue_listing.h"
#include "inspect/map_reports.h"
#include "inspect/object_listing.h"
#include "inspect/ownership.h"
#include "inspect/pictures.h"
#include "inspect/room.h"
#include "inspect/script_listing.h"
#include "inspect/tile_uses.h"
#include "inspect/uses.h"
#include "support/editor_fixture.h"
#include "support/image_reports.h"

#include <memory>

namespace veldrune::test {
namespace {

using namespace inspect;

// Changes bytes here and there, most of them in the game's own tables.
void change(Bytes& image, Choices& choices) {
    for (int places = 1 + choices.below(64); places > 0 && !image.empty(); --places) {
        const KnownStructure& table = choices.of(known_structures());
        const auto offset = static_cast<std::size_t>(table.offset) +
                            static_cast<std::size_t>(choices.below(static_cast<int>(table.size)));
        const bool anywhere = choices.one_in(4);
        const int any = choices.below(static_cast<int>(image.size()));
        std::size_t at = anywhere ? static_cast<std::size_t>(any) : offset;
        for (int count = 1 + choices.below(8); count > 0 && at < image.size(); --count)
            image[at++] = choices.byte();
    }
}

Bytes any_image(Choices& choices) {
    Bytes image = demo_bytes();
    if (choices.one_in(4)) // perhaps nothing but such bytes
        choices.bulk().fill(image);
    if (choices.one_in(4))
        image.resize(static_cast<std::size_t>(choices.below(0x410000)), choices.byte());
    return image;
}

void expect_bounded(const ImageReading& reading, std::size_t facts) {
    EXPECT_LE(reading.objects.size(), 5u * 255 * rom_layout::map_count);
    EXPECT_LE(all_streams(reading).size(), 1134u);
    EXPECT_LE(reading.scripts.commands.size(), reading.image.bytes.size());
    EXPECT_LE(facts, 60'000 + 20 * reading.objects.size() + 600 * all_streams(reading).size() +
                         2 * reading.scripts.commands.size() + reading.scripts.scripts.size());
}

void check_ranges(const ImageReading& reading) {
    const Ownership ownership(reading);
    for (const OwnedRange& range : ownership.ranges())
        ASSERT_TRUE(reading.image.holds(range.begin, range.end - range.begin));
}

void check_room(const ImageReading& reading) {
    const std::vector<Room> rooms = find_room(reading);
    for (const Room& room : rooms)
        ASSERT_TRUE(reading.image.holds(room.offset, room.size));
    EXPECT_EQ(list_room(rooms).rows.size(), rooms.size());
}

void check_lists(const ImageReading& reading, Choices& choices) {
    const std::size_t objects = reading.objects.size();
    EXPECT_EQ(object_table(reading, {}).rows.size(), objects);
    EXPECT_EQ(object_lines(reading, {}).rows.size(), objects);
    EXPECT_EQ(list_scripts(reading).rows.size(), reading.scripts.scripts.size());
    const std::int64_t script = reading.scripts.scripts.empty()
                                    ? choices.below(0x410000)
                                    : choices.of(std::span(reading.scripts.scripts)).offset;
    EXPECT_LE(list_script(reading, script, true).rows.size(), 20'002u);
    const int dialogue = choices.below(rom_layout::dialogue_count);
    EXPECT_EQ(list_dialogues(reading, {.number = dialogue, .wrapped = true}).rows.size(), 1u);
    const int set = choices.below(128);
    EXPECT_EQ(list_tiles(reading, set, false).rows.size(), 256u);
    const UseQuery query{static_cast<Use>(choices.below(static_cast<int>(Use::tile) + 1)),
                         choices.byte(), set};
    EXPECT_LE(list_uses(reading, query).rows.size(), 60'000u + reading.image.bytes.size());
}

void draw(const MemoryImage& image, int picture) {
    const auto painter = std::make_unique<MapPainter>(image, PictureOptions{{}, true, true});
    const PictureSize size = painter->load(picture);
    std::size_t pixels = 0;
    for (int band = 0; band < painter->band_count(); ++band)
        pixels += painter->draw_band(band).size();
    EXPECT_EQ(static_cast<std::int64_t>(pixels), size.pixels());
    EXPECT_LE(size.pixels(), 4096 * 4096);
}

void inspect_fuzz(Choices& choices) {
    const MemoryImage image{"a.smc", any_image(choices)};
    MemoryImage other = image;
    change(other.bytes, choices);
    const ImageReading reading = read_whole(other);
    check_ranges(reading);
    check_room(reading);
    EXPECT_EQ(list_maps(reading, {}).rows.size(), static_cast<std::size_t>(rom_layout::map_count));
    EXPECT_LE(list_map(reading, choices.below(rom_layout::map_count)).rows.size(), 20'000u);
    EXPECT_LE(list_findings(check_image(reading), 10).rows.size(),
              2 * 11 * list_checks().rows.size());
    std::size_t facts = 0, differences = 0;
    dump_image(reading, [&](const std::vector<Fact>& some) { facts += some.size(); });
    expect_bounded(reading, facts);
    diff_images(read_whole(image), reading, [&](const Difference&) { ++differences; });
    EXPECT_LE(differences, 2 * facts + other.bytes.size() / 16);
    check_lists(reading, choices);
    draw(other, choices.below(picture_count));
}

} // namespace
} // namespace veldrune::test

FUZZ_TARGET(inspect_fuzz, 12)
