#pragma once

#include "editor/build.h"
#include "editor/tile_chooser.h"
#include "editor/view.h"

#include <span>

namespace veldrune {

/// What must hold for a command to do anything; a command whose guard fails is silent.
enum class Guard { none, rom_open, map_selected }; // map_selected: an image and a map

/// A menu entry, or a menu: its control's name and its caption with the access key marked by "&".
struct Command {
    const char* menu;    // control name of the menu it stands in, or empty for a menu of the bar
    const char* control; // its own control name
    const char* caption; // "-" is a separator
    Guard guard;
    void (*run)(EditorState&); // null for menus, separators and what the window itself does
};

/// All menus and entries of the main window in their order.
std::span<const Command> menu_commands();

/// All menus and entries of the object window.
std::span<const Command> object_window_commands();

/// All menus and entries of the Event Editor.
std::span<const Command> event_editor_commands();

/// A button of the main window.
struct ButtonCommand {
    const char* control;
    Guard guard;
    void (*run)(EditorState&);
};
// clang-format off
inline constexpr ButtonCommand button_commands[] = {
    // control     guard                operation
    {"Command1",   Guard::rom_open,     open_tile_chooser},
    {"Command2",   Guard::map_selected, refresh_map},
    {"Command3",   Guard::map_selected, build_tileset},
    {"Command4",   Guard::none,         zoom_in},
    {"Command5",   Guard::none,         zoom_out},
};
// clang-format on

/// Runs the operation if its guard holds.
void run_command(EditorState& state, Guard guard, void (*run)(EditorState&));

} // namespace veldrune
