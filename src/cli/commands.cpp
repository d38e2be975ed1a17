#include "cli/commands.h"

namespace veldrune::cli {
namespace {

// In the order of --help.
constexpr CommandGroup (*groups[])() = {map_commands,    text_commands, uses_commands,
                                        dump_commands,   diff_commands, check_commands,
                                        picture_commands};

} // namespace

std::vector<DeclaredCommand> declare_commands(CLI::App& app) {
    app.description("Says what is in a ROM image, and changes nothing in it.");
    app.require_subcommand(1);
    std::vector<DeclaredCommand> declared;
    for (const auto group : groups)
        for (const Command& command : group()) {
            CLI::App* sub = app.add_subcommand(command.name, command.summary);
            sub->footer(std::string("Example:\n  veldrune-inspect ").append(command.example));
            declared.push_back({&command, sub, command.declare(*sub)});
        }
    return declared;
}

} // namespace veldrune::cli
