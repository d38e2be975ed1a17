#pragma once

#include "session.h"

#include <span>

namespace veldrune::test {

/// After a save that has written its whole plan and was not called one that can hardly be meant:
/// reading the open image gives what is in memory and in the fields. Differences are reported as
/// failed expectations. writes are those of the save.
using Writes = std::span<const MemoryDisk::Access>;
void expect_save_back(const EditorState& state, Writes writes);
void expect_save_as_back(const EditorState& state, Writes writes);
void expect_object_back(const EditorState& state, Writes writes);
void expect_script_back(const EditorState& state, Writes writes);

} // namespace veldrune::test
