#include "editor/save.h"
#include "editor/world_map.h"
#include "rom/rom_layout.h"
#include "support/editor_fixture.h"
#include "support/write_failures.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

using demo::demo_map::town;

std::string grown(int layer, int bytes) {
    return "Layer " + std::to_string(layer) + " is " + std::to_string(bytes) +
           " bytes larger than the original map. Saving this map to the oringal memory location "
           "will undoubtably mess something up. Continue?";
}

// Fills a layer's corner with what does not compress.
void make_noise(Editor& editor, std::size_t layer, int columns, int rows) {
    Random random(6);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            editor.s.map.layers[layer].map.at(column, row) = random.byte();
}

TEST(Save, EveryUntouchedMapComesBackByteForByte) {
    Editor editor;
    save(*editor.state); // without a map
    EXPECT_EQ(editor.disk.writes, 0);
    for (int map = 0; map < rom_layout::map_count; ++map) {
        editor.choose(map);
        if (std::ranges::any_of(editor.state->map.layers, &Layer::rows_missing))
            continue;
        editor.disk.writes = 0;
        save(*editor.state);
        ASSERT_GT(editor.disk.writes, 0) << map;
    }
    EXPECT_TRUE(editor.dialogs.silent());
    EXPECT_TRUE(editor.image() == demo_bytes());
}

TEST(Save, AGrownLayerIsAskedAboutInTheOrderOfThePasses) {
    Town t;
    for (const std::size_t layer : {0u, 1u, 2u})
        make_noise(t, layer, 16, 16);
    t.form.Text14 = "300300"; // room for layer 1
    t.s.changes_saved = false;
    t.dialogs.answers = {true, false};
    save(t.s);
    Bytes image = t.image();
    const int size = image[0x300300] + 256 * image[0x300301];
    ASSERT_EQ(t.dialogs.questions.size(), 2u);
    EXPECT_EQ(t.dialogs.questions[0], grown(1, size - t.s.map.layers[0].layer_packed_size));
    EXPECT_TRUE(t.dialogs.questions[1].starts_with("Layer 3 is "));
    EXPECT_FALSE(t.s.changes_saved);
    // Layer 1 alone has been written, behind the old end of the file.
    EXPECT_EQ(image.size(), 0x300300u + static_cast<std::size_t>(size));
    image.resize(demo_bytes().size());
    EXPECT_TRUE(image == demo_bytes());
    // The old size is that of the load for good.
    t.dialogs.answers = {false};
    save(t.s);
    EXPECT_EQ(t.dialogs.questions[2], t.dialogs.questions[0]);
    t.choose(town);
    t.s.map.layers[2].layer_packed_size -= 1;
    save(t.s);
    EXPECT_EQ(t.dialogs.questions.back(), grown(3, 1));
}

TEST(Save, AMissingLayer3IsSavedAs16By16) {
    for (const bool lower_case : {false, true}) {
        Town t;
        t.form.Text25 = lower_case ? "19d3b0" : EMPTY_LAYER_TEXT;
        t.form.Text21 = t.form.Text22 = "64";
        t.map(2).cells.fill(0);
        make_noise(t, 2, 64, 16);
        save(t.s);
        auto buffer = std::make_unique<DecompressBuffer>();
        decompress_stream(t.s.rom, 0x19D3B0, *buffer, layer_output_limit);
        EXPECT_EQ(buffer->output()[16], t.map(2).at(lower_case ? 16 : 0, lower_case ? 0 : 1));
    }
}

// Saves a map that can't be saved.
void expect_refusal(Town& t, const std::string& told) {
    t.s.changes_saved = false;
    save(t.s);
    ASSERT_FALSE(t.dialogs.messages.empty()) << told;
    EXPECT_EQ(t.dialogs.messages.back(), (Message{told, "Error"}));
    EXPECT_TRUE(t.image() == demo_bytes()) << told;
    EXPECT_FALSE(t.s.changes_saved) << told;
}

TEST(Save, SizesThatNoLayerHasAreToldBeforeAnythingIsWritten) {
    // clang-format off
    using Field = std::string Form1::*;
    const struct { std::string layer; Field width, height; std::string columns, rows, told; } cases[] = {
        {"1", &Form1::Text2,  &Form1::Text5,  "x",          "32",         "0 times 32"},
        {"1", &Form1::Text2,  &Form1::Text5,  "2147483647", "2147483647", "2147483647 times 2147483647"},
        {"2", &Form1::Text1,  &Form1::Text3,  "65",         "128",        "65 times 128"},
        {"3", &Form1::Text21, &Form1::Text22, "0",          "16",         "0 times 16"},
    };
    // clang-format on
    for (const auto& c : cases) {
        Town t;
        t.form.*c.width = c.columns;
        t.form.*c.height = c.rows;
        expect_refusal(t, "Layer " + c.layer +
                              " can't be saved: it must have from 1 to 8192 tiles, not " + c.told +
                              ".");
    }
}

TEST(Save, WhatCantBeSavedIsToldBeforeAnythingIsWritten) {
    const std::pair<std::string, void (*)(Town&)> cases[] = {
        {"Layer 2 can't be saved: it is 128 tiles high, and only 64 of its rows could be loaded.",
         [](Town& t) { t.s.map.layers[1].rows_missing = true; }},
        {"Layer 1 can't be saved: its stream would take more than 9001 bytes.",
         [](Town& t) {
             t.form.Text2 = "128";
             t.form.Text5 = "64";
             make_noise(t, 0, 128, 64);
         }},
        {"Writing to a.smc at 80000000 failed. What was written before stays; nothing more is "
         "written.",
         [](Town& t) { t.form.Text14 = "80000000"; }}, // outside every file
        {"Reading a.smc failed. What is shown of this map is not what the image holds, and it "
         "can't be saved.",
         [](Town& t) {
             t.disk.fail({.at = 3}, {});
             open_world_of_dawn(t.s);
             t.disk.fail({}, {});
         }},
    };
    for (const auto& [told, spoil] : cases) {
        Town t;
        spoil(t);
        expect_refusal(t, told);
    }
}

TEST(Save, ALocationThatIsNoNumberIsToldOnceInEitherHalf) {
    Town t;
    t.form.Text14 = "30030G"; // counts 300300
    save(t.s);
    EXPECT_EQ(t.dialogs.messages.size(), 2u);
}

void change_town(Editor& editor) {
    editor.choose(town);
    make_noise(editor, 0, 16, 16);
    editor.form.Text14 = "300300";
    editor.form.Text12 = "310000";
    editor.form.Text13 = "3";
}

void change_dawn(Editor& editor) {
    open_world_of_dawn(editor.s);
    for (int i = 0; i < 20; ++i)
        editor.s.world.world_map.at(7 * i, i) ^= 1;
    editor.form.Text24 = "300300";
}

TEST(Save, AFailedWriteLeavesAPrefixOfTheWrites) {
    for (void (*const change)(Editor&) : {change_town, change_dawn}) {
        struct Changed : Editor {
            explicit Changed(void (*how)(Editor&)) {
                how(*this);
                s.changes_saved = false;
            }
        };
        const auto make = [&] { return Changed(change); };
        expect_prefixes_of_writes(make, [](Editor& editor) { save(editor.s); });
        const auto run = [](Editor& editor) {
            editor.dialogs.file_names = {"b.smc"};
            save_as(editor.s);
        };
        expect_prefixes_of_writes(make, run, "b.smc");
    }
}

TEST(SaveAs, GoesOnInTheCopyAndLeavesTheSource) {
    Editor editor; // without a map
    editor.dialogs.file_names = {"b.smc"};
    save_as(*editor.state);
    EXPECT_TRUE(editor.disk["b.smc"] == demo_bytes());
    EXPECT_EQ(editor.state->rom_path, "b.smc");
    Town t;
    t.s.changes_saved = false;
    save_as(t.s); // cancelled
    EXPECT_EQ(t.s.rom_path, "a.smc");
    EXPECT_FALSE(t.s.changes_saved);
    EXPECT_EQ(t.disk.writes, 0);
    Bytes expected = demo_bytes();
    for (const int palette : {9, 10}) { // the second time onto the open file: no copy
        t.form.Text13 = std::to_string(palette);
        t.dialogs.file_names = {"b.smc"};
        save_as(t.s);
        EXPECT_TRUE(t.s.changes_saved);
        EXPECT_EQ(t.form.Label20, "b.smc");
        EXPECT_TRUE(t.image() == demo_bytes());
        expected[0x2D9100 + 33 * town + 25] = static_cast<std::uint8_t>(palette);
        EXPECT_TRUE(t.disk["b.smc"] == expected);
        EXPECT_EQ(t.disk.file_count(), 2u);
    }
    save(t.s); // the map belongs to the copy now
    EXPECT_TRUE(t.dialogs.silent());
}

TEST(SaveAs, CancelAtTheQuestionLeavesTheCopyOpenUnderTheOldName) {
    Town t;
    make_noise(t, 0, 16, 16);
    t.dialogs.file_names = {"b.smc", "c.smc"};
    t.dialogs.answers = {false, true, true, true};
    save_as(t.s);
    EXPECT_EQ(t.s.rom.path(), "b.smc");
    EXPECT_EQ(t.s.rom_path + t.form.Label20, "a.smca.smc");
    t.disk["b.smc"][0x100] = 0x77; // what is open is what the next copy is made of
    save_as(t.s);
    EXPECT_EQ(t.disk["c.smc"][0x100], 0x77);
    EXPECT_EQ(t.form.Label20, "c.smc");
    EXPECT_TRUE(t.image() == demo_bytes());
}

TEST(SaveAs, ACopyThatCantBeMadeOrOpenedLeavesTheImageOpen) {
    for (const bool made : {false, true}) {
        Town t;
        t.s.changes_saved = false;
        t.disk.refuse_open = made;
        t.disk.fail({}, {.at = made ? 0 : 1});
        t.dialogs.file_names = {"b.smc"};
        save_as(t.s);
        EXPECT_EQ(t.dialogs.messages,
                  (Messages{{made ? "The image was copied to b.smc, but can't be opened there. "
                                    "a.smc is still open."
                                  : "The image could not be copied to b.smc. a.smc is still open.",
                             "Error"}}));
        EXPECT_EQ(t.s.rom.path() + t.form.Label20, "a.smca.smc");
        EXPECT_FALSE(t.s.changes_saved);
    }
}

TEST(Save, AMapOfAnotherImageAsksFirst) {
    for (const bool world : {false, true})
        for (void (*const operation)(EditorState&) : {save, save_as}) {
            Editor editor;
            editor.disk["other.smc"] = demo_bytes();
            if (world)
                open_world_of_dawn(editor.s);
            else
                editor.choose(town);
            open_image_file(editor.s, "a.smc"); // the same file again
            save(editor.s);
            ASSERT_TRUE(editor.dialogs.silent());
            open_image_file(editor.s, "other.smc");
            editor.disk.writes = 0;
            editor.dialogs.answers = {false};
            editor.dialogs.file_names = {"b.smc", "b.smc"};
            operation(editor.s);
            EXPECT_EQ(
                editor.dialogs.questions,
                (std::vector<std::string>{
                    "This map was read from a.smc, but other.smc is open. Save it all the same?"}));
            EXPECT_EQ(editor.disk.writes, 0);
            operation(editor.s); // OK
            EXPECT_GT(editor.disk.writes, 0);
            save(editor.s); // it belongs to the open image now
            EXPECT_EQ(editor.dialogs.questions.size(), 2u);
        }
}

} // namespace
} // namespace veldrune::test
