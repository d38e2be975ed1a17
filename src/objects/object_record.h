#pragma once

#include "forms/dialogs.h"
#include "forms/form10.h"
#include "objects/object_tables.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace veldrune {

/// A record of any kind; bytes after its size are 0.
using ObjectBytes = std::array<std::uint8_t, max_object_size>;

/// The object in the object window. Its kind is the chosen tab of the window.
struct SelectedObject {
    std::optional<int> index;       // of its record in the list; empty without a record
    ObjectBytes bytes{};            // as loaded, but palette and sprite as in their fields
    std::int64_t script_offset = 0; // file offset of the script of an NPC or event trigger
};

/// The objects in memory: the lists of the map, and the object in the object window.
struct MapObjects {
    ObjectLists lists;
    SelectedObject selected_object;
};

/// A control that shows a value of a record: a text, a box or a selection.
using ObjectControl = std::variant<std::string Form10::*, bool Form10::*, int Form10::*>;

/// The largest number that the bits of a control's value hold; 0 where the kind has no such value.
std::int64_t largest_number(ObjectKind kind, const ObjectControl& control);

/// Shows a record in the fields of its kind. For a chest without a kind of contents the selected
/// option stays as it was; all other fields of the kind are set.
void unpack_object(ObjectKind kind, const ObjectBytes& record, Form10& form);

/// Packs the fields into a record. Bits that no field shows come from raw, the record as loaded; a
/// value too wide for its bits spills into the others of its last byte. Reports invalid fields;
/// then returns nothing.
std::optional<ObjectBytes> pack_object(ObjectKind kind, const ObjectBytes& raw, Form10& form,
                                       Dialogs& dialogs);

/// What a save makes of the text in a field.
struct PackedText {
    std::optional<std::int64_t> number; // as a load after it shows it; nothing: the text is refused
    bool as_typed = false;              // it is what was typed
    bool is_valid = false;              // there is no message about the text
    bool spills = false;                // it is added to other values, too
};
/// The same for a field that the kind has; without messages.
PackedText pack_text(ObjectKind kind, std::string Form10::*field, const std::string& text);

/// The controls that hold another value than the record, or a text that is no number.
std::vector<ObjectControl> differing_controls(ObjectKind kind, const ObjectBytes& record,
                                              Form10 form);

/// The values of the records of all kinds.
enum class ObjectField {
    event,
    palette,
    flag,
    map_x,
    map_y,
    speed,
    sprite,
    movement,
    walk_over,
    walk_under,
    vehicle,
    facing,
    turn_to_talk,
    byte_flag,
    chest_bit1, // bits without a name
    chest_bit2,
    contents_kind, // a bit each: empty, unknown, monster, item, GP
    contents,
    target_map,
    target_x,
    target_y,
    width, // of a long entrance: tiles beyond the first, bit 7: down the column
    count,
};
/// A value of a record: of an event the file offset of the script, of an NPC's flag 8 * byte + bit,
/// else as the image holds it. Nothing where the kind has no such field.
std::optional<std::int64_t> object_value(ObjectKind kind, const ObjectBytes& record,
                                         ObjectField field);
/// The same as the object window shows it; what it has in a list or a box, as a decimal number.
std::string object_text(ObjectKind kind, const ObjectBytes& record, ObjectField field);
/// The record without what its fields show.
ObjectBytes unshown_bits(ObjectKind kind, const ObjectBytes& record);

/// File offset of the script of an NPC or event trigger; nothing for other kinds.
std::optional<std::int64_t> script_offset(ObjectKind kind, const ObjectBytes& record);

/// The sprite of an NPC, and its palette, 0 to 7.
std::uint8_t npc_sprite(const ObjectBytes& record);
void set_npc_sprite(ObjectBytes& record, std::uint32_t sprite);
void set_npc_palette(ObjectBytes& record, std::uint32_t palette);

} // namespace veldrune
