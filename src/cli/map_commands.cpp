#include "cli/commands.h"
#include "inspect/map_reports.h"
#include "rom/native_path.h"
#include "rom/rom_layout.h"

#include <fstream>
#include <memory>

namespace veldrune::cli {
namespace {

std::vector<std::string> read_names(const std::string& path) {
    std::ifstream file(stream_path(path));
    std::vector<std::string> names;
    for (std::string line; std::getline(file, line);) {
        if (line.ends_with('\r'))
            line.pop_back();
        names.push_back(line);
    }
    if (!file.eof() || file.bad())
        throw Failure("Reading " + path + " failed.");
    return names;
}

Action declare_maps(CLI::App& app) {
    struct Options : ReportOptions {
        std::string names;
    };
    const auto options = std::make_shared<Options>();
    add_report_options(app, *options);
    add_path_option(app, "--names", "FILE", options->names,
                    "A text file of names, a line a map from map 0 on");
    return [options] {
        const OpenedImage opened(options->image);
        const auto names =
            options->names.empty() ? std::vector<std::string>() : read_names(options->names);
        print_listing(*options, "maps", "maps", inspect::list_maps(opened.reading(), names));
        return fine;
    };
}

Action declare_map(CLI::App& app) {
    struct Options : ReportOptions {
        std::int64_t map = 0;
    };
    const auto options = std::make_shared<Options>();
    add_report_options(app, *options);
    add_number(app, "MAP", NumberStyle::decimal, 0, rom_layout::map_count - 1, options->map,
               "The map's number, decimal")
        ->required();
    return [options] {
        const OpenedImage opened(options->image);
        const int map = static_cast<int>(options->map);
        print_listing(*options, "map", "facts", inspect::list_map(opened.reading(), map));
        return fine;
    };
}

constexpr Command commands[] = {
    {"maps", "List all maps, a line each", "maps game.smc --names names.txt", declare_maps},
    {"map", "Everything about one map", "map game.smc 17", declare_map},
};

} // namespace

CommandGroup map_commands() {
    return commands;
}

} // namespace veldrune::cli
