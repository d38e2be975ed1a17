#include "cli/commands.h"
#include "cli/console.h"
#include "cli/standard_output.h"

#include <algorithm>
#include <cstdio>
#include <new>
#include <sstream>
#include <utility>

namespace veldrune::cli {
namespace {

int run(std::vector<std::string> words) {
    CLI::App app;
    const std::vector<DeclaredCommand> commands = declare_commands(app);
    try {
        std::ranges::reverse(words); // as the parser takes them, the program's name left out
        if (!words.empty())
            words.pop_back();
        app.parse(std::move(words));
    } catch (const CLI::ParseError& stop) { // --help ends this way too
        std::ostringstream out, errors;
        const int code = app.exit(stop, out, errors);
        std::fputs(errors.str().c_str(), stderr);
        put_out(out.str());
        return code == 0 ? fine : failed;
    }
    for (const DeclaredCommand& command : commands)
        if (command.app->parsed())
            return command.action();
    return failed; // the parser asks for a command
}

int fail(const std::string& message) {
    std::fputs(("veldrune-inspect: " + message + "\n").c_str(), stderr);
    return failed;
}

} // namespace
} // namespace veldrune::cli

int main(int argc, char** argv) {
    using namespace veldrune::cli;
    prepare_console();
    try {
        return run(veldrune::command_line(argc, argv));
    } catch (const ReaderGone&) {
        return fine;
    } catch (const Failure& failure) {
        return fail(failure.what());
    } catch (const std::bad_alloc&) {
        return fail("There is not enough memory.");
    }
}
