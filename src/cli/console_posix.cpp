#include "cli/console.h"

#include <cerrno>
#include <csignal>
#include <unistd.h>

namespace veldrune::cli {

void prepare_console() {
    std::signal(SIGPIPE, SIG_IGN);
}

bool reader_has_gone() {
    return errno == EPIPE;
}

bool errors_are_on_terminal() {
    return ::isatty(STDERR_FILENO) == 1;
}

} // namespace veldrune::cli
