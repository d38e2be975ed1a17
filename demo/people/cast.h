#pragma once

#include "demo/drawing/palettes.h"
#include "demo/image/map_objects.h"

#include <span>
#include <string_view>

namespace veldrune::demo {

/// What an object is there for. It decides about its looks and about its script.
// clang-format off
enum class Part {
    // people and animals
    guard, merchant, innkeeper, villager, child, elder, king, queen, courtier, knight, cook,
    scholar, guest, traveller, hunter, miner, hermit, pet, wild, bat, crystal,
    // what happens where one steps or looks
    sign, counter, well, throne, bed, shelf, hearth, arrival, door, pool, glow,
    chest,
};
inline constexpr std::string_view part_names[] = { // in the same order
    "guard", "merchant", "innkeeper", "villager", "child", "elder", "king", "queen", "courtier", "knight", "cook",
    "scholar", "guest", "traveller", "hunter", "miner", "hermit", "pet", "wild", "bat", "crystal",
    "sign", "counter", "well", "throne", "bed", "shelf", "hearth", "arrival", "door", "pool", "glow",
    "chest",
};
// clang-format on
inline constexpr int npc_parts = static_cast<int>(Part::sign);
inline constexpr int part_count = static_cast<int>(Part::chest) + 1;
static_assert(std::size(part_names) == part_count);

/// A rule of where a part is played: (dx, dy) from a letter of the plan. '*' is any floor, '^' a
/// nook between walls.
struct Post {
    Kind kind;
    Part part;
    char letter;
    int dx, dy;
    int most; // on 64 by 32 tiles
    Facing facing = Facing::down;
    bool shared = false;  // with whoever stands there
    bool in_wall = false; // where nobody can stand
};
std::span<const Post> posts();

/// The look of a part of people and animals: one of each list, a digit each.
struct Look {
    std::string_view dresses, hairs, palettes;
    int first; // sprite to which dress * 8 + hair is added
    int movement, speed;
};
const Look& look(Part part);

} // namespace veldrune::demo
