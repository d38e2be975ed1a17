#pragma once

#include "cli/command.h"

#include <vector>

namespace veldrune::cli {

// The groups of commands, each a table in a file of its own.
CommandGroup map_commands();     // maps, map
CommandGroup dump_commands();    // dump
CommandGroup picture_commands(); // picture, pictures
CommandGroup diff_commands();    // diff
CommandGroup check_commands();   // check, room
CommandGroup uses_commands();    // uses, tiles
CommandGroup text_commands();    // objects, scripts, script, dialogue

/// A command of the parser's tree, and what it does.
struct DeclaredCommand {
    const Command* command;
    CLI::App* app;
    Action action;
};
/// Puts all commands into the parser, with what --help says of them.
std::vector<DeclaredCommand> declare_commands(CLI::App& app);

} // namespace veldrune::cli
