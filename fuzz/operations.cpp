#include "operations.h"

#include "editor/build.h"
#include "editor/commands.h"
#include "editor/event_editor.h"
#include "editor/mouse.h"
#include "editor/object_window.h"
#include "editor/open_image.h"
#include "editor/select_map.h"
#include "editor/tile_chooser.h"
#include "editor/view.h"
#include "editor/world_map.h"
#include "editor/world_view.h"
#include "rom/rom_layout.h"

namespace veldrune::test {
namespace {

template <Command command>
void run(Session& s) {
    run_command(s.state, command);
}
template <void (*operation)(EditorState&)>
void call(Session& s) {
    operation(s.state);
}

// The main window.

void choose_map(Session& s) {
    const int few = std::min(12, rom_layout::map_count);
    s.state.form1.Combo1 = s.choices.below(s.choices.one_in(3) ? rom_layout::map_count : few);
    select_map(s.state);
}

void move_bar(Session& s, ScrollBar& bar) {
    const int last = std::min(bar.maximum, 0x7FFFFFFE);
    bar.value = s.choices.one_in(4) ? bar.maximum : s.choices.below(last + 1);
}
template <ScrollBar Form1::*bar, void (*after)(EditorState&)>
void scroll(Session& s) {
    move_bar(s, s.state.form1.*bar);
    after(s.state);
}

template <bool Form1::*... boxes>
void tick(Session& s) {
    ((s.state.form1.*boxes = !s.choices.one_in(3)), ...);
}
void change_view_boxes(Session& s) {
    tick<&Form1::Check5, &Form1::Check6, &Form1::Check7>(s);
    on_view_box_change(s.state);
}
void change_grid(Session& s) {
    s.state.form1.grid_on = !s.state.form1.grid_on;
    on_grid_change(s.state);
}
void change_tool(Session& s) {
    s.state.form1.tool = static_cast<Tool>(s.choices.below(3));
}
void change_edit_layer(Session& s) {
    s.state.form1.edit_layer = s.choices.below(layer_count);
}
void type_field(Session& s) {
    const int row = s.choices.below(static_cast<int>(std::size(form1_texts)));
    s.state.form1.*form1_texts[static_cast<std::size_t>(row)].text = any_text(s.choices);
}
// Moves a layer, or the world, to a place that may be free, or to one that is not.
void type_location(Session& s) {
    constexpr std::string Form1::*fields[] = {&Form1::Text14, &Form1::Text12, &Form1::Text25,
                                              &Form1::Text24};
    const std::string places[] = {"310200", "312A00", "1A0000", s.state.form1.Text14,
                                  s.state.form1.Text12};
    s.state.form1.*s.choices.of<std::string Form1::*>(fields) = s.choices.of<std::string>(places);
}

int any_pixel(Session& s) {
    return s.choices.one_in(8) ? s.choices.below(900) - 200 : s.choices.below(view_size);
}

void turn_wheel(Session& s) {
    const int notches = 1 + s.choices.below(3);
    zoom_about(s.state, s.choices.one_in(2) ? notches : -notches, any_pixel(s), any_pixel(s));
}
MouseButton any_button(Session& s) {
    return s.choices.one_in(3) ? MouseButton::right : MouseButton::left;
}
void press(Session& s) {
    on_press(s.state, any_button(s), any_pixel(s), any_pixel(s));
}
void move(Session& s) {
    on_move(s.state, any_pixel(s), any_pixel(s));
}
void release(Session& s) {
    on_release(s.state);
    if (!s.choices.one_in(4))
        on_click(s.state, any_pixel(s), any_pixel(s));
}
void stroke(Session& s) {
    press(s);
    for (int left = s.choices.below(4); left > 0; --left)
        move(s);
    release(s);
}
void paint(Session& s) {
    s.state.form1.tool = Tool::draw;
    s.state.form1.current_tile = s.choices.below(256);
    stroke(s);
}
void click_objects(Session& s) {
    tick<&Form1::Check1, &Form1::Check2, &Form1::Check3, &Form1::Check4>(s);
    s.state.form1.tool = Tool::objects;
    on_click(s.state, any_pixel(s), any_pixel(s));
}

// The tile chooser and the layer palette.

void change_palette_layer(Session& s) {
    s.state.form2.layer = s.choices.below(layer_count);
    on_palette_layer(s.state);
}
void choose_any_tile(Session& s) {
    choose_tile(s.state, any_pixel(s), any_pixel(s));
}

// The object window.

void open_any_object(Session& s) {
    open_object(s.state, static_cast<ObjectKind>(s.choices.below(object_tab_count)),
                s.choices.below(6));
}
void change_tab(Session& s) {
    s.state.form10.TabStrip1 = s.choices.below(object_tab_count);
    on_object_tab(s.state);
}
void scroll_records(Session& s) {
    s.state.form10.HScroll1.value = 1 + s.choices.below(s.state.form10.HScroll1.maximum);
    on_record_scroll(s.state);
}
void type_object_field(Session& s) {
    const int row = s.choices.below(static_cast<int>(std::size(form10_texts)));
    const auto text = form10_texts[static_cast<std::size_t>(row)].text;
    s.state.form10.*text = any_text(s.choices);
    if (text == &Form10::Text2)
        on_palette_text(s.state);
    if (text == &Form10::Text7)
        on_sprite_text(s.state);
}
void change_object_controls(Session& s) {
    Form10& form = s.state.form10;
    form.Combo1 = s.choices.below(4);
    const bool npc = chosen_kind(form) == ObjectKind::npc;
    const int lines = npc ? 4 : static_cast<int>(form.Combo2_lines.size());
    form.Combo2 = s.choices.below(lines + 1) - 1;
    form.Combo3 = s.choices.below(4);
    form.Combo4 = s.choices.below(16);
    form.option = s.choices.below(6) - 1;
    form.Check1 = s.choices.one_in(2);
    form.Check2 = s.choices.one_in(2);
    form.Check3 = s.choices.one_in(2);
}

// The Event Editor.

void click_script(Session& s) {
    const int rows = static_cast<int>(s.state.form9.grid.size());
    on_script_click(s.state, s.choices.below(rows + 4) - 2, s.choices.below(6) - 1);
}
void enter_script_text(Session& s) {
    s.state.form9.Text2 = any_text(s.choices);
    on_script_enter(s.state);
}
void enter_script_offset(Session& s) {
    const std::string scripts[] = {"A0200", "A1000", s.state.form9.Text3, any_text(s.choices)};
    s.state.form9.Text3 = s.choices.of<std::string>(scripts);
    on_script_offset_enter(s.state);
}

// The files, by other programs and by dropping one on the window.

void drop_file(Session& s) {
    if (const auto name = s.dialogs.open_file_name(""))
        open_image_file(s.state, *name);
}
void take_name_away(Session& s) {
    const std::string& path = s.state.rom_path;
    if (s.choices.one_in(3))
        s.disk.vanish(path);
    else if (s.choices.one_in(2) && !s.disk.links.contains(path)) {
        Bytes other = s.disk[path];
        s.disk.vanish(path);
        s.disk[path] = std::move(other);
    }
}
void bring_names_back(Session& s) {
    for (const char* name : {"a.smc", "b.smc"})
        if (!s.disk.exists(name))
            s.disk[name] = s.disk["c.smc"];
}
void make_unwritable(Session& s) {
    if (s.choices.one_in(4))
        s.disk.unwritable.insert("");
    else
        s.disk.unwritable.erase("");
}
void cut_file(Session& s) {
    Bytes& image = s.disk["a.smc"];
    image.resize(std::min<std::size_t>(image.size(), 0x300200 + s.choices.byte() * 256u));
}
void mark_elsewhere(Session& s) {
    s.disk.marked_elsewhere = s.choices.one_in(2);
}

using enum Effect;
// clang-format off
constexpr Operation rows[] = {
    // name                 weight run                                   effect   plan               read back
    {"Open",                  3, run<Command::open>},
    {"Save",                 12, run<Command::save>,                     saves,   plan_of_save,      expect_save_back},
    {"Save As",               6, run<Command::save_as>,                  saves,   plan_of_save_as,   expect_save_as_back},
    {"World of Dawn",         3, run<Command::open_world_of_dawn>,       drops},
    {"World of Dusk",         2, run<Command::open_world_of_dusk>,       drops},
    {"Clear Map",             1, run<Command::clear_map>,                empties},
    {"Copy",                  1, run<Command::copy_properties>},
    {"Paste",                 1, run<Command::paste_properties>},
    {"Memory Manager",        1, run<Command::show_memory_manager>},
    {"Expand",                2, run<Command::expand_rom>,               none,    plan_of_expansion},
    {"Dialogue Patch",        2, run<Command::apply_dialogue_patch>,     none,    plan_of_patch},
    {"About",                 1, run<Command::show_about>},
    {"Choose Tile",           2, run<Command::open_tile_chooser>},
    {"Build/Refresh Map",     2, run<Command::refresh_map>},
    {"Build Tileset",         4, run<Command::build_tileset>},
    {"Zoom In",               2, run<Command::zoom_in>},
    {"Zoom Out",              2, run<Command::zoom_out>},
    {"Ctrl and wheel",        2, turn_wheel},
    {"save object",           8, run<Command::save_object>,              none,    plan_of_object,    expect_object_back},
    {"Event Editor",          8, run<Command::open_event_editor>},
    {"save script",           8, run<Command::save_script>,              none,    plan_of_script,    expect_script_back},
    {"choose map",            8, choose_map,                             drops},
    {"HScroll1",              2, scroll<&Form1::HScroll1, on_h_scroll>},
    {"VScroll1",              2, scroll<&Form1::VScroll1, on_v_scroll>},
    {"HScroll2",              2, scroll<&Form1::HScroll2, refresh_world_view>},
    {"VScroll2",              2, scroll<&Form1::VScroll2, refresh_world_view>},
    {"view boxes",            1, change_view_boxes},
    {"grid",                  1, change_grid},
    {"tool",                  2, change_tool},
    {"edit layer",            2, change_edit_layer},
    {"type a field",          5, type_field},
    {"type a location",       2, type_location},
    {"press",                 2, press,                                  paints},
    {"move",                  2, move,                                   paints},
    {"release and click",     2, release,                                paints},
    {"stroke",                2, stroke,                                 paints},
    {"paint",                 6, paint,                                  paints},
    {"click objects",         4, click_objects},
    {"layer palette",         1, change_palette_layer},
    {"choose a tile",         1, choose_any_tile},
    {"close the chooser",     1, call<close_tile_chooser>},
    {"open an object",        8, open_any_object},
    {"object tab",            2, change_tab},
    {"record bar",            2, scroll_records},
    {"object field",          4, type_object_field},
    {"object controls",       2, change_object_controls},
    {"close objects",         1, call<close_object_window>},
    {"click the script",      5, click_script},
    {"enter in the script",   6, enter_script_text},
    {"Escape",                1, call<on_script_escape>},
    {"Add Item",              3, call<add_script_item>},
    {"Remove Item",           1, call<remove_script_item>},
    {"Event Offset",          2, enter_script_offset},
    {"close the script",      1, call<close_event_editor>},
    {"drop a file",           1, drop_file},
    {"take the name away",    1, take_name_away, outside},
    {"bring names back",      1, bring_names_back, outside},
    {"an unwritable folder",  1, make_unwritable, outside},
    {"cut the file",          1, cut_file, outside},
    {"another editor",        1, mark_elsewhere, outside},
};
// clang-format on

} // namespace

std::span<const Operation> operations() {
    return rows;
}

} // namespace veldrune::test
