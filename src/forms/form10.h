#pragma once

#include "forms/number_form.h"
#include "forms/picture.h"

#include <array>
#include <string>
#include <vector>

namespace veldrune {

inline constexpr int object_tab_count = 5;

/// Size of the sprite preview in pixels. A short sprite uses only its upper
/// short_sprite_picture_height rows.
inline constexpr int sprite_picture_width = 96;
inline constexpr int sprite_picture_height = 144;
inline constexpr int short_sprite_picture_height = 96;

/// The record number of the object window, with page step 5; always 1 <= value <= maximum.
struct RecordBar {
    int value = 1;
    int maximum = 1;
};

/// The texts of the Object Info window. The meaning of the fields changes with the tab.
struct Form10Texts {
    std::string Text1;   // NPC: file offset of the script. Others: column on the map
    std::string Text2;   // NPC: sprite palette. Others: row on the map
    std::string Text4;   // NPC: flag "xxxx:y". Chest: flag "xx:y". Event trigger: file offset
                         // of the script. Entrances: index of the target map
    std::string Text5;   // NPC: column on the map. Entrances: row on the target map
    std::string Text6;   // NPC: row on the map. Long entrance: width and direction
    std::string Text7;   // NPC: sprite number. Entrances: column on the target map
    std::string Label10; // the record number; blank without a record
};

/// The Object Info window. A new Form10 has the values that the window starts with: no record, all
/// fields blank. The meaning of a control changes with the tab.
struct Form10 : Form10Texts {
    bool visible = false;
    bool raise_requested = false; // request to bring the window to the front; the window clears it
    int TabStrip1 = 0;            // chosen tab, 0 to 4: NPCs, chests, events, short, long entrances
    RecordBar HScroll1;           // record number, from 1
    bool fields_enabled = false;  // a record is loaded: its fields can be edited
    int Combo1 = -1;              // NPC: vehicle
    int Combo2 = -1;              // NPC: facing, 0 to 3. Chest: contents; row of Combo2_lines
    int Combo3 = -1;              // NPC: speed
    int Combo4 = -1;              // NPC: movement, 0 to 15
    std::vector<std::string> Combo2_lines; // chest: 256 item names
    bool Check1 = false;                   // NPC: "Walk Over". Chest: bit 1 of byte 3, hidden
    bool Check2 = false;                   // NPC: "Walk Under". Chest: "Byte Flag"
    bool Check3 = false;                   // NPC: "Turn to Talk". Chest: bit 2 of byte 3, hidden
    int option = -1; // Option1 to Option5, the kind of contents: 0 to 4, -1 for none
    Picture<sprite_picture_width, sprite_picture_height> Picture1; // the sprite preview
    int Picture1_height = sprite_picture_height; // rows of Picture1 that are shown
};

/// A text of the window, the name of its control and its number form on each tab.
struct TabTextRow {
    std::string Form10::*text;
    const char* control;
    NumberForm forms[object_tab_count];
};

// clang-format off
inline constexpr auto form10_texts = [] {
    using F = Form10;
    using enum NumberForm;
    constexpr NumberForm hex = hexadecimal, record = shown_decimal;
    return std::to_array<TabTextRow>({
        //                       NPC             chest       event     entrance  long entrance
        {&F::Text1,   "Text1",   {short_location, hex,        hex,      hex,      hex}},
        {&F::Text2,   "Text2",   {hex,            hex,        hex,      hex,      hex}},
        {&F::Text4,   "Text4",   {npc_flag,       chest_flag, location, hex,      hex}},
        {&F::Text5,   "Text5",   {hex,            words,      words,    hex,      hex}},
        {&F::Text6,   "Text6",   {hex,            words,      words,    quantity, hex}},
        {&F::Text7,   "Text7",   {hex,            words,      words,    hex,      hex}},
        {&F::Label10, "Label10", {record,         record,     record,   record,   record}},
    });
}();
// clang-format on
static_assert(each_has_one_row<Form10Texts>(form10_texts));
/// The row of one of them.
constexpr const TabTextRow& text_row(std::string Form10::*text) {
    return row_of(form10_texts, text);
}

} // namespace veldrune
