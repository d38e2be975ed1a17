#include "demo/demo_image.h"
#include "rom/file_layer.h"
#include "rom/native_path.h"

#include <charconv>
#include <cstdio>
#include <fstream>

namespace {

bool parse_seed(const std::string& text, std::uint32_t& seed) {
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, seed);
    return error == std::errc{} && stop == end;
}

} // namespace

int main(int count, char** words) {
    const std::vector<std::string> arguments = veldrune::command_line(count, words);
    std::uint32_t seed = 1;
    const bool seeded = arguments.size() == 4 && arguments[2] == "--seed";
    if (!(arguments.size() == 2 || (seeded && parse_seed(arguments[3], seed)))) {
        std::fputs("usage: make_demo_image OUT.smc [--seed N]\n", stderr);
        return 2;
    }
    const auto image = veldrune::demo::make_demo_image(seed);
    std::ofstream file(veldrune::stream_path(arguments[1]), std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(image.data()),
               static_cast<std::streamsize>(image.size()));
    file.close();
    if (!file) {
        std::fprintf(stderr, "%s can't be written\n", arguments[1].c_str());
        return 1;
    }
    return 0;
}
