#pragma once

#include "session.h"
#include "write_plan.h"

namespace veldrune::test {

/// What an operation may do to changes_saved.
enum class Effect {
    none,    // leaves it, and the painting
    paints,  // clears it where it paints
    drops,   // sets it where a question about the loss of painting was agreed to
    empties, // changes layers and leaves it
    saves,   // sets it where the whole plan was written
    outside, // leaves it; another program does something to the files
};

/// What must be remembered of a session before an operation.
struct Before {
    explicit Before(Session& session);

    bool changes_saved;
    std::uint64_t file; // the open image
    std::int64_t size;  // its size
    std::array<LayerMap, layer_count> layers;
    WorldMap world;
    bool world_readable; // it was read whole
    std::size_t file_count;
    int openings; // of files
};

/// What the file layer saw an operation do.
struct Outcome {
    std::vector<MemoryDisk::Access> writes; // into the image, in their order
    bool complete = false;                  // the whole plan was written and flushed
};

/// Holds what an operation has done against its plan: every write, the questions before them, the
/// flush at the end, the copy of a Save As, and changes_saved. Reports each difference as a failed
/// expectation, and brings the session's own members up to date.
Outcome check_operation(Session& session, const Before& before, const Plan& plan, Effect effect);

} // namespace veldrune::test
