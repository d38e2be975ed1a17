// Writes what comes along with veldrune-inspect: make_manual PAGE COMPLETION.

#include "cli/commands.h"
#include "cli/manual.h"

#include <cstdio>
#include <fstream>

namespace {

bool write(const char* path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    return static_cast<bool>(file << text << std::flush);
}

} // namespace

int main(int argc, char** argv) {
    using namespace veldrune::cli;
    CLI::App app;
    declare_commands(app);
    if (argc == 3 && write(argv[1], manual_page(app)) && write(argv[2], bash_completion(app)))
        return 0;
    std::fputs("make_manual: the manual page and the completion can't be written\n", stderr);
    return 1;
}
