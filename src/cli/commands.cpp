#include "cli/commands.h"

namespace veldrune::cli {
namespace {

// In the order of --help.
constexpr CommandGroup (*groups[])() = {map_commands,    text_commands, uses_commands,
                                        dump_commands,   diff_commands, check_commands,
                                        picture_commands};

constexpr char notes[] =
    R"(Numbers of maps and in fields are decimal; offsets, flags and numbers in scripts,
such as a dialogue's, are hexadecimal; 0x makes any number hexadecimal. --json
prints one object: "format", "image", "command" and an array.

Exit status:
  0  done
  1  something was found: faults, differences; or there is no room
  2  it could not be done)";

// What is wrong with the arguments. The parser misses a command before it finds that a word is
// none.
std::string complaint(const CLI::App* app, const CLI::Error& error) {
    std::string text = "veldrune-inspect: ";
    if (app->get_subcommands().empty() && !app->remaining().empty())
        text.append("\"").append(app->remaining().front()).append("\" is no command");
    else
        text += error.what();
    return text + "\nRun with --help for more information.\n";
}

} // namespace

std::vector<DeclaredCommand> declare_commands(CLI::App& app) {
    app.failure_message(complaint);
    app.name("veldrune-inspect");
    app.allow_windows_style_options(false); // a word that begins with "/" is a name everywhere
    app.description("Says what is in a ROM image, and changes nothing in it.");
    app.footer(notes);
    app.require_subcommand(1);
    std::vector<DeclaredCommand> declared;
    for (const auto group : groups)
        for (const Command& command : group()) {
            CLI::App* sub = app.add_subcommand(command.name, command.summary);
            sub->footer(std::string("Example:\n  veldrune-inspect ").append(command.example));
            declared.push_back({&command, sub, command.declare(*sub)});
            for (CLI::Option* option : sub->get_options())
                if (option->get_positional())
                    option->type_name(""); // its name says what it is
        }
    return declared;
}

} // namespace veldrune::cli
