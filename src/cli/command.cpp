#include "cli/command.h"

#include "cli/json_output.h"
#include "cli/standard_output.h"
#include "cli/text_output.h"

namespace veldrune::cli {
namespace {

inspect::MemoryImage read(const std::string& path) {
    inspect::MemoryImage image;
    if (const auto why = inspect::read_image(*make_disk(), path, image))
        throw Failure("Reading " + path + " failed: " + *why + ".");
    return image;
}

} // namespace

void add_image(CLI::App& app, std::string& path, const std::string& name, const std::string& help) {
    app.add_option(name, path, help)->required();
}

void add_report_options(CLI::App& app, ReportOptions& options) {
    add_image(app, options.image);
    app.add_flag("--json", options.json, "Print JSON instead of text");
}

CLI::Option* add_number(CLI::App& app, const std::string& name, NumberStyle style,
                        std::int64_t lowest, std::int64_t highest, std::int64_t& value,
                        const std::string& help) {
    const auto take = [=, &value](const std::string& text) {
        const auto number = parse_number(text, style);
        if (!number || *number < lowest || *number > highest)
            throw CLI::ValidationError(name, '"' + text + "\" is no number from " +
                                                 number_text(lowest, style) + " to " +
                                                 number_text(highest, style));
        value = *number;
    };
    return app.add_option_function<std::string>(name, take, help)->type_name("NUMBER");
}

void add_path_option(CLI::App& app, const std::string& name, const char* kind, std::string& path,
                     const std::string& help) {
    const auto refuse_empty = [](const std::string& text) {
        return std::string(text.empty() ? "the path is empty" : "");
    };
    app.add_option(name, path, help)->type_name(kind)->check(refuse_empty);
}

OpenedImage::OpenedImage(const std::string& path)
    : image_(read(path)), reading_(inspect::read_whole(image_)) {}

void print_listing(const ReportOptions& options, const char* command, const char* array,
                   const inspect::Listing& listing) {
    if (options.json)
        put_out(json_of(options.image, command, array, listing));
    else
        put_out(listing.rows.empty() ? "Nothing found.\n" : text_of(listing));
}

void put_file(const std::string& path, std::span<const std::uint8_t> bytes) {
    if (const auto why = write_file(*make_disk(), path, bytes))
        throw Failure("Writing " + path + " failed" + *why + ".");
}

} // namespace veldrune::cli
