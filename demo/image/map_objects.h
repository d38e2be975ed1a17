#pragma once

#include "demo/image/image_writer.h"

#include <span>
#include <vector>

namespace veldrune::demo {

enum class Facing { up, right, down, left };

// The objects of a map. Positions are in tiles; script is a byte offset into the event scripts.
struct Npc {
    int x, y, sprite, palette, script;
    Facing facing = Facing::down;
    int movement = 0, speed = 1, flag = 0, vehicle = 0;
    bool walk_over = false, walk_under = false, turns_to_talk = true;
};

enum class Contents { empty = 3, unknown, monster, item, money };

struct Chest {
    int x, y, flag; // 0 to 511
    Contents contents;
    int value; // an item's number, hundreds of GP, or a monster
};

struct Trigger {
    int x, y, script;
};

struct Entrance {
    int x, y, map, to_x, to_y;
};

struct LongEntrance {
    Entrance first;
    int length; // tiles after the first
    bool down;  // down the column, else right along the row
};

struct MapObjects {
    std::vector<Npc> npcs;
    std::vector<Chest> chests;
    std::vector<Trigger> triggers;
    std::vector<Entrance> entrances;
    std::vector<LongEntrance> long_entrances;
};

/// Writes the five tables. Throws std::length_error where one does not fit into its area.
void write_objects(ImageWriter& writer, std::span<const MapObjects> maps);

} // namespace veldrune::demo
