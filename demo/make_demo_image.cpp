#include "demo/demo_image.h"

#include <charconv>
#include <cstdio>
#include <cstring>
#include <fstream>

namespace {

bool parse_seed(const char* text, std::uint32_t& seed) {
    const char* end = text + std::strlen(text);
    const auto [stop, error] = std::from_chars(text, end, seed);
    return error == std::errc{} && stop == end;
}

} // namespace

int main(int argument_count, char** arguments) {
    std::uint32_t seed = 1;
    const bool seeded = argument_count == 4 && std::strcmp(arguments[2], "--seed") == 0;
    if (!(argument_count == 2 || (seeded && parse_seed(arguments[3], seed)))) {
        std::fputs("usage: make_demo_image OUT.smc [--seed N]\n", stderr);
        return 2;
    }
    const auto image = veldrune::demo::make_demo_image(seed);
    std::ofstream file(arguments[1], std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(image.data()),
               static_cast<std::streamsize>(image.size()));
    file.close();
    if (!file) {
        std::fprintf(stderr, "%s can't be written\n", arguments[1]);
        return 1;
    }
    return 0;
}
