#include "editor/world_map.h"
#include "rom/rom_layout.h"
#include "support/editor_fixture.h"

#include <gtest/gtest.h>

#include <set>

namespace veldrune::test {
namespace {

using enum ObjectKind;

TEST(DemoWorlds, AreRichAndLeadIntoTheOtherMaps) {
    for (const auto open : {open_world_of_dawn, open_world_of_dusk}) {
        Editor editor;
        open(*editor.state);
        EXPECT_TRUE(editor.dialogs.silent());
        EXPECT_LE(editor.state->world_packed_size, longest_world_stream);
        const auto& map = editor.state->world_map;
        EXPECT_GT((std::set<int>(map.cells.begin(), map.cells.end())).size(), 90u);
        const auto& sheet = editor.state->world_sheet.pixels;
        EXPECT_GT((std::set<Colour>(sheet.begin(), sheet.end())).size(), 50u);
        const ObjectLists& objects = editor.state->objects;
        for (const ObjectKind kind : {event_trigger, entrance}) {
            EXPECT_GT(objects[kind].row_count, 5);
            for (int i = 0; i < objects[kind].row_count; ++i) {
                const auto record = object_row(kind, objects[kind], i);
                const int first_sight = 96; // roads and whatever stands on the ground
                EXPECT_GE(map.at(record[0], record[1]), first_sight) << i;
            }
        }
        for (int i = 0; i < objects[entrance].row_count; ++i) {
            const auto record = object_row(entrance, objects[entrance], i);
            const int target = record[2] | record[3] << 8;
            EXPECT_GE(target, demo::demo_map::town);
            EXPECT_LT(target, rom_layout::map_count);
        }
    }
}

TEST(DemoWorlds, PackForEverySeed) {
    for (const unsigned seed : {2u, 9u, 4000000000u})
        EXPECT_EQ(demo::make_demo_image(seed).size(),
                  static_cast<std::size_t>(rom_layout::image_size));
}

} // namespace
} // namespace veldrune::test
