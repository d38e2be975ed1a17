#include "cli/commands.h"
#include "cli/standard_output.h"
#include "inspect/dump.h"

#include <memory>

namespace veldrune::cli {
namespace {

void put_facts(const inspect::ImageReading& reading) {
    BlockedOut out;
    dump_image(reading, [&](const std::vector<inspect::Fact>& facts) {
        for (const inspect::Fact& fact : facts)
            out.add(fact.key + ' ' + fact.value + '\n');
    });
    out.finish();
}

Action declare_dump(CLI::App& app) {
    const auto path = std::make_shared<std::string>();
    add_image(app, *path);
    return [path] {
        const OpenedImage opened(*path);
        put_facts(opened.reading());
        return fine;
    };
}

constexpr Command commands[] = {
    {"dump", "All that is known of an image, a line a fact", "dump game.smc > game.txt",
     declare_dump},
};

} // namespace

CommandGroup dump_commands() {
    return commands;
}

} // namespace veldrune::cli
