#pragma once

#include "objects/object_tables.h"
#include "support/bytes.h"

namespace veldrune::test {

inline constexpr ObjectKind all_kinds[] = {ObjectKind::npc, ObjectKind::chest,
                                           ObjectKind::event_trigger, ObjectKind::entrance,
                                           ObjectKind::long_entrance};

// clang-format off
/// Where the kinds lie, independently of the program.
struct KindPlace { std::size_t pointers, base, size; };
inline constexpr KindPlace kind_places[] = {
    {0x41C10,  0x41C10,  9},
    {0x2D84F4, 0x2D8834, 5},
    {0x40200,  0x40200,  5},
    {0x1FBD00, 0x1FBD00, 6},
    {0x2DF680, 0x2DF680, 7},
};
// clang-format on
inline const KindPlace& place_of(ObjectKind kind) {
    return kind_places[static_cast<std::size_t>(kind)];
}

inline std::size_t record_place(ObjectKind kind, std::size_t map, std::size_t index) {
    return place_of(kind).base + 0x400 + map * 0xA00 + index * place_of(kind).size;
}

/// Puts a map's list of records into an image. The list of map + 1 begins where this one ends, so
/// use every other map only, of the first ones.
inline void put_objects(Bytes& image, ObjectKind kind, std::size_t map,
                        const std::vector<Bytes>& records) {
    for (const std::size_t end : {0u, 1u})
        put_word(image, place_of(kind).pointers + 2 * (map + end),
                 record_place(kind, map, end * records.size()) - place_of(kind).base);
    for (std::size_t i = 0; i < records.size(); ++i)
        put_bytes(image, record_place(kind, map, i), records[i]);
}

} // namespace veldrune::test
