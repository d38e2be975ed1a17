#include "cli/commands.h"
#include "inspect/tile_uses.h"
#include "inspect/uses.h"
#include "rom/number_text.h"

#include <algorithm>
#include <limits>
#include <memory>

namespace veldrune::cli {
namespace {

using inspect::Use;

constexpr std::int64_t last_set = 0x7F;   // that a record can name
constexpr int last_flag_of_chests = 0xFF; // above, a flag has a byte's address

// What can be asked for, how its number is written, and the highest.
struct Subject {
    const char* name;
    const char* value;
    Use use;
    NumberStyle style;
    std::int64_t highest;
};
// clang-format off
constexpr Subject subjects[] = {
    {"flag",     "1E80:5",  Use::flag,       NumberStyle::hexadecimal, 0},
    {"flag",     "1F:3",    Use::chest_flag, NumberStyle::hexadecimal, 0},
    {"event",    "OFFSET",  Use::event,      NumberStyle::hexadecimal, std::numeric_limits<std::uint32_t>::max()},
    {"dialogue", "NUMBER",  Use::dialogue,   NumberStyle::hexadecimal, 0x7FFF},
    {"map",      "NUMBER",  Use::map,        NumberStyle::decimal,     rom_layout::map_count - 1},
    {"item",     "NUMBER",  Use::item,       NumberStyle::hexadecimal, 0xFF},
    {"song",     "NUMBER",  Use::song,       NumberStyle::decimal,     0xFF},
    {"sprite",   "NUMBER",  Use::sprite,     NumberStyle::hexadecimal, 0xFF},
    {"tile",     "NUMBER",  Use::tile,       NumberStyle::hexadecimal, 0xFF},
};
// clang-format on

struct Options : ReportOptions {
    std::string what;
    std::string value;
    std::int64_t formation_set = -1;
};

// "byte:bit" as 8 * byte + bit.
std::optional<std::int64_t> parse_flag(const std::string& text) {
    constexpr std::int64_t last_byte = 0xFFFF;
    const std::size_t colon = std::min(text.find(':'), text.size());
    const auto byte = parse_number(text.substr(0, colon), NumberStyle::hexadecimal);
    const auto bit =
        parse_number(text.substr(std::min(colon + 1, text.size())), NumberStyle::decimal);
    if (!byte || !bit || *byte > last_byte || *bit > 7)
        return std::nullopt;
    return 8 * *byte + *bit;
}

inspect::UseQuery flag_query(const std::string& text) {
    const auto flag = parse_flag(text);
    if (!flag)
        throw Failure('"' + text + "\" is no flag as 1E80:5 or, of a chest, 1F:3.");
    return {*flag <= last_flag_of_chests ? Use::chest_flag : Use::flag, *flag};
}

inspect::UseQuery query_of(const Options& options) {
    const auto subject = std::ranges::find(subjects, options.what, &Subject::name);
    if (subject == std::end(subjects))
        throw Failure('"' + options.what + "\" is nothing that can be asked for.");
    if ((subject->use == Use::tile) != (options.formation_set >= 0))
        throw Failure("A tile, and nothing else, needs --set.");
    if (subject->highest == 0)
        return flag_query(options.value);
    const auto number = parse_number(options.value, subject->style);
    if (!number || *number > subject->highest)
        throw Failure('"' + options.value + "\" is no number from 0 to " +
                      number_text(subject->highest, subject->style) + '.');
    return {subject->use, *number, static_cast<int>(options.formation_set)};
}

// What each search looks at, for --help.
std::string help_text() {
    std::string text = "What is looked at:\n";
    for (const Subject& subject : subjects)
        text.append("  ")
            .append(subject.name)
            .append(" ")
            .append(subject.value)
            .append(": ")
            .append(inspect::looked_at(subject.use))
            .append(".\n");
    return text + "The game may know more: its own code refers to things, too.\n"
                  "Flags are a byte and a bit. Numbers of maps and songs are decimal, the others "
                  "hexadecimal.\n";
}

CLI::Option* add_set(CLI::App& app, std::int64_t& formation_set) {
    return add_number(app, "--set", NumberStyle::decimal, 0, last_set, formation_set,
                      "The tile formation set, decimal");
}

Action declare_uses(CLI::App& app) {
    const auto options = std::make_shared<Options>();
    add_report_options(app, *options);
    app.add_option("WHAT", options->what, "flag, event, dialogue, map, item, song, sprite or tile")
        ->required();
    app.add_option("VALUE", options->value, "Which one")->required();
    add_set(app, options->formation_set);
    app.footer(app.get_footer() + "\n\n" + help_text());
    return [options] {
        const inspect::UseQuery query = query_of(*options);
        const OpenedImage opened(options->image);
        print_listing(*options, "uses", "uses", inspect::list_uses(opened.reading(), query));
        return fine;
    };
}

Action declare_tiles(CLI::App& app) {
    struct TileOptions : ReportOptions {
        std::int64_t formation_set = 0;
        bool unused = false;
    };
    const auto options = std::make_shared<TileOptions>();
    add_report_options(app, *options);
    add_set(app, options->formation_set)->required();
    app.add_flag("--unused", options->unused, "Only tiles that stand on no map");
    return [options] {
        const OpenedImage opened(options->image);
        print_listing(*options, "tiles", "tiles",
                      inspect::list_tiles(opened.reading(),
                                          static_cast<int>(options->formation_set),
                                          options->unused));
        return fine;
    };
}

constexpr Command commands[] = {
    {"uses", "Find who refers to something", "uses game.smc flag 1E80:5", declare_uses},
    {"tiles", "Count the tiles of a formation set on layers 1 and 2 of all maps",
     "tiles game.smc --set 3 --unused", declare_tiles},
};

} // namespace

CommandGroup uses_commands() {
    return commands;
}

} // namespace veldrune::cli
