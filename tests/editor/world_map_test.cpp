#include "editor/save.h"
#include "editor/tile_chooser.h"
#include "editor/view.h"
#include "editor/world_map.h"
#include "editor/world_view.h"
#include "support/world_image.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

using enum MouseButton;
using enum ObjectKind;
using demo::demo_map::town;
constexpr void (*open_world[])(EditorState&) = {open_world_of_dawn, open_world_of_dusk};

const WorldImage& world_image() {
    static const WorldImage image;
    return image;
}

struct WorldEditor : Editor {
    std::size_t world;
    WorldData data; // what the world must hold

    explicit WorldEditor(std::size_t which = 0, const WorldImage& image = world_image())
        : Editor(image.bytes), world(which), data(image.worlds[which]) {
        open();
    }
    void open() { open_world[world](s); }
    // Tiles that lengthen the stream by some bytes.
    void grow(int tiles) {
        for (int i = 0; i < tiles; ++i)
            s.world.world_map.at(7 * i % 256, i) ^= 1;
        s.changes_saved = false;
    }
    Bytes stream() { return literal_compress_world_map(s.world.world_map.cells); }
    int stream_size() { return static_cast<int>(stream().size()); }
    bool shows_bars(bool of_world) const {
        return form.HScroll2.visible == of_world && form.VScroll2.visible == of_world &&
               form.HScroll1.visible != of_world && form.VScroll1.visible != of_world;
    }

    // Puts boxes and grid anywhere, and the bars where one of the objects may be in view.
    void look_about(Random& random) {
        const Bytes& object = random.below(2) == 0 ? data.entrance : data.event;
        form.HScroll1.value = random.below(128);
        form.VScroll1.value = random.below(128);
        form.HScroll2.value = std::clamp(object[0] - random.below(40), 0, 224);
        form.VScroll2.value = std::clamp(object[1] - random.below(40), 0, 224);
        for (bool* box : {&form.Check3, &form.Check4, &form.grid_on})
            *box = random.below(3) != 0;
    }
    // The tile that must lie at a pixel of the picture.
    std::uint8_t& tile_at(int x, int y) {
        return data.tile(form.HScroll2.value + x / 16, form.VScroll2.value + y / 16);
    }
    void expect_picture(const char* step) {
        for (int y = 0; y < 512; ++y)
            for (int x = 0; x < 512; ++x)
                ASSERT_EQ(s.display.picture.row(y)[x], data.pixel(form, x, y))
                    << step << x << " " << y;
    }
};

TEST(WorldMap, EveryStepLeavesThePictureThatAPixelByPixelReferenceGives) {
    for (unsigned seed = 0; seed < 8; ++seed) {
        Random random(seed);
        WorldEditor editor(seed % 2, WorldImage(seed));
        Form1& form = editor.form;
        const int x = random.below(512), y = random.below(512);
        editor.choose(5); // before a map is chosen the grid buttons are dead
        editor.look_about(random);
        editor.open();
        editor.expect_picture("open");
        editor.look_about(random);
        refresh_world_view(editor.s);
        editor.expect_picture("scroll");

        const std::uint8_t tile = random.byte();
        form.current_tile = tile;
        on_press(editor.s, left, 0, 0);
        for (const auto& [to_x, to_y] : {std::pair{x, y}, {511, 511}, {-1, 0}, {512, 5}})
            on_move(editor.s, to_x, to_y);
        on_release(editor.s);
        editor.tile_at(x, y) = editor.tile_at(511, 511) = tile;
        editor.expect_picture("drag");
        EXPECT_FALSE(editor.s.changes_saved);
        form.current_tile ^= 1;
        editor.click(left, x, y);
        editor.tile_at(x, y) ^= 1;
        editor.expect_picture("click");
        form.grid_on = !form.grid_on;
        on_grid_change(editor.s);
        editor.expect_picture("grid");
        form.tool = Tool::objects;
        form.Check3 = form.Check4 = true;
        editor.click(left, x, y);
        EXPECT_EQ(form.Text20, std::to_string(form.HScroll2.value + x / 16));
        editor.expect_picture("objects");
        EXPECT_TRUE(std::ranges::equal(editor.s.world.world_map.cells, editor.data.tiles));
    }
}

TEST(WorldMap, APickTakesTheTileAndTheNextClickMayPaint) {
    WorldEditor editor;
    Form1& form = editor.form;
    const std::uint8_t here = editor.tile_at(300, 40), there = editor.tile_at(100, 200);
    ASSERT_TRUE(here != 0 && there != here);
    form.edit_layer = 2;
    form.tool = Tool::get_tile;
    editor.click(left, 300, 40);
    EXPECT_TRUE(form.current_tile == here && form.edit_layer == 0 && form.tool == Tool::get_tile);
    EXPECT_TRUE(editor.s.changes_saved && !editor.s.tile_picked);
    EXPECT_EQ(form.Picture3.row(9)[63], editor.data.tile_pixel(here, 15, 2));
    form.tool = Tool::draw;
    editor.s.tile_picked = true;   // as a pick on a map leaves it
    editor.click(right, 100, 200); // writes what it has just picked
    EXPECT_TRUE(form.current_tile == there && !editor.s.changes_saved);
    EXPECT_TRUE(std::ranges::equal(editor.s.world.world_map.cells, editor.data.tiles));
}

TEST(WorldMap, TheChooserShowsItsSheetAlone) {
    WorldEditor editor(1);
    open_tile_chooser(editor.s);
    EXPECT_TRUE(editor.s.form8.visible && !editor.s.form2.visible);
    EXPECT_EQ(editor.s.display.tile_sheet.row(37)[41], editor.data.tile_pixel(17, 4, 2));
    EXPECT_EQ(editor.s.display.tile_sheet.row(32)[41], 0xFFFFFF);
}

TEST(WorldMap, OpeningGoesThroughItsMapAndComesBack) {
    for (const int world : {0, 1}) {
        WorldEditor editor(static_cast<std::size_t>(world));
        EXPECT_EQ(editor.form.Text24, world == 0 ? "2F0100" : "308235");
        EXPECT_TRUE(editor.form.Text24_visible && !editor.form.map_fields_enabled);
        EXPECT_TRUE(editor.s.zoom == 2.0f && editor.form.Text4 == "1");
        EXPECT_TRUE(editor.form.Combo1 == world && editor.s.map.map_index == world);
        EXPECT_EQ(editor.s.map_selected, world == 1);
        for (const ObjectKind kind : all_kinds) // two lists are read, ticked or not
            EXPECT_EQ(editor.s.objects.lists[kind].row_count,
                      kind == entrance || kind == event_trigger);
        editor.choose(world); // the row that is current already
        EXPECT_FALSE(editor.s.world_map_mode || editor.s.world_map_open);
        EXPECT_TRUE(editor.form.map_fields_enabled && !editor.form.Text24_visible);
        EXPECT_TRUE(editor.shows_bars(false) && editor.dialogs.silent());
    }
}

TEST(WorldMap, CancelShowsTheWorldWithTheFormerMapsLists) {
    WorldEditor editor;
    const Form1& form = editor.form;
    const int& npcs = editor.s.objects.lists[npc].row_count;
    editor.choose(town);
    refresh_map(editor.s);
    editor.s.world.world_map.at(0, 0) ^= 1; // gone before the question comes
    editor.s.changes_saved = false;
    editor.dialogs.answers = {false, false};
    editor.open();
    EXPECT_TRUE(editor.s.world_map_mode && editor.s.world_map_open && editor.shows_bars(true));
    EXPECT_TRUE(form.Combo1 == 0 && editor.s.map.map_index == town && npcs > 0);
    editor.expect_picture("open");
    editor.choose(5); // Cancel on the way back
    EXPECT_FALSE(editor.s.world_map_mode || editor.s.world_map_open || editor.shows_bars(true));
    EXPECT_FALSE(form.map_fields_enabled || !form.Text24_visible || editor.s.changes_saved);
    EXPECT_TRUE(form.Combo1 == 5 && editor.s.map.map_index == town); // the list as clicked
    editor.s.changes_saved = false;
    editor.open(); // OK: with its own lists alone
    EXPECT_TRUE(npcs == 0 && editor.s.map.map_index == 0 && editor.s.changes_saved);
    EXPECT_EQ(editor.dialogs.questions.size(), 3u);
}

TEST(WorldMap, AClickOpensItsObjectsTheEventLast) {
    WorldImage image = world_image();
    put_objects(image.bytes, entrance, 0, {{20, 5, 1, 0, 0, 0}, {20, 5, 2, 0, 0, 0}});
    put_objects(image.bytes, event_trigger, 0, {{9, 9, 1, 0, 0}, {20, 5, 1, 0, 0}});
    put_objects(image.bytes, long_entrance, 0, {{20, 5, 0, 1, 0, 0, 0}});
    WorldEditor editor(0, image);
    editor.choose(0);
    refresh_map(editor.s); // reads the long entrance, too
    editor.open();
    editor.form.tool = Tool::objects;
    editor.form.Check4 = true;
    for (const ObjectKind last : {entrance, event_trigger}) {
        editor.form.Check3 = last == event_trigger;
        editor.click(left, 20 * 16, 5 * 16);
        EXPECT_EQ(editor.s.form10.TabStrip1, static_cast<int>(last));
        EXPECT_EQ(editor.s.objects.selected_object.index, 1);
    }
}

TEST(WorldMap, TheQuestionCountsFromTheStreamWrittenLast) {
    WorldEditor editor;
    const auto& questions = editor.dialogs.questions;
    const int old_size = editor.s.world.world_packed_size;
    editor.grow(3);
    editor.dialogs.answers = {false};
    save(editor.s);
    ASSERT_EQ(questions.size(), 1u);
    EXPECT_TRUE(questions[0].starts_with("The map youre trying to save is " +
                                         std::to_string(editor.stream_size() - old_size) +
                                         " larger than the original map saving this map to "));
    EXPECT_EQ(editor.disk.writes, 0);
    // It comes again until the stream has been written, whatever becomes of the pointer.
    for (const int refused_write : {1, 2, 0}) {
        editor.disk.fail(0, refused_write);
        save(editor.s);
        EXPECT_EQ(questions.size(), refused_write == 1 ? 2u : 3u);
        EXPECT_EQ(editor.s.changes_saved, refused_write == 0);
    }
    editor.s.world.world_map.cells.fill(0); // shorter
    save(editor.s);
    EXPECT_EQ(questions.size(), 3u);
    EXPECT_EQ(editor.s.world.world_packed_size, editor.stream_size());
}

TEST(WorldMap, ASaveWritesItsStreamAndThenThePointerThatCanNameIt) {
    const Message six{"Map Data Location must be 6 digits long", "Error"};
    const Message far{"No pointer reaches 400200. The pointer to the world map stays as it was.",
                      "Error"};
    // clang-format off
    const struct { std::size_t world; const char* text; int location; bool asks; Messages messages; const char* pointer; } cases[] = {
        {0, "0",      0,        true,  {six}, "00 FF EE"}, // as it was
        {0, "1001FF", 0x1001FF, true,  {six}, "00 FF EE"},
        {0, "100200", 0x100200, false, {},    "00 00 D0"},
        {1, "3D0200", 0x3D0200, false, {},    "00 00 FD"},
        {0, "4001FF", 0x4001FF, true,  {},    "FF FF FF"}, // its end would reach too far
        {0, "400200", 0x400200, true,  {far}, "00 FF EE"},
    };
    // clang-format on
    for (const auto& c : cases) {
        WorldEditor editor(c.world);
        Bytes expected = editor.image();
        editor.s.world_map_mode = false; // a build alone does not lead out of Save's world path
        save(editor.s);                  // nothing changed
        EXPECT_TRUE(editor.image() == expected);
        editor.grow(5);
        editor.disk.log.clear();
        editor.form.Text24 = c.text;
        editor.dialogs.answers = {!c.asks};
        save(editor.s);
        EXPECT_EQ(editor.image() == expected, c.asks);
        save(editor.s);
        EXPECT_EQ(editor.dialogs.questions.size(), c.asks ? 3u : 1u); // and about the growth
        EXPECT_EQ(editor.dialogs.messages, c.messages);
        EXPECT_TRUE(editor.s.changes_saved);
        put_bytes(expected, static_cast<std::size_t>(c.location), editor.stream());
        put_bytes(expected, world_places[c.world].map_pointer, hex_bytes(c.pointer));
        EXPECT_TRUE(editor.image() == expected) << c.text;
        EXPECT_EQ(editor.disk.log.at(0).offset, c.location); // first
    }
}

// 32767 bytes are the longest that the game reads.
TEST(WorldMap, ALongerStreamIsNeitherTakenForAWorldNorWritten) {
    for (const int length : {0x7FFF, 0x8000}) {
        WorldImage image = world_image();
        std::fill_n(image.bytes.begin() + 0x2F0102, 0x8000, std::uint8_t{0xFF});
        put_word(image.bytes, 0x2F0100, static_cast<std::size_t>(length));
        WorldEditor stored(0, image);
        EXPECT_EQ(stored.s.world.world_map.at(0, 0), length < 0x8000 ? 0xFF : 0);
        WorldEditor painted;
        painted.s.world.world_map.cells.fill(0);
        Random random(4); // with it one tile makes one byte
        std::generate_n(painted.s.world.world_map.cells.begin(), 26984 + length - 0x7FFF,
                        [&] { return random.byte(); });
        ASSERT_EQ(painted.stream_size(), length);
        for (WorldEditor* editor : {&stored, &painted}) {
            save(editor->s);
            EXPECT_EQ(editor->disk.writes, length < 0x8000 ? 3 : 0);
            EXPECT_EQ(editor->dialogs.messages.size(), length < 0x8000 ? 0u : 1u);
        }
    }
}

TEST(WorldMap, SaveAsTakesOverTheNameThoughTheSaveIsCancelled) {
    WorldEditor editor;
    editor.grow(3);
    editor.dialogs.file_names = {"b.smc"};
    editor.dialogs.answers = {false};
    save_as(editor.s);
    EXPECT_EQ(editor.form.Label20, "b.smc");
    EXPECT_FALSE(editor.s.changes_saved);
    EXPECT_TRUE(editor.disk["b.smc"] == editor.image() && editor.image() == world_image().bytes);
    save(editor.s); // the world belongs to the copy now: one question
    EXPECT_EQ(editor.dialogs.questions.size(), 2u);
}

} // namespace
} // namespace veldrune::test
