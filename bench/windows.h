#pragma once

namespace veldrune::bench {

/// Whether the program has been started by itself, to show its first window and end.
bool is_window_child(int argc, char** argv);
/// Does so, and prints how much memory that took, in kilobytes.
int show_first_window(int argc, char** argv);

} // namespace veldrune::bench
