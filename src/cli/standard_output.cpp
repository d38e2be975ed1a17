#include "cli/standard_output.h"

#include "cli/exit.h"

#include <cerrno>
#include <cstdio>

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

} // namespace veldrune::cli
