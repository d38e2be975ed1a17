#include "cli/standard_output.h"

#include "cli/console.h"
#include "cli/exit.h"

#include <cerrno>
#include <cstdio>
#include <string>

namespace veldrune::cli {

void put_out(std::string_view text) {
    errno = 0;
    const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (written && std::fflush(stdout) == 0)
        return;
    if (reader_has_gone())
        throw ReaderGone();
    throw Failure("Writing to standard output failed.");
}

void put_progress(std::string_view text) {
    static const bool is_terminal = errors_are_on_terminal();
    if (is_terminal)
        std::fputs(std::string("\r\x1B[K").append(text).c_str(), stderr);
}

} // namespace veldrune::cli
