// Any bytes as an image, any order of commands, any text in any field: nothing may crash, hang,
// read or write outside a buffer, or fail to come to an end.

#include "editor/build.h"
#include "editor/commands.h"
#include "editor/mouse.h"
#include "editor/save.h"
#include "editor/view.h"
#include "editor/world_map.h"
#include "rom/rom_layout.h"
#include "support/editor_fixture.h"

#include <gtest/gtest.h>

namespace veldrune::test {
namespace {

// Every text field that a user can type into.
constexpr std::string Form1::*text_fields[] = {
    &Form1::Text1,  &Form1::Text2,  &Form1::Text3,  &Form1::Text5,  &Form1::Text6,  &Form1::Text7,
    &Form1::Text8,  &Form1::Text9,  &Form1::Text10, &Form1::Text11, &Form1::Text12, &Form1::Text13,
    &Form1::Text14, &Form1::Text16, &Form1::Text17, &Form1::Text18, &Form1::Text20, &Form1::Text21,
    &Form1::Text22, &Form1::Text23, &Form1::Text24, &Form1::Text25, &Form1::Text37, &Form1::Text39,
    &Form1::Text40, &Form1::Text41, &Form1::Text42, &Form1::Text43, &Form1::Text44, &Form1::Text45,
    &Form1::Text46,
};

std::string any_text(Random& random) {
    static const std::string texts[] = {"",         " ",          "0",   "16",          "128",
                                        "19D3B0",   "2147483647", "-1",  "99999999999", "FFFFFFFF",
                                        "80000000", "7FFFFFFF",   "64",  "1G",          "x",
                                        "85",       "84",         "255", "32",          "300000"};
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

int any_bar_value(Random& random, const ScrollBar& bar) {
    return bar.maximum == 0
               ? 0
               : static_cast<int>(random.engine() % (1u + static_cast<unsigned>(bar.maximum)));
}

void any_command(Editor& editor, Random& random) {
    EditorState& state = *editor.state;
    Form1& form = editor.form;
    const int x = random.below(900) - 200;
    const int y = random.below(900) - 200;
    const auto button = random.below(2) == 0 ? MouseButton::left : MouseButton::right;
    switch (random.below(16)) {
    case 12:
        form.HScroll2.value = any_bar_value(random, form.HScroll2);
        form.VScroll2.value = any_bar_value(random, form.VScroll2);
        return refresh_world_view(state);
    case 13:
        return random.below(2) == 0 ? open_world_of_dawn(state) : open_world_of_dusk(state);
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
        form.Check5 = random.below(2) != 0, form.Check7 = random.below(2) != 0;
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
    case 9: {
        const auto commands = button_commands();
        const ButtonCommand& command =
            commands[static_cast<std::size_t>(random.below(static_cast<int>(commands.size())))];
        return run_command(state, command.guard, command.run);
    }
    case 10:
        editor.dialogs.file_names = {random.below(2) == 0 ? "b.smc" : "missing/none.smc"};
        [[fallthrough]];
    case 11: {
        const auto commands = menu_commands();
        const Command& command =
            commands[static_cast<std::size_t>(random.below(static_cast<int>(commands.size())))];
        return run_command(state, command.guard, command.run);
    }
    default:
        form.*text_fields[random.below(std::size(text_fields))] = any_text(random);
    }
}

TEST(EditorFuzz, AnyImageAnyCommandAnyText) {
    for (unsigned seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        Random random(seed);
        Editor editor(any_image(random));
        editor.choose(random.below(rom_layout::map_count));
        for (int step = 0; step < 80; ++step) {
            if (random.below(3) == 0)
                editor.dialogs.answers = {random.below(2) != 0};
            any_command(editor, random);
            ASSERT_GE(editor.form.HScroll1.value, 0);
            ASSERT_LE(editor.form.HScroll1.value, editor.form.HScroll1.maximum);
            ASSERT_TRUE(editor.state->rom.is_open());
        }
    }
}

} // namespace
} // namespace veldrune::test
