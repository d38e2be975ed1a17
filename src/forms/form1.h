#pragma once

#include "forms/number_form.h"
#include "forms/picture.h"

#include <array>
#include <string>

namespace veldrune {

/// A scroll bar with page step 16; always 0 <= value <= maximum.
struct ScrollBar {
    int value = 0;
    int maximum = 128;
    bool visible = true;
};

/// Side of the current tile's picture in pixels.
inline constexpr int preview_side = 64;

/// What the mouse does on the map picture.
enum class Tool { draw, get_tile, objects };

// clang-format off
/// The texts of the main window's controls and labels, exactly as the user sees them.
struct Form1Texts {
    std::string Text4 = "1";                      // "map magnification"
    std::string Text2 = "0", Text1 = "0", Text21; // map width of layers 1, 2 and 3, tiles
    std::string Text5 = "0", Text3 = "0", Text22; // map height of layers 1, 2 and 3, tiles
    std::string Text6 = "0", Text7 = "0", Text23; // tile formation sets of layers 1 and 2, graphics of layer 3
    std::string Text14 = "0", Text12 = "0", Text25; // map data location of layers 1, 2 and 3
    std::string Text39, Text40;                   // left shift, first and second column
    std::string Text42, Text43;                   // upward shift, first and second column
    std::string Text8 = "0", Text9 = "0", Text10 = "0", Text11 = "0"; // tilesets 1 to 4
    std::string Text18 = "0";                     // animated tileset
    std::string Text16 = "0", Text17 = "0";       // viewable map size, first and second value
    std::string Text13 = "0";                     // palette
    std::string Text45, Text37, Text44;           // scroll index, layer priorities, song
    std::string Text46, Text41;                   // battle background, monster set
    std::string Text26;                           // bits 5 to 7 of byte 27 of the record; hidden
    std::string Text24;                           // map data location of the world map; shown in place of Text14
    std::string Text20 = " ";                     // notes; the object tool puts a column or a chest's contents here
    std::string Label20;                          // path of the open image
    std::string Label26;                          // tile under the mouse: column and row
    std::string Label27, Label28, Label29;        // number of NPCs, of chests and of event triggers
    std::string Label30;                          // number of entrances, short and long together
};
// clang-format on

/// The main window. A new Form1 has the values that the window starts with.
struct Form1 : Form1Texts {
    // The map picture and its surroundings.
    ScrollBar HScroll1;                // first column of the map in view
    ScrollBar VScroll1;                // first row of the map in view
    ScrollBar HScroll2{0, 224, false}; // first column of the world map in view
    ScrollBar VScroll2{0, 224, false}; // first row of the world map in view
    bool Check5 = true;                // "View Layer": compose layer 1
    bool Check6 = true;                // "View Layer": compose layer 2
    bool Check7 = true;                // "View Layer": compose layer 3

    // Tools.
    int edit_layer = 0;     // Option1 to Option3: layer that is painted and picked from, 0 to 2
    Tool tool = Tool::draw; // Option10 to Option12
    bool grid_on = false;   // Option4 (on), Option5 (off)
    int current_tile = 0;   // Text15: the tile that the tools paint, 0 to 255
    Picture<preview_side, preview_side> Picture3; // the current tile, on Command1
    bool Check1 = false;                          // show and select NPCs
    bool Check2 = false;                          // show and select chests
    bool Check3 = false;                          // show and select event triggers
    bool Check4 = false;                          // show and select entrances

    // Map list.
    int Combo1 = -1; // chosen row of the map list, -1 before the first choice
    bool Combo1_enabled = false;

    // Properties of the map.
    bool map_fields_enabled = true; // false while a world map is shown
    bool Check8 = false;            // battles enabled
    bool Text24_visible = false;    // true while a world map is shown, in place of Text14
};

// clang-format off
/// The number form of every text of Form1Texts.
inline constexpr auto form1_texts = [] {
    using F = Form1;
    using enum NumberForm;
    return std::to_array<TextRow<F>>({
        {&F::Text2, "Text2", width}, {&F::Text1, "Text1", width}, {&F::Text21, "Text21", width},
        {&F::Text5, "Text5", height}, {&F::Text3, "Text3", height}, {&F::Text22, "Text22", height},
        {&F::Text6, "Text6", decimal}, {&F::Text7, "Text7", decimal}, {&F::Text23, "Text23", decimal},
        {&F::Text14, "Text14", location}, {&F::Text12, "Text12", location}, {&F::Text25, "Text25", location}, {&F::Text24, "Text24", location},
        {&F::Text39, "Text39", hexadecimal}, {&F::Text40, "Text40", hexadecimal}, {&F::Text42, "Text42", hexadecimal}, {&F::Text43, "Text43", hexadecimal},
        {&F::Text8, "Text8", decimal}, {&F::Text9, "Text9", decimal}, {&F::Text10, "Text10", decimal}, {&F::Text11, "Text11", decimal},
        {&F::Text18, "Text18", decimal}, {&F::Text13, "Text13", decimal}, {&F::Text16, "Text16", decimal}, {&F::Text17, "Text17", decimal},
        {&F::Text45, "Text45", decimal}, {&F::Text37, "Text37", decimal}, {&F::Text44, "Text44", decimal},
        {&F::Text46, "Text46", hexadecimal}, {&F::Text41, "Text41", hexadecimal},
        {&F::Text4, "Text4", words}, {&F::Text20, "Text20", words},
        {&F::Text26, "Text26", high_number}, {&F::Label20, "Label20", words}, {&F::Label26, "Label26", shown_hexadecimal},
        {&F::Label27, "Label27", quantity}, {&F::Label28, "Label28", quantity}, {&F::Label29, "Label29", quantity}, {&F::Label30, "Label30", quantity},
    });
}();
// clang-format on
static_assert(each_has_one_row<Form1Texts>(form1_texts));
/// The row of one of them.
constexpr const TextRow<Form1>& text_row(std::string Form1::*text) {
    return row_of(form1_texts, text);
}

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

/// The fields of the four groups of tile graphics.
inline constexpr std::string Form1::*tileset_controls[4] = {&Form1::Text8, &Form1::Text9,
                                                            &Form1::Text10, &Form1::Text11};

/// Text25 holds exactly this on a map without layer 3.
inline constexpr const char* EMPTY_LAYER_TEXT = "19D3B0";

} // namespace veldrune
