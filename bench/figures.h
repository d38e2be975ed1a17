#pragma once

#include <functional>
#include <string>
#include <vector>

namespace veldrune::bench {

/// One repetition of what is measured.
using Work = std::function<void()>;
/// Sets up what the work needs, which is not measured, and returns the work. Called only for the
/// figures that are run.
using MakeWork = std::function<Work()>;

/// What a figure must keep to.
struct Goal {
    enum Kind {
        none,
        milliseconds,       ///< the median, at most
        worst_milliseconds, ///< the longest of all repetitions, at most
        times_reference,    ///< median to the reference's median, at most
        times_faster,       ///< the reference's median to the median, at least
        megabytes,          ///< at most
    } kind = none;
    double bound = 0;
};

/// A row of the table of figures. The reference is measured in turn with the work.
struct Figure {
    std::string name;
    Goal goal;
    MakeWork work;
    std::string reference_name = {};
    MakeWork reference = {};
    /// In place of the work: measures megabytes.
    std::function<double()> megabytes = {};
};

/// A row of the table of growth: work on a quarter, or less, up to all of what there can be.
struct Growth {
    std::string name;
    std::vector<int> sizes; // four
    std::function<Work(int size)> work;
};

struct Figures {
    std::vector<Figure> figures;
    std::vector<Growth> growths;
};

// clang-format off
void add_compression_figures(Figures& figures);
void add_render_figures(Figures& figures);
void add_map_figures(Figures& figures);
void add_object_figures(Figures& figures);
void add_event_figures(Figures& figures);
void add_inspect_figures(Figures& figures); ///< nothing without veldrune-inspect
void add_window_figures(Figures& figures); ///< nothing in a build without the windows
// clang-format on

/// The reference of all drawing: copying the picture of a view.
MakeWork copying_a_picture();

/// Keeps the compiler from leaving out what makes a value.
template <typename Value>
void use(const Value& value) {
    asm volatile("" : : "r"(&value) : "memory");
}

} // namespace veldrune::bench
