#pragma once

#include <stdexcept>

namespace veldrune::cli {

/// What the program ends with.
enum ExitCode {
    fine = 0,
    found = 1,  // differences, faults; or no room
    failed = 2, // it could not be done
};

/// Ends the program: standard error says why, and the exit code is failed.
struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Ends the program without a word: nobody reads its output any more.
struct ReaderGone {};

} // namespace veldrune::cli
