#pragma once

#include "demo/drawing/palettes.h"
#include "demo/image/map_objects.h"

#include <span>
#include <string_view>

namespace veldrune::demo {

/// The role of an object, which determines its look and its script.
// clang-format off
enum class Role {
    // people and animals
    guard, merchant, innkeeper, villager, child, elder, king, queen, courtier, knight, cook,
    scholar, guest, traveller, hunter, miner, hermit, pet, wild, bat, crystal,
    // triggers
    sign, counter, well, throne, bed, shelf, hearth, arrival, door, pool, glow,
    chest,
};
inline constexpr std::string_view role_names[] = { // in the same order
    "guard", "merchant", "innkeeper", "villager", "child", "elder", "king", "queen", "courtier", "knight", "cook",
    "scholar", "guest", "traveller", "hunter", "miner", "hermit", "pet", "wild", "bat", "crystal",
    "sign", "counter", "well", "throne", "bed", "shelf", "hearth", "arrival", "door", "pool", "glow",
    "chest",
};
// clang-format on
inline constexpr int npc_role_count = static_cast<int>(Role::sign);
inline constexpr int role_count = static_cast<int>(Role::chest) + 1;
static_assert(std::size(role_names) == role_count);

/// Where objects of a role are placed: at (dx, dy) from a letter of the plan. '*' is any floor, '^'
/// a corner between walls.
struct PlacementRule {
    Kind kind;
    Role role;
    char letter;
    int dx, dy;
    int max_count; // on 64 by 32 tiles; scaled with the size of the map
    Facing facing = Facing::down;
    bool shared = false;  // the tile may have another object
    bool in_wall = false; // on a tile where nobody can walk
};
std::span<const PlacementRule> placement_rules();

/// The look of people and animals of a role: one digit is picked from each list.
struct Look {
    std::string_view dresses, hairs, palettes;
    int first; // the sprite is first + 8 * dress + hair
    int movement, speed;
};
const Look& look(Role role);

} // namespace veldrune::demo
