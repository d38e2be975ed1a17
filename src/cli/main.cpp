#include "cli/commands.h"
#include "cli/standard_output.h"

#include <csignal>
#include <cstdio>
#include <new>
#include <sstream>

namespace veldrune::cli {
namespace {

int run(int argc, char** argv) {
    CLI::App app;
    const std::vector<DeclaredCommand> commands = declare_commands(app);
    try {
        app.parse(argc, argv);
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
#ifdef SIGPIPE
    std::signal(SIGPIPE, SIG_IGN); // a write to nobody then fails like any other
#endif
    try {
        return run(argc, argv);
    } catch (const ReaderGone&) {
        return fine;
    } catch (const Failure& failure) {
        return fail(failure.what());
    } catch (const std::bad_alloc&) {
        return fail("There is not enough memory.");
    }
}
