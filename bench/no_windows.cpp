// In place of ui/ in a build without the windows.

#include "figures.h"
#include "windows.h"

namespace veldrune::bench {

bool is_window_child(int, char**) {
    return false;
}

int show_first_window(int, char**) {
    return 1;
}

void add_window_figures(Figures&) {}

} // namespace veldrune::bench
