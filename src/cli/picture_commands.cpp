#include "cli/commands.h"
#include "cli/picture_files.h"
#include "cli/png_output.h"
#include "cli/standard_output.h"
#include "inspect/share_out.h"
#include "rom/native_path.h"

#include <memory>
#include <mutex>

namespace veldrune::cli {
namespace {

using namespace inspect;

struct Options : ReportOptions {
    std::string out; // a file or a folder
    int picture = 0;
    PictureOptions drawn;
};

int read_what(const std::string& text) {
    for (const World world : {World::dawn, World::dusk})
        if (picture_name(picture_of(world)) == "world-" + text)
            return picture_of(world);
    const auto number = parse_number(text, NumberStyle::decimal);
    if (!number || *number >= rom_layout::map_count)
        throw CLI::ValidationError("WHAT", '"' + text + "\" is no map from 0 to " +
                                               std::to_string(rom_layout::map_count - 1) +
                                               ", nor \"dawn\" or \"dusk\"");
    return static_cast<int>(*number);
}

std::array<bool, layer_count> read_layers(const std::string& text) {
    std::array<bool, layer_count> shown{};
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const bool parted = i + 1 == text.size() || (text[i + 1] == ',' && i + 2 < text.size());
        if (text[i] < '1' || text[i] > '3' || !parted)
            throw CLI::ValidationError("--layers", '"' + text + "\" is no list as 1,3");
        shown[static_cast<std::size_t>(text[i] - '1')] = true;
    }
    return shown;
}

void add_drawing(CLI::App& app, PictureOptions& drawn) {
    app.add_option_function<std::string>(
           "--layers", [&drawn](const std::string& text) { drawn.layers = read_layers(text); },
           "The layers of a map to be shown, with commas: 1,3")
        ->type_name("LIST");
    app.add_flag("--objects", drawn.objects, "Outline the objects, as the editor does");
    app.add_flag("--grid", drawn.grid, "Draw the grid");
}

// A written file, as JSON names it.
struct Written {
    int picture;
    std::string path;
    PictureSize size;
};

Listing list_written(const std::vector<Written>& all) {
    using enum CellForm;
    Listing listing{{{"picture", "", words},
                     {"file", "", words},
                     {"width", "", decimal},
                     {"height", "", decimal}},
                    {}};
    for (const Written& written : all)
        listing.rows.push_back(
            {picture_name(written.picture), written.path, written.size.width, written.size.height});
    return listing;
}

Action declare_picture(CLI::App& app) {
    const auto options = std::make_shared<Options>();
    add_report_options(app, *options);
    app.add_option_function<std::string>(
           "WHAT", [options](const std::string& text) { options->picture = read_what(text); },
           "A map's number, decimal, or \"dawn\" or \"dusk\"")
        ->required();
    app.add_option("OUT", options->out, "The PNG file")->required();
    add_drawing(app, options->drawn);
    return [options] {
        const OpenedImage opened(options->image);
        const auto painter = std::make_unique<MapPainter>(opened.image(), options->drawn);
        const PictureSize size = put_picture(*painter, options->picture, options->out);
        if (options->json)
            print_listing(*options, "picture", "pictures",
                          list_written({{options->picture, options->out, size}}));
        return fine;
    };
}

// What has been written; shown where someone may look.
class Progress {
  public:
    void add(const Written& written) {
        const std::lock_guard lock(adding_);
        written_.push_back(written);
        put_progress(std::to_string(written_.size()) + " of " + std::to_string(picture_count));
    }
    // By number, after the last one.
    const std::vector<Written>& all() {
        put_progress("");
        std::ranges::sort(written_, {}, &Written::picture);
        return written_;
    }

  private:
    std::mutex adding_;
    std::vector<Written> written_;
};

// The worlds, which are the largest, first.
void put_all(const MemoryImage& image, const PictureOptions& drawn, const std::string& folder,
             Progress& progress) {
    share_out(picture_count, [&] {
        return [&, painter = std::make_shared<MapPainter>(image, drawn)](int index) {
            const int picture = picture_count - 1 - index;
            const std::string path = folder + picture_name(picture) + ".png";
            progress.add({picture, path, put_picture(*painter, picture, path)});
        };
    });
}

std::string total(const std::vector<Written>& all) {
    std::int64_t pixels = 0;
    for (const Written& written : all)
        pixels += written.size.pixels();
    return std::to_string(all.size()) + " pictures, " + std::to_string(pixels) + " pixels\n";
}

Action declare_pictures(CLI::App& app) {
    const auto options = std::make_shared<Options>();
    add_report_options(app, *options);
    app.add_option("DIR", options->out, "The folder for the PNG files; made where there is none")
        ->required();
    add_drawing(app, options->drawn);
    return [options] {
        const OpenedImage opened(options->image);
        Progress progress;
        put_all(opened.image(), options->drawn, make_folder(options->out), progress);
        if (options->json)
            print_listing(*options, "pictures", "pictures", list_written(progress.all()));
        else
            put_out(total(progress.all()));
        return fine;
    };
}

constexpr Command commands[] = {
    {"picture", "Draw a map or a world into a PNG file", "picture game.smc 17 town.png --objects",
     declare_picture},
    {"pictures", "Draw all maps and both worlds into PNG files", "pictures game.smc maps --grid",
     declare_pictures},
};

} // namespace

CommandGroup picture_commands() {
    return commands;
}

PictureSize put_picture(MapPainter& painter, int picture, const std::string& path) {
    const PictureSize size = painter.load(picture);
    PngWriter png(size.width, size.height);
    for (int band = 0; band < painter.band_count(); ++band)
        png.add_rows(painter.draw_band(band));
    put_file(path, png.finish());
    return size;
}

std::string make_folder(const std::string& path) {
    if (!veldrune::make_folder(path))
        throw Failure("Making the folder " + path + " failed.");
    return path + '/';
}

} // namespace veldrune::cli
