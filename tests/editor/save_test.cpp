#include "editor/save.h"
#include "editor/world_map.h"
#include "map/map_properties.h"
#include "rom/rom_layout.h"
#include "support/editor_fixture.h"
#include "support/write_failures.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

using demo::demo_map::town;

// Fills a layer's corner with what does not compress.
void make_noise(Editor& editor, std::size_t layer, int columns, int rows) {
    Random random(6);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            editor.s.map.layers[layer].map.at(column, row) = random.byte();
}

TEST(Save, EveryUntouchedMapComesBackByteForByte) {
    Editor editor;
    editor.dialogs.file_names = {"b.smc"};
    save_as(editor.s); // without a map: a copy, and the name
    EXPECT_EQ(editor.s.rom_path, "b.smc");
    for (int map = 0; map < rom_layout::map_count; ++map) {
        editor.choose(map);
        if (std::ranges::any_of(editor.s.map.layers, &Layer::rows_missing))
            continue;
        editor.disk.writes = 0;
        save(editor.s);
        ASSERT_GT(editor.disk.writes, 0) << map;
    }
    EXPECT_TRUE(editor.dialogs.silent());
    EXPECT_TRUE(editor.disk["b.smc"] == demo_bytes());
}

TEST(Save, AGrownLayerIsAskedAboutInTheOrderOfThePasses) {
    Town t;
    const auto& questions = t.dialogs.questions;
    for (const std::size_t layer : {0u, 1u, 2u})
        make_noise(t, layer, 16, 16);
    t.form.Text14 = "300300"; // room for layer 1
    t.s.changes_saved = false;
    t.dialogs.answers = {true, false, false}; // the old size is that of the load for good
    save(t.s);
    Bytes image = t.image();
    const int size = image[0x300300] + 256 * image[0x300301];
    const std::string first =
        "Layer 1 is " + std::to_string(size - t.s.map.layers[0].layer_packed_size) +
        " bytes larger than the original map. Saving this map to the oringal memory location "
        "will undoubtably mess something up. Continue?";
    save(t.s);
    EXPECT_EQ(t.dialogs.asked(), "Layer 1; Layer 3; Layer 1; ");
    EXPECT_TRUE(questions[0] == first && questions[2] == first);
    EXPECT_FALSE(t.s.changes_saved);
    // Layer 1 alone has been written, after the old end of the file.
    EXPECT_EQ(image.size(), 0x300300u + static_cast<std::size_t>(size));
    image.resize(demo_bytes().size());
    EXPECT_TRUE(image == demo_bytes());
}

TEST(Save, AMissingLayer3IsSavedAs16By16) {
    for (const bool lower_case : {false, true}) { // which names a layer like any other
        Town t;
        t.form.Text25 = lower_case ? "19d3b0" : EMPTY_LAYER_TEXT;
        t.form.Text21 = t.form.Text22 = "64";
        t.s.map.layers[2].rows_missing = !lower_case;
        t.map(2).cells.fill(0);
        make_noise(t, 2, 64, 16);
        save(t.s);
        auto buffer = std::make_unique<DecompressBuffer>();
        decompress_stream(t.s.rom, 0x19D3B0, *buffer, layer_output_limit);
        EXPECT_EQ(buffer->output()[16], t.map(2).at(lower_case ? 16 : 0, lower_case ? 0 : 1));
    }
}

void resize(Town& t, std::size_t layer, const char* columns, const char* rows) {
    t.form.*layer_controls[layer].width = columns;
    t.form.*layer_controls[layer].height = rows;
}

TEST(Save, WhatCantBeSavedIsReportedBeforeAnythingIsWritten) {
    // clang-format off
    const std::string size = " can't be saved: it must have from 1 to 8192 tiles, not ";
    const std::pair<std::string, void (*)(Town&)> cases[] = {
        {"Layer 1" + size + "0 times 32.", [](Town& t) { resize(t, 0, "x", "32"); }},
        {"Layer 1" + size + "2147483647 times 2147483647.", [](Town& t) { resize(t, 0, "2147483647", "2147483647"); }},
        {"Layer 2" + size + "65 times 128.", [](Town& t) { resize(t, 1, "65", "128"); }},
        {"Layer 2 can't be saved: it is 128 tiles high, and only 64 of its rows could be loaded.",
         [](Town& t) { t.s.map.layers[1].rows_missing = true; }},
        {"Layer 1 can't be saved: its stream would take more than 9001 bytes.",
         [](Town& t) { resize(t, 0, "128", "64"); make_noise(t, 0, 128, 64); }},
        {"Reading a.smc failed. What is shown of this map is not what the image holds, and it can't be saved.",
         [](Town& t) { t.disk.fail(3, 0); open_world_of_dawn(t.s); t.disk.fail(0, 0); }},
    };
    // clang-format on
    for (const auto& [why, spoil] : cases) {
        Town t;
        spoil(t);
        t.s.changes_saved = false;
        save(t.s);
        ASSERT_FALSE(t.dialogs.messages.empty()) << why;
        EXPECT_EQ(t.dialogs.messages.back(), (Message{why, "Error"}));
        EXPECT_TRUE(t.image() == demo_bytes() && !t.s.changes_saved) << why;
    }
}

TEST(Save, WritesTheLayersThenTheirPointersThenTheRecord) {
    Town t;
    const auto pointer = [&](int layer) {
        return data_pointer_offset(layer_data_number(t.s.map.map_properties, layer));
    };
    const auto p1 = pointer(0), p2 = pointer(1), p3 = pointer(2);
    const std::int64_t record = 0x2D9100 + 33 * town;
    const auto expect_last_writes = [&](const std::vector<std::int64_t>& offsets) {
        std::vector<std::int64_t> written;
        for (const auto& write : std::span(t.disk.log).last(offsets.size()))
            written.push_back(write.offset);
        EXPECT_EQ(written, offsets);
    };
    t.form.Text14 = "300300";
    t.form.Text12 = "310000";
    t.form.Text25 = "320000";
    save(t.s);
    expect_last_writes({0x300300, 0x320000, 0x310000, p1, p2, p3, 0xF5800 + town, record});
    t.dialogs.file_names = {"b.smc"};
    save_as(t.s);
    expect_last_writes({0x300300, 0x320000, 0x310000, p2 + 2, p2 + 1, p2, p1 + 2, p1 + 1, p1,
                        record + 11, record + 25, record + 7, record + 27, record + 30,
                        record + 23});
}

constexpr void (*openings[])(Editor&) = {
    [](Editor& editor) { editor.choose(town); },
    [](Editor& editor) { open_world_of_dawn(editor.s); },
};

TEST(Save, AFailedWriteLeavesAPrefixOfTheWrites) {
    struct Changed : Editor {
        explicit Changed(void (*open)(Editor&)) {
            open(*this);
            make_noise(*this, 0, 16, 16);
            form.Text14 = form.Text24 = "300300";
            form.Text13 = "3";
            for (int i = 0; i < 20; ++i)
                s.world.world_map.at(7 * i, i) ^= 1;
            s.changes_saved = false;
        }
    };
    for (void (*const open)(Editor&) : openings) {
        const auto make = [&] { return Changed(open); };
        expect_prefixes_of_writes(make, [](Editor& editor) { save(editor.s); });
        const auto run = [](Editor& editor) {
            editor.dialogs.file_names = {"b.smc"};
            save_as(editor.s);
        };
        expect_prefixes_of_writes(make, run, "b.smc");
    }
}

TEST(SaveAs, GoesOnInTheCopyAndLeavesTheSource) {
    Town t;
    t.s.changes_saved = false;
    save_as(t.s); // cancelled
    EXPECT_TRUE(t.s.rom_path == "a.smc" && !t.s.changes_saved && t.disk.writes == 0);
    Bytes expected = demo_bytes();
    for (const int palette : {9, 10}) { // the second time onto the open file: no copy
        t.form.Text13 = std::to_string(palette);
        t.dialogs.file_names = {"b.smc"};
        save_as(t.s);
        expected[0x2D9100 + 33 * town + 25] = static_cast<std::uint8_t>(palette);
        EXPECT_TRUE(t.disk["b.smc"] == expected && t.image() == demo_bytes());
        EXPECT_EQ(t.s.rom_path + t.form.Label20, "b.smcb.smc");
        EXPECT_TRUE(t.s.changes_saved && t.disk.file_count() == 2);
    }
    save(t.s); // the map belongs to the copy now
    EXPECT_TRUE(t.dialogs.silent());
}

TEST(SaveAs, CancelAtTheQuestionLeavesTheCopyOpenUnderTheOldName) {
    Town t;
    make_noise(t, 0, 16, 16);
    t.dialogs.file_names = {"b.smc"};
    t.dialogs.answers = {true, false}; // it would reach into layer 2, too
    save_as(t.s);
    EXPECT_EQ(t.s.rom.path() + t.s.rom_path + t.form.Label20, "b.smca.smca.smc");
    EXPECT_TRUE(t.image() == demo_bytes());
}

TEST(Save, AMapOfAnotherImageAsksFirst) {
    for (void (*const open)(Editor&) : openings)
        for (void (*const operation)(EditorState&) : {save, save_as}) {
            Editor editor;
            editor.disk["other.smc"] = demo_bytes();
            open(editor);
            open_image_file(editor.s, "other.smc");
            editor.dialogs.file_names = {"b.smc"};
            operation(editor.s); // OK
            save(editor.s);      // it belongs to the open image now
            EXPECT_EQ(editor.dialogs.asked(), "This map; ");
        }
}

} // namespace
} // namespace veldrune::test
