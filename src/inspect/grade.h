#pragma once

namespace veldrune::inspect {

/// How bad a finding of a check is.
enum class Grade {
    fault,   // can't be meant, whatever the game does
    unusual, // may be meant
};

} // namespace veldrune::inspect
