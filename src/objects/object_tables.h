#pragma once

#include "forms/form1.h"
#include "forms/form10.h"
#include "map/palette.h"
#include "rom/rom_image.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace veldrune {

/// The kinds of object, in the order of the object window's tabs.
enum class ObjectKind { npc, chest, event_trigger, entrance, long_entrance };
inline constexpr std::size_t object_kind_count = object_tab_count;

/// How a kind is stored and shown. The 16-bit pointer of map m is at pointers + 2 * m: the offset
/// of the map's first record from base. The pointer of the next map ends the list.
struct ObjectKindRow {
    std::int32_t pointers;     // file offset
    std::int32_t base;         // file offset
    int record_size;           // bytes
    int x_byte;                // the byte of the record that holds the object's column on the map
    int y_byte;                // and the one that holds its row
    std::uint8_t y_mask;       // the bits of that byte that make up the row
    bool Form1::*shown;        // the check box that shows the kind and makes it clickable
    std::string Form1::*count; // the label of the number of records; kinds can share one
    Colour colour;             // of its markers
};
const ObjectKindRow& object_kind_row(ObjectKind kind);

/// The kinds that a map has, and those that a world map takes from the map whose lists it uses, in
/// the order in which a click looks for them: of several objects on a tile it opens the last.
inline constexpr ObjectKind map_object_kinds[] = {ObjectKind::npc, ObjectKind::chest,
                                                  ObjectKind::event_trigger, ObjectKind::entrance,
                                                  ObjectKind::long_entrance};
inline constexpr ObjectKind world_object_kinds[] = {ObjectKind::entrance,
                                                    ObjectKind::event_trigger};
using ObjectKinds = std::span<const ObjectKind>;

inline constexpr int max_object_count = 255;
inline constexpr int max_object_size = 9;

/// The records of one kind on a map, as the image held them when the list was read.
struct ObjectList {
    int count = 0;              // records by the pointers, 0 to 255; read whenever a map is chosen
    int first_offset = 0;       // of record 0, from the kind's base; read with the rows
    int row_count = 0;          // records that bytes holds
    bool markers_drawn = false; // the markers have been drawn since the list was read
    std::array<std::uint8_t, max_object_count * max_object_size> bytes{};
};

/// The five lists, and the map and image that they were read from.
struct ObjectLists {
    std::array<ObjectList, object_kind_count> lists;
    int map = -1; // the map whose rows the lists hold, -1 before the first reading
    std::optional<ImageSource> source; // nothing before the first reading

    ObjectList& operator[](ObjectKind kind) { return lists[static_cast<std::size_t>(kind)]; }
    const ObjectList& operator[](ObjectKind kind) const {
        return lists[static_cast<std::size_t>(kind)];
    }
};

/// Where a map's records lie: the offset of the first from the kind's base, and their number, which
/// is 0 if the second pointer is the lower one or more than max_object_count records away.
struct ObjectExtent {
    int first_offset;
    int count;
};
ObjectExtent read_object_extent(const RomImage& rom, ObjectKind kind, int map_index);

/// Reads the count and the rows of one kind.
void load_object_list(const RomImage& rom, ObjectKind kind, int map_index, ObjectList& list);
/// Reads the lists of these kinds. If the lists held another map or image, the rows of all other
/// kinds are dropped. Returns whether they held this one.
bool load_object_lists(const RomImage& rom, ObjectKinds kinds, int map_index, ObjectLists& lists);

/// The bytes of a record; index must be from 0 to list.row_count - 1.
std::span<const std::uint8_t> object_row(ObjectKind kind, const ObjectList& list, int index);

/// File offset of a record of the list.
std::int64_t object_offset(ObjectKind kind, const ObjectList& list, int index);

/// The 256 lines of a chest's contents: the number, hexadecimal, a blank and the name.
std::vector<std::string> load_item_names(const RomImage& rom);

/// File offset of a sprite's first character.
std::int64_t sprite_graphics_offset(const RomImage& rom, std::uint8_t sprite);

} // namespace veldrune
