#pragma once

#include "session.h"

namespace veldrune::test {

/// Calls everything that the windows call to show a state, and expects that the disk, the state and
/// the user see nothing of it.
void expect_showing_changes_nothing(Session& session);

} // namespace veldrune::test
