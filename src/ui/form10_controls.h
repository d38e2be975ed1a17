#pragma once

#include "editor/object_window.h"
#include "forms/form10.h"

#include <span>
#include <string_view>

namespace veldrune {

// The fields of the object window, one row each. A control stands in a line and a column of the
// grid of fields; tips tell on every tab what the user reads when the pointer rests on it.

/// The row of a control's captions.
consteval const ObjectControlRow* captions_of(std::string_view control) {
    for (const ObjectControlRow& row : object_control_rows)
        if (row.control == control)
            return &row;
    throw "no such control";
}

using ObjectTips = const char* [object_tab_count];

struct ObjectFieldRow {
    const ObjectControlRow* control;
    int line;
    int column;
    std::string Form10::*text;
    void (*then)(EditorState&); // what follows a change by the user, or null
    ObjectTips tips;
};

struct ObjectListRow {
    const ObjectControlRow* control;
    int line;
    int column;
    int Form10::*row;
    std::span<const char* const> lines; // none where the lines are numbers or change
    int numbers;                        // how many lines are the numbers from 0 on
    ObjectTips tips;
};

struct ObjectBoxRow {
    const ObjectControlRow* control;
    bool Form10::*value;
    ObjectTips tips;
};

struct ObjectTipRow {
    const ObjectControlRow* control;
    ObjectTips tips;
};

// clang-format off
inline constexpr ObjectFieldRow object_field_rows[] = {
    {captions_of("Text1"), 0, 0, &Form10::Text1, nullptr,
        {"Where the NPC's script lies in the file, A0200 or above, five digits. Hexadecimal.",
         "Column of the chest on the map, 0 to FF. Hexadecimal.",
         "Column of the trigger on the map, 0 to FF. Hexadecimal.",
         "Column of the entrance on the map, 0 to FF. Hexadecimal.",
         "Column of the entrance's first tile on the map, 0 to FF. Hexadecimal."}},
    {captions_of("Text2"), 1, 0, &Form10::Text2, on_palette_text,
        {"Colours of the sprite, 0 to 7. Hexadecimal.",
         "Row of the chest on the map, 0 to FF. Hexadecimal.",
         "Row of the trigger on the map, 0 to FF. Hexadecimal.",
         "Row of the entrance on the map, 0 to FF. Hexadecimal.",
         "Row of the entrance's first tile on the map, 0 to FF. Hexadecimal."}},
    {captions_of("Text4"), 2, 0, &Form10::Text4, nullptr,
        {"The NPC's flag, xxxx:y: byte 1EE0 to 1F5F and bit 0 to 7. Hexadecimal.",
         "The chest's flag, xx:y: byte 0 to 1F and bit 0 to 7. Hexadecimal.",
         "Where the trigger's script lies in the file, A0200 or above. Hexadecimal.",
         "The map that the entrance leads to, 0 to FFFF. Hexadecimal.",
         "The map that the entrance leads to, 0 to FFFF. Hexadecimal."}},
    {captions_of("Text5"), 0, 1, &Form10::Text5, nullptr,
        {"Column of the NPC on the map, 0 to FF. Hexadecimal.",
         nullptr, nullptr,
         "Row on the map that the entrance leads to, 0 to FF. Hexadecimal.",
         "Row on the map that the entrance leads to, 0 to FF. Hexadecimal."}},
    {captions_of("Text6"), 1, 1, &Form10::Text6, nullptr,
        {"Row of the NPC on the map, 0 to 3F. Hexadecimal.",
         nullptr, nullptr,
         "An entrance of this kind is a single tile.",
         "Tiles behind the first: 0 to 7F to the right; 80 and above downwards. Hexadecimal."}},
    {captions_of("Text7"), 2, 1, &Form10::Text7, on_sprite_text,
        {"Number of the sprite, 0 to FF; those below 73 are previewed. Hexadecimal.",
         nullptr, nullptr,
         "Column on the map that the entrance leads to, 0 to FF. Hexadecimal.",
         "Column on the map that the entrance leads to, 0 to FF. Hexadecimal."}},
};

inline constexpr ObjectListRow object_list_rows[] = {
    {captions_of("Combo2"), 3, 0, &Form10::Combo2, {}, 0,
        {"Where the NPC looks.",
         "What is in the chest: number, hexadecimal, and name of the item."}},
    {captions_of("Combo1"), 0, 2, &Form10::Combo1, vehicle_names, 0,
        {"What the NPC rides."}},
    {captions_of("Combo3"), 1, 2, &Form10::Combo3, speed_names, 0,
        {"How fast the NPC walks."}},
    {captions_of("Combo4"), 2, 2, &Form10::Combo4, {}, movement_count,
        {"How the NPC moves about: 0 to 15. Decimal."}},
};

inline constexpr ObjectBoxRow object_box_rows[] = {
    {captions_of("Check1"), &Form10::Check1, {"Bit 4 of the NPC's byte 7."}},
    {captions_of("Check2"), &Form10::Check2, {"Bit 5 of the NPC's byte 7.", "Bit 0 of the chest's byte 3."}},
    {captions_of("Check3"), &Form10::Check3, {"Ticked: the NPC turns to whoever talks to it."}},
};

/// In the order of Form10::option.
inline constexpr ObjectTipRow object_option_rows[] = {
    {captions_of("Option1"), {nullptr, "There is nothing in the chest."}},
    {captions_of("Option2"), {nullptr, "Bit 4 of the chest's byte 3."}},
    {captions_of("Option3"), {nullptr, "Whoever opens the chest has to fight."}},
    {captions_of("Option4"), {nullptr, "The contents are an item."}},
    {captions_of("Option5"), {nullptr, "The contents are money."}},
};
inline constexpr ObjectTipRow sprite_preview_row =
    {captions_of("Picture1"), {"The sprite, six times its size."}};
// clang-format on

} // namespace veldrune
