#include "cli/commands.h"
#include "cli/json_output.h"
#include "cli/picture_files.h"
#include "cli/standard_output.h"
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

// Prints findings as they come, since images that have nothing in common have millions; returns
// whether there is one.
bool put_differences(const Options& options, const ImageReading& a, const ImageReading& b) {
    BlockedOut out;
    bool any = false;
    const std::vector<Column> columns = difference_columns();
    if (options.json)
        out.add(json_begin(options.image, "diff", "findings"));
    diff_images(a, b, [&](const Difference& finding) {
        out.add(options.json ? json_row(columns, difference_row(finding), !any)
                             : difference_line(finding) + '\n');
        any = true;
    });
    if (options.json)
        out.add(json_end);
    out.finish();
    return any;
}

Action declare_diff(CLI::App& app) {
    const auto options = std::make_shared<Options>();
    add_report_options(app, *options);
    add_image(app, options->other, "OTHER", "Another one, or the same after a change");
    add_path_option(app, "--pictures", "DIR", options->pictures,
                    "A folder for PNG files, before and after, of each map that looks different, "
                    "objects outlined");
    return [options] {
        const OpenedImage a(options->image);
        const OpenedImage b(options->other);
        if (!options->pictures.empty())
            put_pictures(a.image(), b.image(), make_folder(options->pictures));
        return put_differences(*options, a.reading(), b.reading()) ? found : fine;
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
