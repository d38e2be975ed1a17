// The manual page and what bash completes, as the build has made them.

#include "cli/commands.h"
#include "support/shell.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace veldrune::test {
namespace {

// All that the parser knows, by the words that lead to it: " map".
struct Place {
    const CLI::App* app;
    std::string words;
};
void add_places(const CLI::App& app, const std::string& words, std::vector<Place>& places) {
    places.push_back({&app, words});
    for (const CLI::App* command : app.get_subcommands({}))
        add_places(*command, words + ' ' + command->get_name(), places);
}

struct Manual : testing::Test {
    CLI::App app;
    std::vector<Place> places;

    void SetUp() override {
        cli::declare_commands(app);
        add_places(app, "", places);
    }
};

// The page without what roff takes away.
std::string shown_page() {
    std::ifstream file(VELDRUNE_MANUAL);
    std::string page(std::istreambuf_iterator<char>(file), {});
    for (const auto& [roff, shown] : {std::pair("\\&", ""), {"\\-", "-"}, {"\\e", "\\"}})
        for (std::size_t at = 0; (at = page.find(roff, at)) != std::string::npos;
             at += std::string_view(shown).size())
            page.replace(at, 2, shown);
    return page;
}

// The pieces of a help that are parted by blanks or lines; no headings.
std::vector<std::string> pieces(const std::string& help) {
    std::vector<std::string> all;
    for (std::size_t at = 0, end; at < help.size(); at = end) {
        at = help.find_first_not_of(" \n", at);
        end = std::min({help.find("  ", at), help.find('\n', at), help.size()});
        if (at != std::string::npos && help[end - 1] != ':')
            all.push_back(help.substr(at, end - at));
    }
    return all;
}

TEST_F(Manual, SaysWhatHelpSays) {
    const std::string page = shown_page();
    ASSERT_GT(places.size(), 8u);
    for (const auto& [command, words] : places) {
        const std::size_t begin = words.empty() ? 0 : page.find(".SS" + words + '\n');
        ASSERT_NE(begin, std::string::npos) << words;
        const std::string section =
            words.empty() ? page : page.substr(begin, page.find("\n.SS", begin) - begin);
        for (const std::string& piece : pieces(command->help()))
            EXPECT_NE(section.find(piece.starts_with("Usage: ") ? piece.substr(7) : piece),
                      std::string::npos)
                << words << ": " << piece;
    }
}

TEST_F(Manual, IsOfferedByBash) {
    const auto offered = [](const std::string& words, const std::string& last) {
        return run_shell("bash -c \"source '" VELDRUNE_COMPLETION
                         "'; COMP_WORDS=(veldrune-inspect" +
                         words + " '" + last +
                         "'); COMP_CWORD=\\$((\\${#COMP_WORDS[@]} - 1)); _veldrune_inspect; echo "
                         "'' \\${COMPREPLY[*]} ''\"")
            .out;
    };
    for (const auto& [command, words] : places) {
        const std::string options = offered(words, "-"), names = offered(words, "");
        for (const CLI::Option* option : command->get_options())
            for (const std::string& name : option->get_lnames())
                EXPECT_NE(options.find(" --" + name + ' '), std::string::npos) << words << name;
        for (const CLI::App* inner : command->get_subcommands({}))
            EXPECT_NE(names.find(' ' + inner->get_name() + ' '), std::string::npos) << words;
    }
    EXPECT_EQ(offered("", "ma"), " maps map \n");
    EXPECT_EQ(offered(" map game.smc", "--j"), " --json \n");
    EXPECT_EQ(offered(" map", "g"), " \n"); // files
}

} // namespace
} // namespace veldrune::test
