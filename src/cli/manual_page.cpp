#include "cli/manual.h"

namespace veldrune::cli {
namespace {

// A text that roff shows as it is.
std::string escaped(const std::string& text) {
    std::string page;
    for (const char letter : text) {
        if ((letter == '.' || letter == '\'') && (page.empty() || page.back() == '\n'))
            page += "\\&";
        if (letter == '-' || letter == '\\')
            page += '\\';
        page += letter == '\\' ? 'e' : letter;
    }
    return page;
}

// Lines that are not filled.
std::string lines(const std::string& text) {
    return text.empty() ? text : ".PP\n.nf\n" + escaped(text) + "\n.fi\n";
}

std::string usage(const CLI::App& app, const std::string& name) {
    const std::string text = CLI::Formatter().make_usage(&app, name); // "Usage: NAME ..."
    return ".PP\n.B " + escaped(text.substr(text.find(name)));
}

std::string options(const CLI::App& app) {
    const CLI::Formatter formatter;
    std::string page;
    for (const bool positional : {true, false})
        for (const CLI::Option* option : app.get_options())
            if (option->get_positional() == positional)
                page += ".TP\n.B " +
                        escaped(formatter.make_option_name(option, positional) +
                                formatter.make_option_opts(option)) +
                        '\n' + escaped(option->get_description()) + '\n';
    return page;
}

std::string commands(const CLI::App& app, const std::string& program, const std::string& path) {
    std::string page;
    for (const CLI::App* command : app.get_subcommands({})) {
        const std::string name = path + command->get_name();
        page.append(".SS ").append(escaped(name)).append("\n");
        page.append(escaped(command->get_description())).append(".\n");
        page += usage(*command, std::string(program).append(" ").append(name));
        page += options(*command) + lines(command->get_footer());
        page += commands(*command, program, std::string(name).append(" "));
    }
    return page;
}

} // namespace

std::string manual_page(const CLI::App& app) {
    const std::string& name = app.get_name();
    return ".TH VELDRUNE\\-INSPECT 1 \"\" \"Veldrune Map Editor\"\n.SH NAME\n" + escaped(name) +
           " \\- what is in a ROM image\n.SH SYNOPSIS\n" + usage(app, name) + ".SH DESCRIPTION\n" +
           escaped(app.get_description()) + '\n' + lines(app.get_footer()) + ".SH OPTIONS\n" +
           options(app) + ".SH COMMANDS\n" + commands(app, name, "");
}

} // namespace veldrune::cli
