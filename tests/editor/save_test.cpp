#include "compression/compress.h"
#include "editor/mouse.h"
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
void make_noise(Layer& layer, int columns, int rows) {
    Random random(6);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            layer.map.at(column, row) = random.byte();
}

int stream_size(const Bytes& image, std::size_t at) {
    return image[at] + 256 * image[at + 1];
}

// The bytes that differ, as ranges from - to.
std::vector<std::pair<std::size_t, std::size_t>> differences(const Bytes& a, const Bytes& b) {
    std::vector<std::pair<std::size_t, std::size_t>> ranges;
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i)
        if (a[i] != b[i]) {
            if (ranges.empty() || ranges.back().second != i)
                ranges.push_back({i, i});
            ranges.back().second = i + 1;
        }
    return ranges;
}

TEST(Save, AnUntouchedMapComesBackByteForByte) {
    for (const int map : {0, town, 3, 4, 5, 6, 200, 413}) {
        Editor editor;
        editor.choose(map);
        save(*editor.state);
        EXPECT_TRUE(editor.dialogs.silent()) << map;
        EXPECT_EQ(editor.image(), demo_bytes()) << map;
    }
}

TEST(Save, WithoutAMapItIsSilentAndMap0CountsOnceChosen) {
    Editor editor;
    save(*editor.state);
    EXPECT_EQ(editor.disk.writes, 0);
    editor.choose(0);
    save(*editor.state);
    EXPECT_GT(editor.disk.writes, 0);
    EXPECT_TRUE(editor.dialogs.silent());
}

TEST(Save, AGrownLayerIsAskedAboutInTheOrderOfThePasses) {
    Editor editor;
    editor.choose(town);
    for (Layer& layer : editor.state->layers)
        make_noise(layer, 16, 16);
    editor.form.Text14 = "300300"; // room for layer 1
    const int old1 = editor.state->layers[0].layer_packed_size;
    const int old3 = editor.state->layers[2].layer_packed_size;
    editor.state->changes_saved = false;
    editor.dialogs.answers = {true, false};
    save(*editor.state);
    const Bytes& image = editor.image();
    ASSERT_EQ(editor.dialogs.questions.size(), 2u);
    EXPECT_EQ(editor.dialogs.questions[0], grown(1, stream_size(image, 0x300300) - old1));
    EXPECT_TRUE(editor.dialogs.questions[1].starts_with("Layer 3 is "));
    EXPECT_GT(old3, 0);
    EXPECT_FALSE(editor.state->changes_saved);
    // Layer 1 alone has been written, behind the old end of the file.
    EXPECT_EQ(differences(demo_bytes(), image).size(), 0u);
    EXPECT_EQ(image.size(), 0x300300u + static_cast<std::size_t>(stream_size(image, 0x300300)));
    // The old size is that of the load for good.
    editor.dialogs.answers = {false};
    save(*editor.state);
    EXPECT_EQ(editor.dialogs.questions[2], editor.dialogs.questions[0]);
}

TEST(Save, MovedLayersAreFoundAgainAfterReopening) {
    Editor editor;
    editor.choose(town);
    make_noise(editor.state->layers[1], 16, 16);
    editor.form.Text12 = "301000";
    editor.form.Text44 = "99";
    save(*editor.state);
    EXPECT_TRUE(editor.state->changes_saved);
    const LayerMap saved = editor.state->layers[1].map;
    editor.choose(3);
    open_image_file(*editor.state, "a.smc");
    editor.choose(town);
    EXPECT_EQ(editor.form.Text12, "301000");
    EXPECT_EQ(editor.form.Text44, "99");
    for (int row = 0; row < 16; ++row)
        for (int column = 0; column < 16; ++column)
            ASSERT_EQ(editor.state->layers[1].map.at(column, row), saved.at(column, row));
}

TEST(Save, AMissingLayer3IsSavedAs16By16) {
    for (const bool lower_case : {false, true}) {
        Editor editor;
        editor.choose(town);
        editor.form.Text25 = lower_case ? "19d3b0" : EMPTY_LAYER_TEXT;
        editor.form.Text21 = "64", editor.form.Text22 = "64";
        editor.state->layers[2].map.cells.fill(0);
        make_noise(editor.state->layers[2], 64, 16);
        save(*editor.state);
        auto buffer = std::make_unique<DecompressBuffer>();
        decompress_stream(editor.state->rom, 0x19D3B0, *buffer, layer_output_limit);
        const std::uint8_t* tiles = buffer->output();
        EXPECT_EQ(tiles[16],
                  editor.state->layers[2].map.at(lower_case ? 16 : 0, lower_case ? 0 : 1));
    }
}

TEST(Save, WhatCantBeSavedIsToldBeforeAnythingIsWritten) {
    const struct {
        const char* name;
        void (*spoil)(Editor&);
    } cases[] = {
        {"too many tiles",
         [](Editor& e) {
             e.form.Text3 = "128";
             e.form.Text1 = "65";
         }},
        {"no width", [](Editor& e) { e.form.Text21 = "0"; }},
        {"no number", [](Editor& e) { e.form.Text2 = "x"; }},
        {"rows missing", [](Editor& e) { e.state->layers[1].rows_missing = true; }},
        {"product", [](Editor& e) { e.form.Text2 = e.form.Text5 = "2147483647"; }},
        {"incompressible",
         [](Editor& e) { // pass 1
             e.form.Text2 = "128", e.form.Text5 = "64";
             make_noise(e.state->layers[0], 128, 64);
         }},
        {"a world that the disk has refused",
         [](Editor& e) {
             e.disk.fail({3, false, false}, {});
             open_world_of_dawn(*e.state);
             e.disk.fail({}, {});
             e.state->changes_saved = false;
         }},
    };
    for (const auto& c : cases) {
        Editor editor;
        editor.choose(town);
        editor.state->changes_saved = false;
        c.spoil(editor);
        save(*editor.state);
        ASSERT_FALSE(editor.dialogs.messages.empty()) << c.name;
        EXPECT_EQ(editor.dialogs.messages.back().title, "Error") << c.name;
        EXPECT_EQ(editor.disk.writes, 0) << c.name;
        EXPECT_FALSE(editor.state->changes_saved) << c.name;
    }
}

TEST(Save, ALocationOutsideEveryFileIsToldAndBadOnesWarnTwice) {
    Editor editor;
    editor.choose(town);
    editor.form.Text14 = "80000000";
    save(*editor.state);
    ASSERT_EQ(editor.dialogs.messages.size(), 1u);
    EXPECT_EQ(editor.dialogs.messages[0].title, "Error");
    EXPECT_EQ(editor.image(), demo_bytes());
    editor.dialogs.messages.clear();
    editor.form.Text14 = "30030G"; // counts 300300
    save(*editor.state);
    EXPECT_EQ(editor.dialogs.messages.size(), 2u);
}

void choose_town(Editor& editor) {
    editor.choose(town);
}
void open_dawn(Editor& editor) {
    open_world_of_dawn(*editor.state);
}

void change_town(Editor& editor) {
    choose_town(editor);
    make_noise(editor.state->layers[0], 16, 16);
    editor.form.Text14 = "300300", editor.form.Text12 = "310000", editor.form.Text13 = "3";
}

void change_dawn(Editor& editor) {
    open_dawn(editor);
    for (int i = 0; i < 20; ++i)
        editor.state->world_map.at(7 * i, i) ^= 1;
    editor.form.Text24 = "300300";
}

// Whatever write fails, the image holds the writes before it, a part of it at the most, and nothing
// else; the failure is told, changes_saved stays, and the next try goes through.
void try_every_write_failure(void (*change)(Editor&), void (*operation)(EditorState&),
                             const char* target) {
    const auto prepare = [&](Editor& editor) {
        change(editor);
        editor.state->changes_saved = false;
        editor.disk.log.clear();
        editor.dialogs.file_names = {"b.smc"};
    };
    Editor whole;
    prepare(whole);
    operation(*whole.state);
    ASSERT_TRUE(whole.state->changes_saved);
    const auto& log = whole.disk.log;
    ASSERT_GT(log.size(), change == change_town ? 5u : 1u);
    for (const bool half : {false, true})
        for (const bool from_then_on : {false, true})
            for (int at = 1; at <= whole.disk.writes; ++at) {
                Editor editor;
                prepare(editor);
                editor.disk.fail({}, {at, from_then_on, half});
                operation(*editor.state);
                ASSERT_EQ(editor.dialogs.messages.size(), 1u) << at;
                ASSERT_EQ(editor.dialogs.messages[0].title, "Error");
                ASSERT_FALSE(editor.state->changes_saved);
                ASSERT_TRUE(editor.state->rom.is_open());
                ASSERT_LE(editor.disk.file_count(), 2u);
                Bytes expected;
                if (editor.disk.exists(target)) {
                    if (target == std::string("a.smc"))
                        expected = demo_bytes();
                    expected = after_writes(expected, log, editor.disk.log.size(), half);
                    ASSERT_TRUE(editor.disk[target] == expected) << at << half << from_then_on;
                }
                if (target != std::string("a.smc")) {
                    ASSERT_TRUE(editor.image() == demo_bytes());
                }
                editor.disk.fail({}, {});
                editor.dialogs.file_names = {"b.smc"};
                operation(*editor.state);
                ASSERT_TRUE(editor.state->changes_saved);
                ASSERT_TRUE(editor.disk[target] == whole.disk[target]);
            }
}

TEST(Save, AFailedWriteLeavesAPrefixOfTheWrites) {
    for (void (*const change)(Editor&) : {change_town, change_dawn})
        try_every_write_failure(change, save, "a.smc");
}

TEST(SaveAs, AFailedWriteLeavesTheSourceAndAPrefixOfTheWrites) {
    for (void (*const change)(Editor&) : {change_town, change_dawn})
        try_every_write_failure(change, save_as, "b.smc");
}

TEST(SaveAs, GoesOnInTheCopyAndLeavesTheSource) {
    Editor editor;
    editor.choose(town);
    editor.state->changes_saved = false;
    save_as(*editor.state); // cancelled
    EXPECT_EQ(editor.state->rom_path, "a.smc");
    EXPECT_FALSE(editor.state->changes_saved);
    EXPECT_EQ(editor.disk.writes, 0);

    editor.form.Text13 = "9";
    editor.dialogs.file_names = {"b.smc"};
    save_as(*editor.state);
    EXPECT_TRUE(editor.state->changes_saved);
    EXPECT_EQ(editor.form.Label20, "b.smc");
    EXPECT_EQ(editor.image(), demo_bytes());
    const std::size_t palette_at = 0x2D9100 + 33 * town + 25;
    EXPECT_EQ(differences(demo_bytes(), editor.disk["b.smc"]),
              (std::vector<std::pair<std::size_t, std::size_t>>{{palette_at, palette_at + 1}}));

    // Onto the open file itself: no copy, and the save goes on.
    editor.form.Text13 = "10";
    editor.dialogs.file_names = {"b.smc"};
    save_as(*editor.state);
    EXPECT_EQ(editor.disk["b.smc"][palette_at], 10);
    EXPECT_EQ(editor.disk.file_count(), 2u);
    save(*editor.state); // the map belongs to the copy now
    EXPECT_TRUE(editor.dialogs.silent());
}

TEST(SaveAs, CancelAtTheQuestionLeavesTheCopyOpenUnderTheOldName) {
    Editor editor;
    editor.choose(town);
    make_noise(editor.state->layers[0], 16, 16);
    editor.dialogs.file_names = {"b.smc", "c.smc"};
    editor.dialogs.answers = {false, true, true, true};
    save_as(*editor.state);
    EXPECT_EQ(editor.state->rom.path(), "b.smc");
    EXPECT_EQ(editor.state->rom_path, "a.smc");
    EXPECT_EQ(editor.form.Label20, "a.smc");
    editor.disk["b.smc"][0x100] = 0x77; // what is open is what the next copy is made of
    save_as(*editor.state);
    EXPECT_EQ(editor.disk["c.smc"][0x100], 0x77);
    EXPECT_EQ(editor.form.Label20, "c.smc");
    EXPECT_EQ(editor.image(), demo_bytes());
}

TEST(SaveAs, ACopyThatCantBeOpenedLeavesTheImageOpen) {
    Editor editor;
    editor.choose(town);
    editor.state->changes_saved = false;
    editor.disk.refuse_open = true;
    editor.dialogs.file_names = {"b.smc"};
    save_as(*editor.state);
    ASSERT_EQ(editor.dialogs.messages.size(), 1u);
    EXPECT_EQ(editor.dialogs.messages[0].title, "Error");
    EXPECT_EQ(editor.state->rom.path(), "a.smc");
    EXPECT_EQ(editor.form.Label20, "a.smc");
    EXPECT_FALSE(editor.state->changes_saved);
}

TEST(SaveAs, WithoutAMapItCopiesAndTakesOverTheName) {
    Editor editor;
    editor.dialogs.file_names = {"b.smc"};
    save_as(*editor.state);
    EXPECT_EQ(editor.disk["b.smc"], demo_bytes());
    EXPECT_EQ(editor.state->rom_path, "b.smc");
    EXPECT_TRUE(editor.dialogs.silent());
}

TEST(Save, AMapOfAnotherImageAsksFirst) {
    for (void (*const begin)(Editor&) : {choose_town, open_dawn})
        for (void (*const operation)(EditorState&) : {save, save_as}) {
            Editor editor;
            editor.disk["other.smc"] = demo_bytes();
            begin(editor);
            open_image_file(*editor.state, "other.smc");
            editor.dialogs.answers = {false};
            editor.dialogs.file_names = {"b.smc", "b.smc"};
            operation(*editor.state);
            ASSERT_EQ(editor.dialogs.questions.size(), 1u);
            EXPECT_NE(editor.dialogs.questions[0].find("a.smc"), std::string::npos);
            EXPECT_NE(editor.dialogs.questions[0].find("other.smc"), std::string::npos);
            EXPECT_EQ(editor.disk.writes, 0);
            operation(*editor.state); // OK
            EXPECT_GT(editor.disk.writes, 0);
            open_image_file(*editor.state, editor.state->rom.path()); // the same file again
            save(*editor.state); // the map belongs to the open image now
            EXPECT_EQ(editor.dialogs.questions.size(), 2u);
        }
}

} // namespace
} // namespace veldrune::test
