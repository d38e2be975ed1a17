#include "demo/people/cast.h"

#include "demo/people/sprites.h"

namespace veldrune::demo {
namespace {

using enum Role;

// clang-format off
constexpr PlacementRule placement_table[] = {
    // kind       role       near  dx dy max_count
    {Kind::town, merchant,  'M',  1, 1, 2},
    {Kind::town, counter,   'M',  1, 1, 2, Facing::up, true},
    {Kind::town, well,      'w',  1, 1, 1},
    {Kind::town, elder,     'w',  0, 1, 1, Facing::right},
    {Kind::town, sign,      'n',  0, 1, 4, Facing::up},
    {Kind::town, guard,     'L',  0, 1, 3},
    {Kind::town, child,     'F', -1, 1, 1, Facing::right},
    {Kind::town, child,     'F',  3, 0, 1, Facing::left},
    {Kind::town, villager,  'p',  0, 1, 2, Facing::up},
    {Kind::town, villager,  ':',  0, 0, 3},
    {Kind::town, villager,  'c',  0, 0, 2, Facing::left},
    {Kind::town, traveller, ':',  0, 0, 1, Facing::left},
    {Kind::town, pet,       ',',  0, 0, 2},
    {Kind::town, pet,       '.',  0, 0, 1},

    {Kind::forest, hunter,    's', 0, 1, 1},
    {Kind::forest, traveller, ':', 0, 0, 1, Facing::right},
    {Kind::forest, wild,      ',', 0, 0, 2},
    {Kind::forest, wild,      '"', 0, 0, 1},
    {Kind::forest, hermit,    'R', 0, 1, 1},
    {Kind::forest, pool,      '=', 0, 0, 1, Facing::up},
    {Kind::forest, arrival,   ':', 0, 0, 1},
    {Kind::forest, chest,     '^', 0, 0, 1},

    {Kind::cave, miner,   'i',  0, 1, 1},
    {Kind::cave, miner,   'c',  0, 1, 1, Facing::up},
    {Kind::cave, crystal, '^',  0, 0, 1},
    {Kind::cave, glow,    'v',  0, 1, 1, Facing::up},
    {Kind::cave, glow,    'm',  0, 1, 1},
    {Kind::cave, bat,     '*',  0, 0, 2},
    {Kind::cave, hermit,  'g',  0, 0, 1},
    {Kind::cave, arrival, '*',  0, 0, 1},
    {Kind::cave, chest,   '^',  0, 0, 2},

    {Kind::castle, king,     'X', 0, 1, 1},
    {Kind::castle, throne,   'X', 0, 1, 1, Facing::up, true},
    {Kind::castle, queen,    'X', 2, 1, 1},
    {Kind::castle, knight,   'L', 1, 1, 3, Facing::left},
    {Kind::castle, guard,    'K', 1, 0, 3},
    {Kind::castle, guard,    't', 0, 1, 1},
    {Kind::castle, courtier, 'k', 0, 0, 2, Facing::up},
    {Kind::castle, courtier, 'C', 2, 0, 1, Facing::right},
    {Kind::castle, arrival,  'k', 0, 0, 1},
    {Kind::castle, chest,    '^', 0, 0, 1},

    {Kind::interior, innkeeper, 'T', -1, 0, 1, Facing::right},
    {Kind::interior, cook,      'H', 1, 1, 1, Facing::up},
    {Kind::interior, hearth,    'H', 1, 1, 1, Facing::up, true},
    {Kind::interior, scholar,   'B', 0, 1, 2, Facing::up},
    {Kind::interior, shelf,     'J', 0, 1, 1, Facing::up},
    {Kind::interior, shelf,     'q', 0, 1, 1, Facing::up},
    {Kind::interior, guest,     'h', 0, 1, 1, Facing::up},
    {Kind::interior, child,     'k', 0, 0, 1},
    {Kind::interior, bed,       'd', 0, 1, 1, Facing::up},
    {Kind::interior, pet,       'P', 1, 0, 1, Facing::left},
    {Kind::interior, chest,     'c', 0, 0, 2, Facing::down, false, true},
};

constexpr Look looks[npc_role_count] = {
    // dresses hairs    palettes    first          movement speed
    {"3",    "6",     "0246",     0,             0, 1}, // guard
    {"4",    "0123",  "0123",     0,             0, 1}, // merchant
    {"4",    "0123",  "4567",     0,             0, 1}, // innkeeper
    {"014",  "0123",  "01234567", 0,             2, 0}, // villager
    {"01",   "012",   "01234567", child_sprites, 2, 2}, // child
    {"25",   "34",    "347",      0,             0, 0}, // elder
    {"2",    "7",     "1",        0,             0, 1}, // king
    {"1",    "7",     "5",        0,             0, 1}, // queen
    {"12",   "012",   "1567",     0,             2, 1}, // courtier
    {"3",    "06",    "17",       0,             0, 1}, // knight
    {"4",    "13",    "02",       0,             0, 1}, // cook
    {"25",   "0235",  "3467",     0,             0, 1}, // scholar
    {"015",  "0124",  "01234567", 0,             0, 1}, // guest
    {"5",    "0124",  "02357",    0,             3, 1}, // traveller
    {"05",   "04",    "24",       0,             2, 1}, // hunter
    {"04",   "36",    "0357",     0,             0, 1}, // miner
    {"2",    "45",    "3467",     0,             0, 0}, // hermit
    {"0",    "0123",  "0257",     small_sprites, 2, 2}, // pet
    {"0",    "4567",  "0234",     small_sprites, 2, 2}, // wild
    {"1",    "01",    "1467",     small_sprites, 4, 3}, // bat
    {"1",    "2345",  "1567",     small_sprites, 0, 0}, // crystal
};
// clang-format on

} // namespace

std::span<const PlacementRule> placement_rules() {
    return placement_table;
}

const Look& look(Role role) {
    return looks[static_cast<std::size_t>(role)];
}

} // namespace veldrune::demo
