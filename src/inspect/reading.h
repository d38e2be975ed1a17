#pragma once

#include "inspect/memory_image.h"
#include "inspect/script_walk.h"
#include "map/layer_map.h"
#include "map/map_properties.h"
#include "objects/object_record.h"
#include "rom/rom_layout.h"
#include "world_map/worlds.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace veldrune::inspect {

/// A packed stream and what it decodes to.
struct PackedStream {
    std::int64_t offset = 0;         // file offset of its length field
    int packed_size = 0;             // bytes by its length field; what a load keeps of a layer's
    bool in_file = false;            // all of them lie in the file
    std::vector<std::uint8_t> bytes; // as many as it makes, up to the decoder's limit

    std::int64_t end() const { return offset + packed_size; }
};

/// A map that names a layer stream, and for which layer, 0 to 2.
struct StreamUser {
    int map;
    int layer;
};

/// The stream of a layer data number.
struct LayerStream {
    int number = 0;
    PackedStream packed;           // its bytes are the tiles, row by row
    std::vector<StreamUser> users; // by map and layer
    LayerSize size;                // the largest that a user asks for; 0 by 0 without one
};

/// The number of records of one kind on a map, and the two pointers that bound them.
struct ObjectListExtent {
    int first_pointer = 0;        // offset of the first record from the kind's base
    int end_pointer = 0;          // the pointer of the next map
    int count = 0;                // records that the editor takes from that, 0 to 255
    std::size_t first_object = 0; // in ImageReading::objects
};

struct ObjectAt {
    ObjectKind kind;
    int map;
    int index;           // from 0, in the list of its map and kind
    std::int64_t offset; // file offset of the record
    ObjectBytes bytes;
};

struct WorldReading {
    World world;
    PackedStream map; // 256 by 256 tiles
    PackedStream graphics;
};

struct DialogueAt {
    std::int64_t offset = 0; // file offset of its text; -1 if its table entry is outside the file
    int size = 0;            // bytes, the final 0 included
    bool whole = false;      // the 0 was found, within 4096 bytes and the file
};

/// One reading of an image, the ground of every report. It holds plain values; what is not kept in
/// it can be read by the editor's procedures through a MemoryRom.
struct ImageReading {
    const MemoryImage& image; // must outlive the reading
    bool dialogue_patched = false;
    std::array<MapProperties, rom_layout::map_count> records{};
    std::array<std::uint8_t, rom_layout::map_count> monster_sets{};
    /// The 352 of the table by number, then those beyond it that a map names.
    std::vector<LayerStream> streams{};
    std::array<std::array<ObjectListExtent, object_kind_count>, rom_layout::map_count> lists{};
    std::vector<ObjectAt> objects{};             // by map, kind and index
    std::vector<PackedStream> formation_sets{};  // by number
    std::vector<PackedStream> layer3_graphics{}; // by number
    std::array<WorldReading, 2> worlds{};
    std::vector<DialogueAt> dialogues{}; // by number
    ScriptWalk scripts{};

    /// The stream of a data number; null for one that is neither in the table nor named.
    const LayerStream* stream(int number) const;
    std::span<const ObjectAt> objects_of(int map, ObjectKind kind) const;
};

/// Reads all of it.
ImageReading read_whole(const MemoryImage& image);

/// The size of a layer as load_map and the window take it: what is above 128 by 64 is not kept.
LayerSize kept_size(LayerSize size);

/// The text of a dialogue before it is wrapped into lines, as the Event Editor spells its codes.
std::string dialogue_letters(const MemoryImage& image, const DialogueAt& dialogue);

} // namespace veldrune::inspect
