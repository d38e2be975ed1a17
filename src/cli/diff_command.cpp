#include "cli/commands.h"
#include "cli/picture_files.h"
#include "inspect/diff.h"
#include "inspect/share_out.h"

#include <memory>

namespace veldrune::cli {
namespace {

using namespace inspect;

struct Options : ReportOptions {
    std::string other;
    std::string pictures; // a folder; empty for none
};

// Of each map that does not look the same, with its objects.
void put_pictures(const MemoryImage& a, const MemoryImage& b, const std::string& folder) {
    const std::vector<int> differing = differing_pictures(a, b);
    const PictureOptions drawn{.objects = true};
    share_out(static_cast<int>(differing.size()), [&] {
        const auto of_a = std::make_shared<MapPainter>(a, drawn);
        const auto of_b = std::make_shared<MapPainter>(b, drawn);
        return [&, of_a, of_b](int index) {
            const int picture = differing[static_cast<std::size_t>(index)];
            const std::string path = folder + picture_name(picture);
            put_picture(*of_a, picture, path + "-before.png");
            put_picture(*of_b, picture, path + "-after.png");
        };
    });
}

Action declare_diff(CLI::App& app) {
    const auto options = std::make_shared<Options>();
    add_report_options(app, *options);
    add_image(app, options->other, "OTHER");
    app.add_option("--pictures", options->pictures,
                   "A folder for PNG files, before and after, of each map that looks different, "
                   "objects outlined")
        ->type_name("DIR");
    return [options] {
        const OpenedImage a(options->image);
        const OpenedImage b(options->other);
        const std::vector<Difference> findings = diff_images(a.reading(), b.reading());
        if (!options->pictures.empty())
            put_pictures(a.image(), b.image(), make_folder(options->pictures));
        print_listing(*options, "diff", "findings",
                      options->json ? finding_table(findings) : finding_lines(findings));
        return findings.empty() ? fine : found;
    };
}

constexpr Command commands[] = {
    {"diff", "What differs between two images, by what is stored",
     "diff old.smc new.smc --pictures changes", declare_diff},
};

} // namespace

CommandGroup diff_commands() {
    return commands;
}

} // namespace veldrune::cli
