#include "cli/commands.h"

namespace veldrune::cli {
namespace {

// In the order of --help.
constexpr CommandGroup (*groups[])() = {map_commands,    text_commands, uses_commands,
                                        dump_commands,   diff_commands, check_commands,
                                        picture_commands};

constexpr char notes[] =
    R"(Numbers of maps and in fields are decimal, offsets hexadecimal; 0x makes any
number hexadecimal. --json prints one object: "format", "image", "command" and an
array.

Exit status:
  0  done
  1  something was found: faults, differences; or there is no room
  2  it could not be done)";

} // namespace

std::vector<DeclaredCommand> declare_commands(CLI::App& app) {
    app.name("veldrune-inspect");
    app.description("Says what is in a ROM image, and changes nothing in it.");
    app.footer(notes);
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
