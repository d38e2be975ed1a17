#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace veldrune::cli {

/// The manual page of a parser's commands, in roff: what --help says of each.
std::string manual_page(const CLI::App& app);

/// What bash completes the program's lines with: commands, their options, and otherwise files.
std::string bash_completion(const CLI::App& app);

} // namespace veldrune::cli
