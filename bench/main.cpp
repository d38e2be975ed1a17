// Measures every figure against its reference and prints the tables as Markdown. Arguments: parts
// of names; only figures whose name has one of them are measured. The exit status is 1 where a goal
// was missed.

#include "figures.h"
#include "windows.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>

namespace veldrune::bench {
namespace {

using Clock = std::chrono::steady_clock;

double milliseconds_of(const Work& work, int repetitions) {
    const Clock::time_point start = Clock::now();
    for (int i = 0; i < repetitions; ++i)
        work();
    const std::chrono::duration<double, std::milli> time = Clock::now() - start;
    return time.count() / repetitions;
}

// The samples of one piece of work. Each is the mean of a batch that takes half a millisecond.
struct Samples {
    Work work;
    int repetitions = 1;
    std::vector<double> times = {}; // milliseconds

    void take() { times.push_back(milliseconds_of(work, repetitions)); }
    void warm_up(bool single) {
        constexpr double batch = 0.5;
        const double once = milliseconds_of(work, 1);
        if (!single && once < batch)
            repetitions = static_cast<int>(batch / milliseconds_of(work, 3)) + 1;
    }
    double median() {
        const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
        std::ranges::nth_element(times, middle);
        return *middle;
    }
    double worst() const { return *std::ranges::max_element(times); }
};

// All of them in turn, so that what else the machine does meets all.
void measure(std::vector<Samples>& all, bool single) {
    constexpr int fewest = 5, most = 301;
    constexpr std::chrono::milliseconds enough(600);
    for (Samples& samples : all)
        samples.warm_up(single);
    const Clock::time_point start = Clock::now();
    for (int round = 0; round < fewest || (round < most && Clock::now() - start < enough); ++round)
        for (Samples& samples : all)
            samples.take();
}

std::string number(const char* format, double value) {
    char text[32];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

std::string time_text(double milliseconds) {
    if (milliseconds < 1)
        return number("%.3g us", milliseconds * 1000);
    return number("%.3g ms", milliseconds);
}

std::string goal_text(const Goal& goal) {
    switch (goal.kind) {
    case Goal::milliseconds:
        return "at most " + time_text(goal.bound);
    case Goal::worst_milliseconds:
        return "worst at most " + time_text(goal.bound);
    case Goal::times_reference:
        return number("at most %.3g times", goal.bound);
    case Goal::times_faster:
        return number("%.3g times as fast", goal.bound);
    case Goal::megabytes:
        return number("at most %.3g MB", goal.bound);
    default:
        return "";
    }
}

bool is_held(const Goal& goal, double median, double worst, double reference) {
    switch (goal.kind) {
    case Goal::milliseconds:
        return median <= goal.bound;
    case Goal::worst_milliseconds:
        return worst <= goal.bound;
    case Goal::times_reference:
        return median <= goal.bound * reference;
    case Goal::times_faster:
        return reference >= goal.bound * median;
    default:
        return true;
    }
}

std::string ratio_text(const Goal& goal, double median, double reference) {
    return goal.kind == Goal::times_faster ? number("1 : %.3g", reference / median)
                                           : number("%.3g", median / reference);
}

bool print_megabytes(const Figure& figure) {
    const double size = figure.megabytes();
    const bool held = size <= figure.goal.bound;
    std::printf("| %s | %.3g MB | | | %s | %s |\n", figure.name.c_str(), size,
                goal_text(figure.goal).c_str(), held ? "yes" : "**no**");
    return held;
}

bool print_figure(const Figure& figure) {
    if (figure.megabytes)
        return print_megabytes(figure);
    const Goal& goal = figure.goal;
    std::vector<Samples> all{{figure.work()}};
    if (figure.reference)
        all.push_back({figure.reference()});
    measure(all, goal.kind == Goal::worst_milliseconds);
    const double worst = all[0].worst();
    const double median = all[0].median();
    const double reference = figure.reference ? all[1].median() : 0;
    const bool held = is_held(goal, median, worst, reference);
    const std::string time =
        time_text(median) +
        (goal.kind == Goal::worst_milliseconds ? ", worst " + time_text(worst) : "");
    const std::string against =
        figure.reference ? figure.reference_name + ", " + time_text(reference) : "";
    std::printf("| %s | %s | %s | %s | %s | %s |\n", figure.name.c_str(), time.c_str(),
                against.c_str(),
                figure.reference ? ratio_text(goal, median, reference).c_str() : "",
                goal_text(goal).c_str(),
                goal.kind == Goal::none ? ""
                : held                  ? "yes"
                                        : "**no**");
    std::fflush(stdout);
    return held;
}

// From the smallest size to the largest, which is at least four times as large, the time for a unit
// may double: as layers begin without a window to be searched.
bool print_growth(const Growth& growth) {
    constexpr double most_growth = 2;
    std::vector<Samples> all;
    for (const int size : growth.sizes)
        all.push_back({growth.work(size)});
    measure(all, false);
    std::printf("| %s |", growth.name.c_str());
    for (std::size_t i = 0; i < all.size(); ++i)
        std::printf(" %d: %s |", growth.sizes[i], time_text(all[i].median()).c_str());
    const auto each = [&](std::size_t i) { return all[i].median() / growth.sizes[i]; };
    const double grown = each(all.size() - 1) / each(0);
    std::printf(" %.2f | %s |\n", grown, grown <= most_growth ? "yes" : "**no**");
    std::fflush(stdout);
    return grown <= most_growth;
}

// The rows whose names are wanted, after the head of their table; the number of goals missed.
template <typename Row, typename Print>
int print_table(const std::vector<Row>& rows, const char* head, const Print& print, int argc,
                char** argv) {
    const auto is_wanted = [&](const Row& row) {
        return argc < 2 || std::any_of(argv + 1, argv + argc, [&](const char* part) {
                   return std::strstr(row.name.c_str(), part) != nullptr;
               });
    };
    int missed = 0;
    if (std::ranges::any_of(rows, is_wanted))
        std::printf("%s", head);
    for (const Row& row : rows)
        if (is_wanted(row))
            missed += print(row) ? 0 : 1;
    return missed;
}

} // namespace
} // namespace veldrune::bench

int main(int argc, char** argv) {
    using namespace veldrune::bench;
    if (is_window_child(argc, argv))
        return show_first_window(argc, argv);
    Figures all;
    add_compression_figures(all);
    add_render_figures(all);
    add_map_figures(all);
    add_object_figures(all);
    add_event_figures(all);
    add_inspect_figures(all);
    add_window_figures(all);
    const int missed =
        print_table(all.figures,
                    "| work | median | reference | ratio | goal | held |\n|-|-|-|-|-|-|\n",
                    print_figure, argc, argv) +
        print_table(
            all.growths,
            "\n| work by size | | | | | growth of a unit's time | held |\n|-|-|-|-|-|-|-|\n",
            print_growth, argc, argv);
    std::printf("\n%d goals missed.\n", missed);
    return missed == 0 ? 0 : 1;
}
