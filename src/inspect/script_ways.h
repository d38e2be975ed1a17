#pragma once

#include "inspect/reading.h"

#include <bitset>
#include <cstdint>
#include <functional>
#include <span>
#include <utility>
#include <vector>

namespace veldrune::inspect {

/// Maps, a bit each.
using MapSet = std::bitset<rom_layout::map_count>;
std::vector<std::int64_t> map_numbers(const MapSet& maps);

/// How the walked scripts of a reading, which must outlive this, lead to each other.
class ScriptWays {
  public:
    explicit ScriptWays(const ImageReading& reading);

    /// The walked command that begins at a file offset; null where none does.
    const WalkedCommand* command_at(std::int64_t offset) const;
    /// The file offset of the script that lists the command at an offset; -1 where none does.
    std::int64_t script_of(std::int64_t command) const;

    /// File offsets of walked commands. A script whose commands another one goes on with counts
    /// whole as one to which a walk comes.
    using Commands = std::vector<std::int64_t>;
    /// For each group of commands, calls visit once for every object from which a walk comes to one
    /// of them, with the number of the group.
    using Visit = std::function<void(std::size_t group, const ObjectAt& object)>;
    void visit_objects(std::span<const Commands> groups, const Visit& visit) const;
    /// Those of the commands to which a walk from an object of the map comes.
    Commands met_from(int map, const Commands& commands) const;

  private:
    struct Place {
        std::int32_t offset; // of a command
        std::uint32_t index; // in ScriptWalk::commands
        std::uint32_t script;
    };
    using Edge = std::pair<std::uint32_t, std::uint32_t>; // of two scripts
    const Place* place_of(std::int64_t offset) const;
    void add_edge(std::uint32_t from, std::uint32_t to);

    const ImageReading& reading_;
    std::vector<Place> places_; // by offset
    std::vector<Edge> forward_; // from a script to one that it leads to
    std::vector<Edge> back_;    // the same the other way round; both in order
};

} // namespace veldrune::inspect
