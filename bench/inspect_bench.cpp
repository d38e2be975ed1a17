// veldrune-inspect from its start to its end: as a process of its own, whose output nobody reads.

#include "figures.h"

#ifndef VELDRUNE_INSPECT

void veldrune::bench::add_inspect_figures(Figures&) {}

#else

#include "demo/demo_image.h"
#include "image_file.h"
#include "support/bytes.h"

#include <memory>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>

namespace veldrune::bench {
namespace {

// Runs a line of the shell, in which INSPECT is the program, and returns the most memory that it
// had, in megabytes: at least that of this process.
double run(const std::string& line) {
    const pid_t child = ::fork();
    if (child == 0) {
        const std::string set = std::string("INSPECT='") + VELDRUNE_INSPECT + "'; exec ";
        ::execl("/bin/sh", "sh", "-c", (set + line + " >/dev/null").c_str(), nullptr);
        ::_exit(127);
    }
    int status = 0;
    rusage usage{};
    if (::wait4(child, &status, 0, &usage) != child || WEXITSTATUS(status) > 1)
        throw std::runtime_error(line);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

// Two images that differ a little, or in everything, and a folder.
struct Images {
    enum Contents { demo, random };
    std::unique_ptr<ImageFile> a, b;
    std::string folder;

    explicit Images(Contents contents) {
        test::Bytes bytes = demo::make_demo_image();
        test::Random numbers(1);
        const auto change = [&] {
            if (contents == random)
                numbers.fill(bytes);
            else
                bytes[0x2D9100 + 33 * 7 + 28] ^= 1;
        };
        change();
        a = std::make_unique<ImageFile>(bytes);
        change();
        b = std::make_unique<ImageFile>(bytes);
        folder = a->path + "-pictures";
    }
    ~Images() { std::filesystem::remove_all(folder); }

    std::string line(const char* command) const {
        const std::string words = command;
        return "\"$INSPECT\" " + words + ' ' + a->path +
               (words == "diff"       ? ' ' + b->path
                : words == "pictures" ? ' ' + folder
                                      : "");
    }
};

} // namespace

void add_inspect_figures(Figures& figures) {
    struct Row {
        const char* name;
        const char* command;
        Images::Contents contents;
        double most_milliseconds; // 0 for no goal
    };
    constexpr Row rows[] = {
        {"check an image", "check", Images::demo, 500},
        {"dump an image", "dump", Images::demo, 500},
        {"compare two images", "diff", Images::demo, 500},
        {"draw all maps and worlds into files", "pictures", Images::demo, 5000},
        {"check random bytes", "check --strict", Images::random, 0},
        {"dump random bytes", "dump", Images::random, 0},
        {"compare random bytes", "diff", Images::random, 0},
    };
    for (const Row& row : rows) {
        const Goal goal{row.most_milliseconds > 0 ? Goal::milliseconds : Goal::none,
                        row.most_milliseconds};
        const auto make = [row]() -> Work {
            const auto images = std::make_shared<Images>(row.contents);
            return [=] { run(images->line(row.command)); };
        };
        figures.figures.push_back({row.name, goal, make});
        figures.figures.push_back(
            {std::string(row.name) + ", memory", {Goal::megabytes, 200}, {}, {}, {}, [row] {
                 return run(Images(row.contents).line(row.command));
             }});
    }
}

} // namespace veldrune::bench

#endif
