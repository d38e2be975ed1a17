#pragma once

#include "objects/object_tables.h"

namespace veldrune::inspect {

/// What bytes of an image may belong to, and how those of a kind are numbered.
enum class OwnerKind {
    structure,      // number: its index in known_structures()
    dialogue_table, // of the Dialogue Patch, where the image has it
    layer_stream,   // number: data number
    formation_set,  // number of the set
    layer3_graphics,
    world_map, // number: 0 dawn, 1 dusk
    world_graphics,
    npcs, // number: map, here and in the next four, which are as in ObjectKind
    chests,
    triggers,
    entrances,
    long_entrances,
    script,   // number: file offset of its first command
    dialogue, // number of the dialogue
};

/// The owner of a map's objects of a kind.
constexpr OwnerKind list_owner(ObjectKind kind) {
    return static_cast<OwnerKind>(static_cast<int>(OwnerKind::npcs) + static_cast<int>(kind));
}
constexpr bool is_list(OwnerKind kind) {
    return kind >= OwnerKind::npcs && kind <= OwnerKind::long_entrances;
}

} // namespace veldrune::inspect
