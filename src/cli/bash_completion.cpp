#include "cli/manual.h"

namespace veldrune::cli {
namespace {

// What a place of the line offers: commands, and options after a "-".
std::string offers(const CLI::App& app) {
    std::string names = "names='", options = "' options='";
    for (const CLI::App* command : app.get_subcommands({}))
        names += command->get_name() + ' ';
    for (const CLI::Option* option : app.get_options()) {
        for (const std::string& name : option->get_snames())
            options += '-' + name + ' ';
        for (const std::string& name : option->get_lnames())
            options += "--" + name + ' ';
    }
    return names + options + '\'';
}

// A row for each command, by all words that lead to it.
std::string rows(const CLI::App& app, const std::string& path) {
    std::string text;
    for (const CLI::App* command : app.get_subcommands({})) {
        const std::string words = path + ' ' + command->get_name();
        text +=
            "            '" + words + "') " + offers(*command) + " ;;\n" + rows(*command, words);
    }
    return text;
}

} // namespace

std::string bash_completion(const CLI::App& app) {
    return R"(_veldrune_inspect() {
    local word command='' )" +
           offers(app) + R"(
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        case "$command $word" in
)" + rows(app, "") +
           R"(            *) continue ;;
        esac
        command+=" $word"
    done
    word=${COMP_WORDS[COMP_CWORD]}
    [[ $word == -* ]] && names=$options
    COMPREPLY=($(compgen -W "$names" -- "$word"))
}
complete -o bashdefault -o default -F _veldrune_inspect veldrune-inspect
)";
}

} // namespace veldrune::cli
