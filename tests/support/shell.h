#pragma once

#include <cstdio>
#include <string>
#include <sys/wait.h>

namespace veldrune::test {

struct ShellResult {
    int code;
    std::string out;
};
/// Runs a line of the shell.
inline ShellResult run_shell(const std::string& line) {
    FILE* pipe = ::popen(line.c_str(), "r");
    std::string out;
    char block[4096];
    while (const std::size_t count = std::fread(block, 1, sizeof block, pipe))
        out.append(block, count);
    return {WEXITSTATUS(::pclose(pipe)), out};
}

} // namespace veldrune::test
