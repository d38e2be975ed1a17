#include "cli/commands.h"
#include "cli/text_output.h"
#include "inspect/check.h"
#include "inspect/room.h"

#include <cstdio>
#include <limits>
#include <memory>

namespace veldrune::cli {
namespace {

constexpr std::size_t most_of_a_kind = 10;

struct CheckOptions : ReportOptions {
    std::string old;
    bool strict = false;
    bool all = false;
};

std::vector<inspect::Finding> findings_of(const CheckOptions& options) {
    std::vector<inspect::Finding> findings =
        inspect::check_image(OpenedImage(options.image).reading());
    if (!options.old.empty())
        remove_known(findings, inspect::check_image(OpenedImage(options.old).reading()));
    if (!options.strict)
        remove_unusual(findings);
    return findings;
}

Action declare_check(CLI::App& app) {
    app.footer(text_of(inspect::list_checks()) + '\n' + app.get_footer());
    const auto options = std::make_shared<CheckOptions>();
    add_report_options(app, *options);
    app.add_flag("--strict", options->strict, "Also what is only unusual");
    app.add_flag("--all", options->all, "Every place, also where one kind has more than ten");
    add_path_option(app, "--against", "FILE", options->old,
                    "An older state of the image: only what is new");
    return [options] {
        const std::vector<inspect::Finding> findings = findings_of(*options);
        const std::size_t most =
            options->all ? std::numeric_limits<std::size_t>::max() : most_of_a_kind;
        print_listing(*options, "check", "findings", list_findings(findings, most));
        return findings.empty() ? fine : found;
    };
}

struct RoomOptions : ReportOptions {
    std::int64_t bytes = 0; // 0: show all
    bool world = false;

    inspect::StreamKind kind() const {
        return world ? inspect::StreamKind::world : inspect::StreamKind::layer;
    }
};

ExitCode show_best_room(const RoomOptions& options, const std::vector<inspect::Room>& rooms) {
    if (options.bytes > most_stream_bytes(options.kind()))
        throw Failure("No stream of this kind has more than " +
                      std::to_string(most_stream_bytes(options.kind())) + " bytes.");
    const auto best = best_room(rooms, options.bytes, options.kind());
    if (!best)
        std::fputs(("No blank place takes " + std::to_string(options.bytes) + " bytes.\n").c_str(),
                   stderr);
    if (best || options.json)
        print_listing(
            options, "room", "places",
            list_room(best ? std::vector{*best} : std::vector<inspect::Room>(), options.bytes));
    return best ? fine : found;
}

Action declare_room(CLI::App& app) {
    const auto options = std::make_shared<RoomOptions>();
    add_report_options(app, *options);
    CLI::Option* bytes = add_number(app, "--for", NumberStyle::decimal, 1,
                                    most_stream_bytes(inspect::StreamKind::world), options->bytes,
                                    "Only the best blank place for a stream of this many bytes");
    app.add_flag("--world", options->world, "The place is for a world's stream")->needs(bytes);
    return [options] {
        const OpenedImage opened(options->image);
        const std::vector<inspect::Room> rooms = find_room(opened.reading());
        if (options->bytes != 0)
            return show_best_room(*options, rooms);
        print_listing(*options, "room", "places", list_room(rooms));
        return fine;
    };
}

constexpr Command commands[] = {
    {"check", "Find what is broken", "check game.smc --against yesterday.smc", declare_check},
    {"room", "Show where nothing known lies", "room game.smc --for 1200", declare_room},
};

} // namespace

CommandGroup check_commands() {
    return commands;
}

} // namespace veldrune::cli
