#include "cli/commands.h"
#include "inspect/dialogue_listing.h"
#include "inspect/object_listing.h"
#include "inspect/script_listing.h"

#include <limits>
#include <memory>
#include <optional>

namespace veldrune::cli {
namespace {

// An argument that may be left out.
struct NumberOption : ReportOptions {
    std::int64_t value = -1;

    std::optional<int> number() const {
        return value < 0 ? std::nullopt : std::optional(static_cast<int>(value));
    }
};

Action declare_objects(CLI::App& app) {
    const auto options = std::make_shared<NumberOption>();
    add_report_options(app, *options);
    add_number(app, "MAP", NumberStyle::decimal, 0, rom_layout::map_count - 1, options->value,
               "Only those of this map, decimal");
    return [options] {
        const OpenedImage opened(options->image);
        const auto list = options->json ? inspect::object_table : inspect::object_lines;
        print_listing(*options, "objects", "objects", list(opened.reading(), options->number()));
        return fine;
    };
}

Action declare_scripts(CLI::App& app) {
    const auto options = std::make_shared<ReportOptions>();
    add_report_options(app, *options);
    return [options] {
        const OpenedImage opened(options->image);
        print_listing(*options, "scripts", "scripts", inspect::list_scripts(opened.reading()));
        return fine;
    };
}

Action declare_script(CLI::App& app) {
    struct Options : ReportOptions {
        std::int64_t offset = 0;
        bool bytes = false;
    };
    const auto options = std::make_shared<Options>();
    add_report_options(app, *options);
    add_number(app, "OFFSET", NumberStyle::hexadecimal, 0,
               std::numeric_limits<std::uint32_t>::max(), options->offset,
               "Where the script lies in the file, hexadecimal")
        ->required();
    app.add_flag("--bytes", options->bytes, "Show the bytes of each row");
    return [options] {
        const OpenedImage opened(options->image);
        if (!opened.image().holds(options->offset, 1))
            throw Failure("The script begins outside the file.");
        print_listing(*options, "script", "rows",
                      inspect::list_script(opened.reading(), options->offset, options->bytes));
        return fine;
    };
}

Action declare_dialogue(CLI::App& app) {
    struct Options : NumberOption {
        std::string find;
        bool all = false;
    };
    const auto options = std::make_shared<Options>();
    add_report_options(app, *options);
    add_number(app, "NUMBER", NumberStyle::hexadecimal, 0, rom_layout::dialogue_count - 1,
               options->value, "Only this dialogue, hexadecimal");
    app.add_option("--find", options->find,
                   "Only dialogues that hold this text, whatever the case");
    app.add_flag("--all", options->all, "Name all objects, also where there are more than ten");
    return [options] {
        const OpenedImage opened(options->image);
        print_listing(*options, "dialogue", "dialogues",
                      inspect::list_dialogues(opened.reading(), {options->number(), options->find,
                                                                 !options->json, options->all}));
        return fine;
    };
}

constexpr Command commands[] = {
    {"objects", "List the objects of a map or of all maps", "objects game.smc 17", declare_objects},
    {"scripts", "List all scripts, a line each", "scripts game.smc", declare_scripts},
    {"script", "A script as the Event Editor shows it", "script game.smc A0210 --bytes",
     declare_script},
    {"dialogue", "Dialogues, and who shows them", "dialogue game.smc --find \"the king\"",
     declare_dialogue},
};

} // namespace

CommandGroup text_commands() {
    return commands;
}

} // namespace veldrune::cli
