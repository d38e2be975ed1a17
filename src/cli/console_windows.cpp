#include "cli/console.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <io.h>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace veldrune::cli {

void prepare_console() {
    _setmode(_fileno(stdout), _O_BINARY);
    static const UINT former = GetConsoleOutputCP(); // 0 where there is no console
    if (former != 0 && SetConsoleOutputCP(CP_UTF8))
        std::atexit([] { SetConsoleOutputCP(former); });
}

// A pipe that is being closed is no errno of its own.
bool reader_has_gone() {
    return errno == EPIPE || (errno == EINVAL && GetLastError() == ERROR_NO_DATA);
}

bool errors_are_on_terminal() {
    static DWORD former = 0;
    static const HANDLE errors = GetStdHandle(STD_ERROR_HANDLE);
    static const bool are = GetConsoleMode(errors, &former) &&
                            SetConsoleMode(errors, former | ENABLE_VIRTUAL_TERMINAL_PROCESSING) &&
                            std::atexit([] { SetConsoleMode(errors, former); }) == 0;
    return are;
}

} // namespace veldrune::cli
