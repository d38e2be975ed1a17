#pragma once

#include "forms/picture.h"

#include <string>
#include <vector>

namespace veldrune {

inline constexpr int object_tab_count = 5;

/// The sprite preview's picture in pixels; a short sprite takes the upper short_height rows alone.
inline constexpr int sprite_picture_width = 96;
inline constexpr int sprite_picture_height = 144;
inline constexpr int short_sprite_picture_height = 96;

/// The record number of the object window. Its least value is 1 and its page step 5; maximum is
/// never below 1.
struct RecordBar {
    int value = 1;
    int maximum = 1;
};

/// The Object Info window. A new Form10 is the window as it stands after loading: no record, all
/// fields blank. The meaning of a control changes with the tab; texts are hexadecimal.
struct Form10 {
    bool visible = false;
    bool to_front = false;       // wants to come to the front; the window clears it when it has
    int TabStrip1 = 0;           // chosen tab, 0 to 4: NPCs, chests, events, short, long entrances
    RecordBar HScroll1;          // record number, from 1
    std::string Label10;         // the record number as text; blank without a record
    bool fields_enabled = false; // a record is loaded: its fields can be edited
    std::string Text1;           // NPC: file offset of the script. Others: column on the map
    std::string Text2;           // NPC: sprite palette. Others: row on the map
    std::string Text4; // NPC: flag "xxxx:y". Chest: flag "xx:y". Event trigger: file offset
                       // of the script. Entrances: index of the target map
    std::string Text5; // NPC: column on the map. Entrances: row on the target map
    std::string Text6; // NPC: row on the map. Long entrance: width and direction
    std::string Text7; // NPC: sprite number. Entrances: column on the target map
    int Combo1 = -1;   // NPC: vehicle; row of vehicle_names
    int Combo2 = -1;   // NPC: facing. Chest: contents; row of Combo2_lines
    int Combo3 = -1;   // NPC: speed; row of speed_names
    int Combo4 = -1;   // NPC: movement, 0 to 15
    std::vector<std::string> Combo2_lines; // NPC: the four directions. Chest: 256 item names
    bool Check1 = false;                   // NPC: "Walk Over". Chest: bit 1 of byte 3, hidden
    bool Check2 = false;                   // NPC: "Walk Under". Chest: "Byte Flag"
    bool Check3 = false;                   // NPC: "Turn to Talk". Chest: bit 2 of byte 3, hidden
    int option = -1; // Option1 to Option5, the kind of contents: 0 to 4, -1 with none pressed
    Picture<sprite_picture_width, sprite_picture_height> Picture1; // the sprite preview
    int Picture1_height = sprite_picture_height;                   // rows of Picture1 that show
};

inline constexpr const char* object_tab_captions[object_tab_count] = {
    "NPC's", "Chests", "Events", "Entrances", "Long Entrances"};
inline constexpr const char* vehicle_names[] = {"None", "Runbird", "Gearcore Armor", "Raft"};
inline constexpr const char* facing_names[] = {"Up", "Right", "Down", "Left"};
inline constexpr const char* speed_names[] = {"Slowest", "Slow", "Fast", "Fastest"};
inline constexpr int movement_count = 16; // Combo4 lists the numbers, decimal

/// A control of the object window with its caption on every tab; on a tab without a caption it is
/// hidden. The caption stands on the label, or, with no label, on the control itself; the one of
/// the picture is there for screen readers alone.
struct ObjectControlRow {
    const char* label;
    const char* control;
    const char* captions[object_tab_count];
};

// clang-format off
inline constexpr ObjectControlRow object_control_rows[] = {
    // label    control     NPC's           Chests              Events           Entrances         Long Entrances
    {"Label1",  "Text1",    {"Event",       "X Pos",            "Map X",         "Map X",          "Map X"}},
    {"Label2",  "Text2",    {"Palette",     "Y Pos",            "Map Y",         "Map Y",          "Map Y"}},
    {"Label4",  "Text4",    {"Byte:Bit",    "Byte:Bit",         "Event Pointer", "Map Index",      "Map Index"}},
    {"Label3",  "Combo2",   {"Facing",      "Contents",         nullptr,         nullptr,          nullptr}},
    {"Label5",  "Text5",    {"X Pos",       nullptr,            nullptr,         "Destination Y",  "Destination Y"}},
    {"Label6",  "Text6",    {"Y Pos",       nullptr,            nullptr,         "Entrance Width", "Entrance Width"}},
    {"Label7",  "Text7",    {"Sprite",      nullptr,            nullptr,         "Destination X",  "Destination X"}},
    {"Label8",  "Combo1",   {"Vehicle",     nullptr,            nullptr,         nullptr,          nullptr}},
    {"Label11", "Combo3",   {"Speed",       nullptr,            nullptr,         nullptr,          nullptr}},
    {"Label12", "Combo4",   {"Movement",    nullptr,            nullptr,         nullptr,          nullptr}},
    {"",        "Check1",   {"Walk Over",   nullptr,            nullptr,         nullptr,          nullptr}},
    {"",        "Check2",   {"Walk Under",  "Byte Flag",        nullptr,         nullptr,          nullptr}},
    {"",        "Check3",   {"Turn to Talk", nullptr,           nullptr,         nullptr,          nullptr}},
    {"",        "Option1",  {nullptr,       "Empty",            nullptr,         nullptr,          nullptr}},
    {"",        "Option2",  {nullptr,       "Unknown",          nullptr,         nullptr,          nullptr}},
    {"",        "Option3",  {nullptr,       "Monster in a Box", nullptr,         nullptr,          nullptr}},
    {"",        "Option4",  {nullptr,       "Item",             nullptr,         nullptr,          nullptr}},
    {"",        "Option5",  {nullptr,       "GP",               nullptr,         nullptr,          nullptr}},
    {"",        "Picture1", {"Sprite",      nullptr,            nullptr,         nullptr,          nullptr}},
};
// clang-format on

/// On this tab Text6 shows the width of a short entrance, which is always 0, and can't be edited.
inline constexpr int fixed_width_tab = 3;

} // namespace veldrune
