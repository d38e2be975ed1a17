#pragma once

namespace veldrune {

/// The layer palette beside the tile chooser.
struct Form2 {
    bool visible = false;
    int layer = 0; // Option1 to Option3: layer whose tiles the chooser shows, 0 to 2
};

} // namespace veldrune
