#pragma once

#include "editor/commands.h"
#include "forms/form1.h"

#include <string_view>

namespace veldrune {

// The controls of the main window, one row each. tip is what the user reads when the pointer rests
// on the control; map_only controls are disabled while a world map is shown.

struct FieldRow {
    int line;            // of the grid of properties
    int cell;            // of that line; cell - 1 holds the label
    int span;            // cells that the field takes up, or shares with others
    const char* label;   // the label's control
    const char* caption; // the label's text
    const char* part;    // which of the fields of that label
    const char* control;
    std::string Form1::*text;
    bool map_only;
    const char* tip;
};

template <typename T>
struct OptionRow {
    const char* control;
    const char* caption;
    T Form1::*value;
    T own; // what the button sets the value to
    bool map_only;
    void (*then)(EditorState&); // what follows a change by the user, or null
    const char* tip;
};

struct BoxRow {
    const char* control;
    const char* caption;
    bool Form1::*value;
    bool map_only;
    void (*then)(EditorState&);
    const char* tip;
};

/// A kind of object: its box, which takes the kind's colour when ticked, and its number.
struct ObjectRow {
    BoxRow box;
    const char* count_control;
    std::string Form1::*count;
    std::uint32_t colour; // packed
    bool white_text;      // reads better on that colour
};

/// The row of a button's command.
consteval const ButtonCommand* command_of(std::string_view control) {
    for (const ButtonCommand& command : button_commands)
        if (command.control == control)
            return &command;
    throw "no such control";
}

struct ButtonRow {
    const ButtonCommand* command;
    const char* caption;
    bool map_only;
    const char* tip;
};

// clang-format off
/// Text14 and Text24 share a cell: only one of them is visible.
inline constexpr FieldRow field_rows[] = {
    {1, 1, 1, "Label21", "Map Width",         "Layer1",  "Text2",  &Form1::Text2,  true,  "Width of layer 1 in tiles: 16, 32, 64 or 128. Decimal."},
    {1, 2, 1, "Label21", "Map Width",         "Layer2",  "Text1",  &Form1::Text1,  true,  "Width of layer 2 in tiles: 16, 32, 64 or 128. Decimal."},
    {1, 3, 1, "Label21", "Map Width",         "Layer 3", "Text21", &Form1::Text21, true,  "Width of layer 3 in tiles: 16, 32, 64 or 128. Decimal."},
    {2, 1, 1, "Label22", "Map Height",        "Layer1",  "Text5",  &Form1::Text5,  true,  "Height of layer 1 in tiles: 16, 32 or 64. Decimal."},
    {2, 2, 1, "Label22", "Map Height",        "Layer2",  "Text3",  &Form1::Text3,  true,  "Height of layer 2 in tiles: 16, 32 or 64. Decimal."},
    {2, 3, 1, "Label22", "Map Height",        "Layer 3", "Text22", &Form1::Text22, true,  "Height of layer 3 in tiles: 16, 32 or 64. Decimal."},
    {3, 1, 1, "Label4",  "Tile Formations",   "Layer1",  "Text6",  &Form1::Text6,  true,  "Set of tile formations of layer 1, 0 to 84. Decimal."},
    {3, 2, 1, "Label4",  "Tile Formations",   "Layer2",  "Text7",  &Form1::Text7,  true,  "Set of tile formations of layer 2, 0 to 84. Decimal."},
    {3, 3, 1, "Label4",  "Tile Formations",   "Layer 3", "Text23", &Form1::Text23, true,  "Graphics of layer 3, 0 to 20; number 6 is opaque, all others are half transparent. Decimal."},
    {4, 1, 1, "Label6",  "Map Data Location", "Layer1",  "Text14", &Form1::Text14, false, "Where the tiles of layer 1 lie in the file, and where Save writes them. Hexadecimal."},
    {4, 1, 1, "Label6",  "Map Data Location", "World",   "Text24", &Form1::Text24, false, "Where the tiles of the world map lie in the file, and where Save writes them. Hexadecimal."},
    {4, 2, 1, "Label6",  "Map Data Location", "Layer2",  "Text12", &Form1::Text12, true,  "Where the tiles of layer 2 lie in the file, and where Save writes them. Hexadecimal."},
    {4, 3, 1, "Label6",  "Map Data Location", "Layer 3", "Text25", &Form1::Text25, true,  "Where the tiles of layer 3 lie in the file, and where Save writes them; 19D3B0 stands for no layer 3. Hexadecimal."},
    {5, 1, 1, "Label24", "Left Shift",        "Layer1",  "Text39", &Form1::Text39, true,  "Left shift, first column. Hexadecimal."},
    {5, 2, 1, "Label24", "Left Shift",        "Layer2",  "Text40", &Form1::Text40, true,  "Left shift, second column. Hexadecimal."},
    {6, 1, 1, "Label31", "Upward Shift",      "Layer1",  "Text42", &Form1::Text42, true,  "Upward shift, first column. Hexadecimal."},
    {6, 2, 1, "Label31", "Upward Shift",      "Layer2",  "Text43", &Form1::Text43, true,  "Upward shift, second column. Hexadecimal."},

    {8, 1, 3, "Label5",  "Tilesets",          "1",       "Text8",  &Form1::Text8,  true,  "First group of tile graphics, 0 to 84. Decimal."},
    {8, 1, 3, "Label5",  "Tilesets",          "2",       "Text9",  &Form1::Text9,  true,  "Second group of tile graphics, 0 to 84. Decimal."},
    {8, 1, 3, "Label5",  "Tilesets",          "3",       "Text10", &Form1::Text10, true,  "Third group of tile graphics, 0 to 84. Decimal."},
    {8, 1, 3, "Label5",  "Tilesets",          "4",       "Text11", &Form1::Text11, true,  "Fourth group of tile graphics, 0 to 84. Decimal."},
    {9, 1, 1, "Label17", "Animated Tileset",  "",        "Text18", &Form1::Text18, true,  "Set of animated tiles, 0 to 31. Decimal."},
    {9, 3, 1, "Label7",  "Palette",           "",        "Text13", &Form1::Text13, true,  "Colours of the map, 0 to 255. Decimal."},
    {10, 1, 1, "Label18", "Viewable Map Size", "first",  "Text16", &Form1::Text16, true,  "Part of the map that the game shows, first value, 0 to 255. Decimal."},
    {10, 1, 1, "Label18", "Viewable Map Size", "second", "Text17", &Form1::Text17, true,  "Part of the map that the game shows, second value, 0 to 255. Decimal."},
    {10, 3, 1, "Label25", "Layer Priorities", "",        "Text37", &Form1::Text37, true,  "Entry of the game's layer priority table, 0 to 255. The picture follows when the map is chosen anew. Decimal."},
    {11, 1, 1, "Label32", "Scoll Index",      "",        "Text45", &Form1::Text45, true,  "How the layers scroll against each other: number of the game's scroll entry, 0 to 255. Decimal."},
    {11, 3, 1, "Label12", "Song",             "",        "Text44", &Form1::Text44, true,  "Music of the map, 0 to 255. Decimal."},
    {12, 1, 1, "Label33", "Battle BG",        "",        "Text46", &Form1::Text46, true,  "Background of battles on the map, 0 to 7F. Hexadecimal."},
    {12, 3, 1, "Label11", "Monster Set",      "",        "Text41", &Form1::Text41, true,  "Monsters that are met on the map, 0 to FF. Hexadecimal."},
};

struct HeadingRow { int cell; const char* control; const char* caption; };
inline constexpr HeadingRow heading_rows[] = {
    {1, "Label2", "Layer1"}, {2, "Label3", "Layer2"}, {3, "Label23", "Layer 3"},
};

inline constexpr BoxRow battles_box =
    {"Check8", "Enable Battles", &Form1::Check8, true, nullptr, "Ticked: monsters are met on the map."};

inline constexpr OptionRow<Tool> tool_rows[] = {
    {"Option10", "Draw",        &Form1::tool, Tool::draw,     false, nullptr, "The left button paints the current tile into the edit layer. The right button picks."},
    {"Option11", "Get Tile",    &Form1::tool, Tool::get_tile, false, nullptr, "A click takes the tile under the pointer from the edit layer."},
    {"Option12", "NPC's Ect...", &Form1::tool, Tool::objects, false, nullptr, "A click opens the object under the pointer."},
};
inline constexpr OptionRow<int> layer_rows[] = {
    {"Option1", "Layer 1", &Form1::edit_layer, 0, true, nullptr, "Paint into and pick from layer 1."},
    {"Option2", "Layer 2", &Form1::edit_layer, 1, true, nullptr, "Paint into and pick from layer 2."},
    {"Option3", "Layer 3", &Form1::edit_layer, 2, true, nullptr, "Paint into and pick from layer 3."},
};
inline constexpr OptionRow<bool> grid_rows[] = {
    {"Option4", "Grid On",  &Form1::grid_on, true,  false, on_grid_change, "Show white lines between the tiles."},
    {"Option5", "Grid Off", &Form1::grid_on, false, false, on_grid_change, "Show the map without lines."},
};
inline constexpr BoxRow view_rows[] = {
    {"Check5", "Layer 1", &Form1::Check5, true, on_view_box_change, "Show layer 1, from the next redrawing on."},
    {"Check6", "Layer 2", &Form1::Check6, true, on_view_box_change, "Show layer 2, from the next redrawing on."},
    {"Check7", "Layer 3", &Form1::Check7, true, on_view_box_change, "Show layer 3, from the next redrawing on."},
};
inline constexpr ObjectRow object_rows[] = {
    {{"Check1", "NPC's",    &Form1::Check1, true,  nullptr, "Show and select NPCs, from the next redrawing on."},           "Label27", &Form1::Label27, 0xFF0000, false},
    {{"Check2", "Treasure", &Form1::Check2, true,  nullptr, "Show and select treasure chests, from the next redrawing on."}, "Label28", &Form1::Label28, 0xFFFF00, false},
    {{"Check3", "Events",   &Form1::Check3, false, nullptr, "Show and select event triggers, from the next redrawing on."}, "Label29", &Form1::Label29, 0x0000FF, true},
    {{"Check4", "Entrance", &Form1::Check4, false, nullptr, "Show and select entrances, from the next redrawing on."},      "Label30", &Form1::Label30, 0x00FF00, false},
};

inline constexpr ButtonRow tileset_button = {command_of("Command3"), "Build Tileset", true, "Decode the tiles that the fields name, and draw the map where it stands."};
inline constexpr ButtonRow refresh_button = {command_of("Command2"), "Build/Refresh Map", true, "Draw the map from its top left corner with the tiles as they are."};
inline constexpr ButtonRow chooser_button = {command_of("Command1"), "Choose Tile", false, "The current tile. Press to choose another one."};
inline constexpr ButtonRow zoom_in_button = {command_of("Command4"), "Zoom In", true, "Show the map twice as large. Ctrl and wheel over the map."};
inline constexpr ButtonRow zoom_out_button = {command_of("Command5"), "Zoom Out", true, "Show the map half as large. Ctrl and wheel over the map."};
// clang-format on

} // namespace veldrune
