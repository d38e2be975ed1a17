// The questions that keep work from being lost: what asks, in which order, and that Cancel leaves
// the image as it was.

#include "editor/map_commands.h"
#include "editor/object_window.h"
#include "editor/save.h"
#include "editor/world_map.h"
#include "rom/number_text.h"
#include "support/editor_fixture.h"

#include <gtest/gtest.h>

#include <functional>

namespace veldrune::test {
namespace {

using demo::demo_map::town;

void paint(Editor& editor) {
    editor.click(MouseButton::left, 100, 100);
}
void paint_dawn(Editor& editor) {
    open_world_of_dawn(editor.s);
    paint(editor);
}

TEST(Questions, OfASaveComeInOneOrderAndEachCanEndIt) {
    const std::pair<void (*)(EditorState&), std::vector<std::string>> cases[] = {
        {save, {"This map; ", "b.smc is; ", "This saves; ", "This save; "}},
        {save_as, {"This map; ", "This saves; ", "This save; "}}};
    for (const auto& [run, order] : cases) {
        std::string asked; // the first of them, all agreed to but the last
        for (std::size_t agreed = 0; agreed < order.size(); ++agreed) {
            Town editor(true);
            paint_dawn(editor);
            editor.dialogs.answers = {false};
            editor.choose(5); // Cancel: a save takes the town and leaves the painting
            editor.disk["b.smc"] = demo_bytes();
            open_image_file(editor.s, "b.smc");
            editor.disk.rename("b.smc", "moved.smc");
            editor.form.Text14 = "";
            editor.disk.accesses.clear();
            editor.dialogs.questions.clear();
            save_as(editor.s); // Cancel in the file dialog, which comes first
            EXPECT_TRUE(editor.dialogs.questions.empty());
            editor.dialogs.file_names = {"c.smc"};
            editor.dialogs.answers.assign(agreed, true);
            editor.dialogs.answers.push_back(false);
            run(editor.s);
            EXPECT_EQ(editor.dialogs.asked(), asked += order[agreed]);
            EXPECT_TRUE(editor.disk.accesses.empty());
        }
    }
}

TEST(NamelessFile, StaysAcceptedAfterALaterCancelUntilAnImageIsOpened) {
    Town editor;
    editor.form.Text14 = ""; // can hardly be meant
    editor.disk.rename("a.smc", "moved.smc");
    editor.dialogs.answers = {true, false, false, false};
    save(editor.s);
    save(editor.s);
    editor.disk.rename("moved.smc", "a.smc");
    open_image_file(editor.s, "a.smc");
    editor.disk.rename("a.smc", "moved.smc");
    save(editor.s);
    EXPECT_EQ(editor.dialogs.asked(), "a.smc is; This save; This save; a.smc is; ");
}

TEST(NamelessFile, IsAskedAboutOnceForEachOpeningAndNothingIsWrittenOnCancel) {
    for (void (*const run)(EditorState&) : {save, save_object, expand_rom, apply_dialogue_patch}) {
        Town editor(true);
        open_object(editor.s, ObjectKind::event_trigger, 0);
        editor.s.form10.Text4 = "a0200 ";
        editor.disk.rename("a.smc", "moved.smc");
        Bytes& image = editor.disk["moved.smc"];
        editor.dialogs.answers = {false, true};
        run(editor.s);
        EXPECT_TRUE(image == demo_bytes());
        EXPECT_EQ(editor.s.form10.Text4, "a0200 ");
        run(editor.s);
        run(editor.s);
        EXPECT_EQ(editor.dialogs.asked(), "a.smc is; a.smc is; ");
        EXPECT_FALSE(editor.disk.log.empty());
    }
}

TEST(Painting, ThatASaveLeavesOutIsAskedAbout) {
    Town editor(true);
    paint_dawn(editor);
    EXPECT_TRUE(editor.s.world.unsaved_painting && !editor.s.map.unsaved_painting);
    editor.dialogs.answers = {false, true};
    editor.choose(5); // Cancel: Save takes the map's path now
    save(editor.s);
    EXPECT_TRUE(editor.s.changes_saved && !editor.s.world.unsaved_painting); // given up
    paint(editor);
    EXPECT_TRUE(editor.s.map.unsaved_painting);
    editor.s.world.unsaved_painting = true;
    editor.s.world.source.reset(); // it could not be read whole, but would be lost all the same
    editor.dialogs.questions.clear();
    save(editor.s);
    EXPECT_EQ(editor.dialogs.asked(), "This saves; ");
    EXPECT_TRUE(!editor.s.map.unsaved_painting && editor.s.changes_saved);
}

TEST(Painting, OfAWorldIsAskedAboutBeforeAnotherOneOpens) {
    Town editor(true);
    paint_dawn(editor);
    const auto cells = editor.s.world.world_map.cells;
    editor.dialogs.answers = {false};
    editor.choose(town); // Cancel leaves the world, which is painted still
    editor.dialogs.questions.clear();
    editor.dialogs.answers = {false};
    open_world_of_dusk(editor.s);
    EXPECT_EQ(editor.dialogs.asked(), "The painting; ");
    EXPECT_TRUE(editor.s.world.world == World::dawn && editor.s.world.world_map.cells == cells);
    EXPECT_TRUE(editor.s.world_map_mode && editor.s.world_map_open && editor.form.HScroll2.visible);
    EXPECT_TRUE(!editor.form.map_fields_enabled && editor.form.Text24_visible);
    EXPECT_EQ(editor.form.Combo1, town);
    EXPECT_EQ(editor.s.objects.lists.map, 0);
    save(editor.s);
    EXPECT_TRUE(editor.s.changes_saved && !editor.s.world.unsaved_painting);
    paint(editor);
    editor.s.world.source.reset(); // it could not be saved
    editor.dialogs.questions.clear();
    open_world_of_dusk(editor.s);
    EXPECT_EQ(editor.dialogs.asked().find("The painting"), std::string::npos);
    EXPECT_TRUE(editor.s.world.world == World::dusk);
}

TEST(Doubts, NameTheLayersThatASaveWouldLoseOrThatWouldDestroyOthers) {
    const auto field = [](int layer, const char* text) {
        return [=](Editor& editor) { editor.form.*layer_controls[layer].location = text; };
    };
    using Spoil = std::function<void(Editor&)>;
    const Editor other; // where another map's stream begins
    const std::string taken = format_hex(0x19D3B0 + other.s.rom.read_pointer24(0x19CF90 + 3 * 40));
    // clang-format off
    const struct { Spoil spoil; void (*run)(EditorState&); std::string named; } cases[] = {
        {[](Editor&) {},                                              save,    ""},
        {[](Editor&) {},                                              save_as, ""},
        {field(0, "310200"),                                          save,    ""}, // an ordinary move
        {field(0, ""),                                                save,    "Layer 1 at 0: its pointer"},
        {field(0, "19D3AF"),                                          save_as, "Layer 1 at 19D3AF: its pointer"},
        {field(1, "4001FF"),                                          save,    "Layer 2 at 4001FF: it would reach"},
        {field(1, "7FFFFFFF"),                                        save,    "Layer 2 at 7FFFFFFF: its pointer"},
        {field(0, "19D3B0"),                                          save,    "Layer 1 at 19D3B0: it would cover"},
        {field(1, taken.c_str()),                                     save,    "Layer 2 at " },
        {field(2, "310200"),                                          save_as, "Layer 3 at 310200: its pointer"},
        {[](Editor& editor) { editor.form.Text2 = "48"; },            save,    "Layer 1 at "}, // keeps its old size
        {[](Editor& editor) { editor.form.Text12 = editor.form.Text14; }, save,    "Layer 1 at "},
        {[](Editor& editor) { open_world_of_dawn(editor.s); editor.form.Text24 = ""; }, save, "The world map at 0: its pointer"},
    };
    // clang-format on
    for (const auto& [spoil, run, named] : cases) {
        Town editor;
        spoil(editor);
        editor.dialogs.answers = {false};
        editor.dialogs.file_names = {"b.smc"};
        run(editor.s);
        ASSERT_EQ(editor.dialogs.asked(), named.empty() ? "" : "This save; ") << named;
        if (named.empty())
            continue;
        EXPECT_NE(editor.dialogs.questions[0].find(named), std::string::npos) << named;
        EXPECT_TRUE(editor.image() == demo_bytes() && !editor.disk.exists("b.smc"));
        EXPECT_TRUE(editor.dialogs.messages.empty()); // warnings come when the save runs
    }
}

TEST(Flush, ThatFailsIsReportedOnceAndLeavesTheChangesUnsaved) {
    for (const bool world : {false, true}) {
        Town editor(true);
        if (world)
            open_world_of_dawn(editor.s);
        editor.click(MouseButton::left, 100, 100);
        const MapProperties record = editor.s.map.map_properties;
        editor.form.Text44 = "7";
        editor.dialogs.messages.clear();
        const int last =
            world ? 3 : 9; // after two writes, or three streams, three pointers and two
        editor.disk.fail(0, last);
        save(editor.s);
        ASSERT_EQ(editor.dialogs.messages.size(), 1u);
        EXPECT_TRUE(editor.dialogs.messages[0].text.starts_with("The disk has not confirmed"));
        EXPECT_FALSE(editor.s.changes_saved);
        EXPECT_EQ(editor.s.map.map_properties, record);
    }
}

} // namespace
} // namespace veldrune::test
