#pragma once

namespace veldrune::cli {

/// To be called before anything is written: texts then arrive as the bytes that they are, and a
/// write that nobody reads fails like any other.
void prepare_console();

/// Whether the write that has just failed did so because its reader has gone.
bool reader_has_gone();

/// Whether standard error is a terminal that takes the usual escape sequences.
bool errors_are_on_terminal();

} // namespace veldrune::cli
