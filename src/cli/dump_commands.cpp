#include "cli/commands.h"
#include "cli/standard_output.h"
#include "inspect/dump.h"

#include <memory>

namespace veldrune::cli {
namespace {

std::string text_of(const std::vector<inspect::Fact>& facts) {
    std::string text;
    for (const inspect::Fact& fact : facts)
        text.append(fact.key).append(" ").append(fact.value).append("\n");
    return text;
}

Action declare_dump(CLI::App& app) {
    const auto path = std::make_shared<std::string>();
    add_image(app, *path);
    return [path] {
        const OpenedImage opened(*path);
        put_out(text_of(inspect::dump_image(opened.reading())));
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
