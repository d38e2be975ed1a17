#include "editor/commands.h"

#include "editor/event_editor.h"
#include "editor/map_commands.h"
#include "editor/object_window.h"
#include "editor/open_image.h"
#include "editor/save.h"
#include "editor/view_place.h"
#include "editor/world_map.h"

namespace veldrune {
namespace {

// clang-format off
constexpr Command commands[] = {
    // menu       control           caption                   guard                operation
    {"",          "File",           "&File",                  Guard::none,         nullptr},
    {"File",      "Open",           "&Open",                  Guard::none,         open_image},
    {"File",      "Save",           "&Save",                  Guard::rom_open,     save},
    {"File",      "SaveAs",         "Save &As",               Guard::rom_open,     save_as},
    {"File",      "menuspace1",     "-",                      Guard::none,         nullptr},
    {"File",      "Exit",           "E&xit",                  Guard::none,         nullptr},
    {"",          "Mode",           "&Mode 7",                Guard::none,         nullptr},
    {"Mode",      "Dawn",           "World of Dawn",          Guard::none,         open_world_of_dawn},
    {"Mode",      "Dusk",           "World of Dusk",          Guard::none,         open_world_of_dusk},
    {"",          "Options",        "&Options",               Guard::none,         nullptr},
    {"Options",   "Clear",          "Clear Map",              Guard::map_selected, clear_map},
    {"Options",   "Copy",           "Copy Tile Formations",   Guard::none,         copy_properties},
    {"Options",   "Paste",          "Paste Tile Formation",   Guard::rom_open,     paste_properties},
    {"",          "Mem",            "&Memory Managment",      Guard::none,         nullptr},
    {"Mem",       "Memory_Mng",     "Memory Manager",         Guard::none,         show_memory_manager},
    {"Mem",       "Expand",         "Expand Rom to 32mbit",   Guard::rom_open,     expand_rom},
    {"Mem",       "Patches",        "Apply Patches",          Guard::none,         nullptr},
    {"Patches",   "Dialogue_Patch", "Dialogue Patch",         Guard::rom_open,     apply_dialogue_patch},
    {"",          "About",          "&About",                 Guard::none,         nullptr},
    {"About",     "About1",         "&About",                 Guard::none,         show_about},
};

constexpr Command object_commands[] = {
    {"",          "File",           "File",                   Guard::none,         nullptr},
    {"File",      "Save",           "Save",                   Guard::rom_open,     save_object},
    {"",          "Event",          "Event",                  Guard::none,         nullptr},
    {"Event",     "Event_Editor",   "Event Editor",           Guard::rom_open,     open_event_editor_of_object},
};

constexpr Command script_commands[] = {
    {"",          "File",           "&File",                  Guard::none,         nullptr},
    {"File",      "Save",           "&Save",                  Guard::rom_open,     save_script},
};
// clang-format on

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

std::span<const Command> menu_commands() {
    return commands;
}

std::span<const Command> object_window_commands() {
    return object_commands;
}

std::span<const Command> event_editor_commands() {
    return script_commands;
}

void run_command(EditorState& state, Guard guard, void (*run)(EditorState&)) {
    if (run != nullptr && holds(state, guard))
        run(state);
}

} // namespace veldrune
