#pragma once

#include "demo/people/cast.h"
#include "demo/people/script_book.h"

namespace veldrune::demo {

/// What happens when one speaks to somebody or steps somewhere.
class Scenes {
  public:
    /// Begins with the scripts that others call and with one of every command and queue action.
    explicit Scenes(ScriptBook& scripts);
    /// Where the script of the nth object of a part on a map begins, from the first script on.
    int script_of(Part part, int map, int nth);

  private:
    ScriptBook& scripts_;
    std::array<std::vector<std::string>, part_count> sources_;
};

} // namespace veldrune::demo
