#pragma once

#include "editor/editor_state.h"

namespace veldrune {

/// The commands of menus and buttons.
enum class Command {
    // the main window's menus
    open,
    save,
    save_as,
    open_world_of_dawn,
    open_world_of_dusk,
    clear_map,
    copy_properties,
    paste_properties,
    show_memory_manager,
    expand_rom,
    apply_dialogue_patch,
    show_about,
    // its buttons
    open_tile_chooser,
    refresh_map,
    build_tileset,
    zoom_in,
    zoom_out,
    // the menus of the object window and the Event Editor
    save_object,
    open_event_editor,
    save_script,
    count,
};

/// Whether the image and the map that the command requires are there.
bool can_run(const EditorState& state, Command command);

/// Runs a command. Does nothing, without a message, where the required image or map is missing.
void run_command(EditorState& state, Command command);

} // namespace veldrune
