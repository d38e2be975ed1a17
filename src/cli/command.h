#pragma once

#include "cli/exit.h"
#include "cli/number_argument.h"
#include "inspect/listing.h"
#include "inspect/reading.h"

#include <CLI/CLI.hpp>
#include <cstdint>
#include <functional>
#include <span>
#include <string>

namespace veldrune::cli {

/// What a command does once its arguments have been read. Returns the exit code.
using Action = std::function<ExitCode()>;

/// A command: a row of a group's table.
struct Command {
    const char* name;
    const char* summary;
    const char* example;              // a call of it, without the program's name
    Action (*declare)(CLI::App& app); // gives the parser its arguments
};
using CommandGroup = std::span<const Command>;

/// What the user chose for a report: the image, and JSON instead of text.
struct ReportOptions {
    std::string image;
    bool json = false;
};
void add_image(CLI::App& app, std::string& path, const std::string& name = "IMAGE",
               const std::string& help = "The ROM image, which is only read");
void add_report_options(CLI::App& app, ReportOptions& options);

/// Adds an argument, or an option where the name begins with "-". What is no number from lowest to
/// highest is refused with a message.
CLI::Option* add_number(CLI::App& app, const std::string& name, NumberStyle style,
                        std::int64_t lowest, std::int64_t highest, std::int64_t& value,
                        const std::string& help);

/// Adds an option that takes a path; kind is what --help calls it. An empty path is refused.
void add_path_option(CLI::App& app, const std::string& name, const char* kind, std::string& path,
                     const std::string& help);

/// An image and all that is known of it. Throws Failure where the file can't be read.
class OpenedImage {
  public:
    explicit OpenedImage(const std::string& path);
    OpenedImage(const OpenedImage&) = delete;
    OpenedImage& operator=(const OpenedImage&) = delete;

    const inspect::MemoryImage& image() const { return image_; }
    const inspect::ImageReading& reading() const { return reading_; }

  private:
    inspect::MemoryImage image_;
    inspect::ImageReading reading_;
};

/// Prints a listing as text or JSON; array is the key of its rows in JSON. In text, one without
/// rows is "Nothing found.".
void print_listing(const ReportOptions& options, const char* command, const char* array,
                   const inspect::Listing& listing);

/// Puts a file at path, which is never seen half written. Throws Failure.
void put_file(const std::string& path, std::span<const std::uint8_t> bytes);

} // namespace veldrune::cli
