#pragma once

#include "editor/editor_state.h"
#include "support/memory_disk.h"

#include <string>
#include <vector>

namespace veldrune::test {

/// A write that an operation may make: from offset on, least to most bytes.
struct PlannedWrite {
    std::int64_t offset = 0;
    std::int64_t least = 0;
    std::int64_t most = 0;
    /// Bytes of what it replaces, if a longer write asks first; -1 where none does.
    std::int64_t former = -1;
    /// Places that it may not cover without the question about a save that can hardly be meant.
    std::vector<std::int64_t> doubtful = {};
};

/// What an operation may write, worked out from the state before it and from what is documented,
/// without the code that saves. Its writes are the first of these, in their order.
struct Plan {
    std::vector<PlannedWrite> writes;
    std::size_t optional = 0;           // writes at the end that a whole save may do without
    std::vector<std::string> questions; // words of those that must be agreed to before the first
    // Whether the question about a file without its name must be, too, if it has not been before.
    bool nameless = false;
};

/// One for each operation that writes; without writes where the operation must refuse.
Plan plan_of_save(const EditorState& state);
Plan plan_of_save_as(const EditorState& state);
Plan plan_of_expansion(const EditorState& state);
Plan plan_of_patch(const EditorState& state);
Plan plan_of_object(const EditorState& state);
Plan plan_of_script(const EditorState& state);

/// The number in a field of hexadecimal or decimal digits.
std::int32_t hex_in(const std::string& text);
std::int64_t decimal_in(const std::string& text);

} // namespace veldrune::test
