// Any bytes as an image, any order of commands, any text in any field: nothing may crash, hang,
// read or write outside a buffer, or run without end.

#include "editor/build.h"
#include "editor/commands.h"
#include "editor/mouse.h"
#include "editor/object_window.h"
#include "editor/save.h"
#include "editor/tile_chooser.h"
#include "editor/view.h"
#include "editor/world_map.h"
#include "editor/world_view.h"
#include "rom/rom_layout.h"
#include "support/editor_fixture.h"
#include "support/object_image.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

std::string any_text(Random& random) {
    static const std::string texts[] = {
        "",     " ",           "0",        "16",       "128",      "19D3B0", "2147483647",
        "-1",   "99999999999", "FFFFFFFF", "80000000", "7FFFFFFF", "64",     "1G",
        "x",    "85",          "84",       "255",      "32",       "300000", "1EE0:7",
        "1F:7", "3:5",         "1EE0:8",   "::::",     "72",       "73",     "A0200"};
    if (random.below(4) != 0)
        return texts[random.below(std::size(texts))];
    std::string text(static_cast<std::size_t>(random.below(12)), ' ');
    for (char& c : text)
        c = static_cast<char>(random.byte());
    return text;
}

Bytes any_image(Random& random) {
    switch (random.below(4)) {
    case 0: // noise, short or long
    {
        Bytes image(static_cast<std::size_t>(random.below(rom_layout::image_size)));
        for (std::uint8_t& byte : image)
            byte = random.byte();
        return image;
    }
    case 1:
        return Bytes(static_cast<std::size_t>(random.below(rom_layout::image_size)), random.byte());
    default: // the demo image, damaged, and perhaps cut
    {
        Bytes image = demo_bytes();
        for (int i = 0; i < 20000; ++i)
            image[static_cast<std::size_t>(random.below(rom_layout::image_size))] = random.byte();
        if (random.below(2) == 0)
            image.resize(static_cast<std::size_t>(random.below(rom_layout::image_size)));
        return image;
    }
    }
}

// Gives most maps some objects, of any bytes.
void lay_out_objects(Bytes& image, Random& random) {
    for (const KindPlace& place : kind_places) {
        std::size_t first = 0x400;
        for (std::size_t at = place.pointers; at < place.pointers + 2 * 415; at += 2) {
            if (at + 1 < image.size())
                put_word(image, at, first);
            first += static_cast<std::size_t>(random.below(60));
        }
    }
}

int any_bar_value(Random& random, const ScrollBar& bar) {
    return bar.maximum == 0
               ? 0
               : static_cast<int>(random.engine() % (1u + static_cast<unsigned>(bar.maximum)));
}

// What the user can do in the object window, also without a record in it.
void any_object_command(EditorState& state, Random& random) {
    Form10& form = state.form10;
    switch (random.below(8)) {
    case 0:
        form.TabStrip1 = random.below(object_tab_count);
        return on_object_tab(state);
    case 1:
        form.HScroll1.value = 1 + random.below(form.HScroll1.maximum);
        return on_record_scroll(state);
    case 2:
        return save_object(state);
    case 3:
        form.Combo1 = random.below(4);
        form.Combo3 = random.below(4);
        form.Combo4 = random.below(16);
        form.option = random.below(6) - 1;
        form.Combo2 = random.below(static_cast<int>(form.Combo2_lines.size()) + 1) - 1;
        return;
    case 4:
        if (random.below(4) == 0)
            close_object_window(state);
        return;
    default:
        form.*form10_texts[static_cast<std::size_t>(random.below(std::size(form10_texts)))].text =
            any_text(random);
        on_sprite_text(state);
        return on_palette_text(state);
    }
}

void any_command_from(EditorState& state, Command first, Command last, Random& random) {
    const int count = static_cast<int>(last) - static_cast<int>(first) + 1;
    run_command(state, static_cast<Command>(static_cast<int>(first) + random.below(count)));
}

void any_command(Editor& editor, Random& random) {
    EditorState& state = *editor.state;
    Form1& form = editor.form;
    const int x = random.below(900) - 200;
    const int y = random.below(900) - 200;
    const auto button = random.below(2) == 0 ? MouseButton::left : MouseButton::right;
    switch (random.below(20)) {
    case 0:
        return editor.choose(random.below(rom_layout::map_count));
    case 1:
        form.HScroll1.value = any_bar_value(random, form.HScroll1);
        return on_h_scroll(state);
    case 2:
        form.VScroll1.value = any_bar_value(random, form.VScroll1);
        return on_v_scroll(state);
    case 3:
        form.grid_on = !form.grid_on;
        return on_grid_change(state);
    case 4:
        for (bool Form1::*box : {&Form1::Check5, &Form1::Check6, &Form1::Check7})
            form.*box = random.below(2) != 0;
        return on_view_box_change(state);
    case 5:
        return on_press(state, button, x, y);
    case 6:
        return on_move(state, x, y);
    case 7:
        on_release(state);
        return on_click(state, x, y);
    case 8:
        form.edit_layer = random.below(3);
        form.tool = static_cast<Tool>(random.below(3));
        form.current_tile = random.below(256);
        return;
    case 9:
        return any_command_from(state, Command::open_tile_chooser, Command::zoom_out, random);
    case 10:
        editor.dialogs.file_names = {random.below(2) == 0 ? "b.smc" : "missing/none.smc"};
        [[fallthrough]];
    case 11:
        return any_command_from(state, Command::open, Command::show_about, random);
    case 12:
        for (bool Form1::*box : {&Form1::Check1, &Form1::Check2, &Form1::Check3, &Form1::Check4})
            form.*box = random.below(4) != 0;
        form.tool = Tool::objects;
        return on_click(state, x, y);
    case 13:
        state.form2.layer = random.below(3);
        if (random.below(2) == 0)
            return on_palette_layer(state);
        return choose_tile(state, x, y);
    case 14:
    case 15:
        return any_object_command(state, random);
    case 16:
        form.HScroll2.value = any_bar_value(random, form.HScroll2);
        form.VScroll2.value = any_bar_value(random, form.VScroll2);
        return refresh_world_view(state);
    case 17:
        if (random.below(2) == 0)
            return open_world_of_dawn(state);
        return open_world_of_dusk(state);
    default:
        form.*form1_texts[static_cast<std::size_t>(random.below(std::size(form1_texts)))].text =
            any_text(random);
    }
}

TEST(EditorFuzz, AnyImageAnyCommandAnyText) {
    for (unsigned seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        Random random(seed);
        Bytes image = any_image(random);
        if (random.below(4) != 0)
            lay_out_objects(image, random);
        Editor editor(image);
        editor.choose(random.below(rom_layout::map_count));
        for (int step = 0; step < 80; ++step) {
            if (random.below(3) == 0)
                editor.dialogs.answers = {random.below(2) != 0};
            any_command(editor, random);
            for (const auto bar :
                 {&Form1::HScroll1, &Form1::VScroll1, &Form1::HScroll2, &Form1::VScroll2}) {
                ASSERT_GE((editor.form.*bar).value, 0);
                ASSERT_LE((editor.form.*bar).value, (editor.form.*bar).maximum);
            }
            ASSERT_TRUE(editor.state->rom.is_open());
            const RecordBar& bar = editor.state->form10.HScroll1;
            ASSERT_TRUE(bar.value >= 1 && bar.value <= bar.maximum);
        }
    }
}

} // namespace
} // namespace veldrune::test
