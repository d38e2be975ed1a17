#pragma once

#include "forms/picture.h"

#include <string>

namespace veldrune {

/// A scroll bar. Its least value is 0 and its page step 16; 0 <= value <= maximum always holds.
struct ScrollBar {
    int value = 0;
    int maximum = 128;
    bool visible = true;
};

/// Side of the current tile's picture in pixels.
inline constexpr int preview_side = 64;

/// What the mouse does on the map picture.
enum class Tool { draw, get_tile, objects };

/// The main window. Texts hold exactly what the user sees; "decimal" and "hexadecimal" tell how a
/// field's text is read as a number. A new Form1 is the window as it stands after loading.
struct Form1 {
    // The map picture and its surroundings.
    std::string Label20;               // path of the open image
    std::string Label26;               // tile under the mouse: column and row, hexadecimal
    ScrollBar HScroll1;                // first column of the map in view
    ScrollBar VScroll1;                // first row of the map in view
    ScrollBar HScroll2{0, 224, false}; // first column of the world map in view
    ScrollBar VScroll2{0, 224, false}; // first row of the world map in view
    bool Check5 = true;                // "View Layer": compose layer 1
    bool Check6 = true;                // "View Layer": compose layer 2
    bool Check7 = true;                // "View Layer": compose layer 3

    // Tools.
    int edit_layer = 0;      // Option1 to Option3: layer that is painted and picked from, 0 to 2
    Tool tool = Tool::draw;  // Option10 to Option12
    bool grid_on = false;    // Option4 (on), Option5 (off)
    std::string Text4 = "1"; // "map magnification"
    int current_tile = 0;    // Text15: the tile that the tools paint, 0 to 255
    Picture<preview_side, preview_side> Picture3; // the current tile, on Command1
    bool Check1 = false;                          // show and select NPCs
    bool Check2 = false;                          // show and select chests
    bool Check3 = false;                          // show and select event triggers
    bool Check4 = false;                          // show and select entrances
    std::string Label27;                          // number of NPCs
    std::string Label28;                          // number of chests
    std::string Label29;                          // number of event triggers
    std::string Label30;                          // number of entrances, short and long together

    // Map list.
    int Combo1 = -1; // chosen row of the map list, -1 before the first choice
    bool Combo1_enabled = false;

    // Properties of the map, one field a value.
    bool map_fields_enabled = true; // false while a world map is shown
    std::string Text2 = "0";        // map width of layer 1, decimal, tiles
    std::string Text1 = "0";        // map width of layer 2, decimal, tiles
    std::string Text21;             // map width of layer 3, decimal, tiles
    std::string Text5 = "0";        // map height of layer 1, decimal, tiles
    std::string Text3 = "0";        // map height of layer 2, decimal, tiles
    std::string Text22;             // map height of layer 3, decimal, tiles
    std::string Text6 = "0";        // tile formation set of layer 1, decimal
    std::string Text7 = "0";        // tile formation set of layer 2, decimal
    std::string Text23;             // graphics of layer 3, decimal
    std::string Text14 = "0";       // map data location of layer 1, hexadecimal file offset
    std::string Text12 = "0";       // map data location of layer 2, hexadecimal file offset
    std::string Text25;             // map data location of layer 3, hexadecimal file offset
    std::string Text39;             // left shift, first column, hexadecimal
    std::string Text40;             // left shift, second column, hexadecimal
    std::string Text42;             // upward shift, first column, hexadecimal
    std::string Text43;             // upward shift, second column, hexadecimal
    std::string Text8 = "0";        // tileset 1, decimal
    std::string Text9 = "0";        // tileset 2, decimal
    std::string Text10 = "0";       // tileset 3, decimal
    std::string Text11 = "0";       // tileset 4, decimal
    std::string Text18 = "0";       // animated tileset, decimal
    std::string Text16 = "0";       // viewable map size, first value, decimal
    std::string Text17 = "0";       // viewable map size, second value, decimal
    std::string Text13 = "0";       // palette, decimal
    std::string Text45;             // scroll index, decimal
    std::string Text37;             // layer priorities, decimal
    std::string Text44;             // song, decimal
    bool Check8 = false;            // battles enabled
    std::string Text46;             // battle background, hexadecimal
    std::string Text41;             // monster set, hexadecimal
    std::string Text26;          // high number of byte 27 of the record, less 1, or "N/A"; hidden
    std::string Text24;          // map data location of the world map, hexadecimal file offset
    bool Text24_visible = false; // Text24 lies over Text14 while a world map is shown
    std::string Text20 = " ";    // notes; the object tool puts a column or a chest's contents here
};

/// The controls that every layer has, by layer: 0, 1 and 2 are layers 1, 2 and 3.
struct LayerControls {
    std::string Form1::*width;
    std::string Form1::*height;
    std::string Form1::*formation;
    std::string Form1::*location;
    bool Form1::*view;
};

// clang-format off
inline constexpr LayerControls layer_controls[3] = {
    // width         height          formation       location        view
    {&Form1::Text2,  &Form1::Text5,  &Form1::Text6,  &Form1::Text14, &Form1::Check5},
    {&Form1::Text1,  &Form1::Text3,  &Form1::Text7,  &Form1::Text12, &Form1::Check6},
    {&Form1::Text21, &Form1::Text22, &Form1::Text23, &Form1::Text25, &Form1::Check7},
};
// clang-format on

/// Text25 holds exactly this on a map without layer 3.
inline constexpr const char* EMPTY_LAYER_TEXT = "19D3B0";

} // namespace veldrune
