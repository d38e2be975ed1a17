#include "editor/commands.h"

#include "editor/build.h"
#include "editor/open_image.h"
#include "editor/save.h"
#include "editor/view.h"

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
    {"Mode",      "Dawn",           "World of Dawn",          Guard::none,         nullptr},
    {"Mode",      "Dusk",           "World of Dusk",          Guard::none,         nullptr},
    {"",          "Options",        "&Options",               Guard::none,         nullptr},
    {"Options",   "Clear",          "Clear Map",              Guard::map_selected, nullptr},
    {"Options",   "Copy",           "Copy Tile Formations",   Guard::none,         nullptr},
    {"Options",   "Paste",          "Paste Tile Formation",   Guard::none,         nullptr},
    {"",          "Mem",            "&Memory Managment",      Guard::none,         nullptr},
    {"Mem",       "Memory_Mng",     "Memory Manager",         Guard::none,         nullptr},
    {"Mem",       "Expand",         "Expand Rom to 32mbit",   Guard::none,         nullptr},
    {"Mem",       "Patches",        "Apply Patches",          Guard::none,         nullptr},
    {"Patches",   "Dialogue_Patch", "Dialogue Patch",         Guard::none,         nullptr},
    {"",          "About",          "&About",                 Guard::none,         nullptr},
    {"About",     "About1",         "&About",                 Guard::none,         nullptr},
};

constexpr ButtonCommand buttons[] = {
    // control     guard                operation
    {"Command1",   Guard::rom_open,     nullptr},
    {"Command2",   Guard::map_selected, refresh_map},
    {"Command3",   Guard::map_selected, build_tileset},
    {"Command4",   Guard::none,         zoom_in},
    {"Command5",   Guard::none,         zoom_out},
};
// clang-format on

bool holds(const EditorState& state, Guard guard) {
    switch (guard) {
    case Guard::rom_open:
        return state.rom_open;
    case Guard::map_selected:
        return state.rom_open && state.map_selected;
    default:
        return true;
    }
}

} // namespace

std::span<const Command> menu_commands() {
    return commands;
}

std::span<const ButtonCommand> button_commands() {
    return buttons;
}

void run_command(EditorState& state, Guard guard, void (*run)(EditorState&)) {
    if (run != nullptr && holds(state, guard))
        run(state);
}

} // namespace veldrune
