#include "editor/commands.h"

#include "editor/build.h"
#include "editor/event_editor.h"
#include "editor/map_commands.h"
#include "editor/object_window.h"
#include "editor/open_image.h"
#include "editor/save.h"
#include "editor/tile_chooser.h"
#include "editor/view.h"
#include "editor/view_place.h"
#include "editor/world_map.h"

namespace veldrune {
namespace {

// The condition for a command to run. map_selected: an image is open and a map chosen.
enum class Guard { none, rom_open, map_selected };

struct CommandRow {
    Command command;
    Guard guard;
    void (*run)(EditorState&);
};
// clang-format off
constexpr CommandRow rows[] = {
    {Command::open,                 Guard::none,         open_image},
    {Command::save,                 Guard::rom_open,     save},
    {Command::save_as,              Guard::rom_open,     save_as},
    {Command::open_world_of_dawn,   Guard::none,         open_world_of_dawn},
    {Command::open_world_of_dusk,   Guard::none,         open_world_of_dusk},
    {Command::clear_map,            Guard::map_selected, clear_map},
    {Command::copy_properties,      Guard::none,         copy_properties},
    {Command::paste_properties,     Guard::rom_open,     paste_properties},
    {Command::show_memory_manager,  Guard::none,         show_memory_manager},
    {Command::expand_rom,           Guard::rom_open,     expand_rom},
    {Command::apply_dialogue_patch, Guard::rom_open,     apply_dialogue_patch},
    {Command::show_about,           Guard::none,         show_about},
    {Command::open_tile_chooser,    Guard::rom_open,     open_tile_chooser},
    {Command::refresh_map,          Guard::map_selected, refresh_map},
    {Command::build_tileset,        Guard::map_selected, build_tileset},
    {Command::zoom_in,              Guard::none,         zoom_in},
    {Command::zoom_out,             Guard::none,         zoom_out},
    {Command::save_object,          Guard::rom_open,     save_object},
    {Command::open_event_editor,    Guard::rom_open,     open_event_editor_of_object},
    {Command::save_script,          Guard::rom_open,     save_script},
};
// clang-format on

static_assert(in_order<Command>(rows, &CommandRow::command));

bool holds(const EditorState& state, Guard guard) {
    switch (guard) {
    case Guard::rom_open:
        return state.rom_open;
    case Guard::map_selected:
        return map_ready(state);
    default:
        return true;
    }
}

} // namespace

bool can_run(const EditorState& state, Command command) {
    return holds(state, rows[static_cast<std::size_t>(command)].guard);
}

void run_command(EditorState& state, Command command) {
    if (can_run(state, command))
        rows[static_cast<std::size_t>(command)].run(state);
}

} // namespace veldrune
