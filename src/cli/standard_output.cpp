#include "cli/standard_output.h"

#include "cli/exit.h"

#include <cerrno>
#include <cstdio>
#include <string>
#include <unistd.h>

namespace veldrune::cli {

void put_out(std::string_view text) {
    errno = 0;
    const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (written && std::fflush(stdout) == 0)
        return;
    if (errno == EPIPE)
        throw ReaderGone();
    throw Failure("Writing to standard output failed.");
}

void put_progress(std::string_view text) {
    static const bool is_terminal = ::isatty(STDERR_FILENO) == 1;
    if (is_terminal)
        std::fputs(std::string("\r\x1B[K").append(text).c_str(), stderr);
}

} // namespace veldrune::cli
