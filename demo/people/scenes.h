#pragma once

#include "demo/people/cast.h"
#include "demo/people/script_book.h"

namespace veldrune::demo {

/// The scripts of NPCs and triggers.
class Scenes {
  public:
    /// Adds the scripts that others call, and scripts with one of every command and queue action.
    explicit Scenes(ScriptBook& scripts);
    /// The offset, from the first script on, of the script of the nth object of a role on a map.
    int script_of(Role role, int map, int nth);

  private:
    ScriptBook& scripts_;
    std::array<std::vector<std::string>, role_count> sources_;
};

} // namespace veldrune::demo
