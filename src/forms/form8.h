#pragma once

namespace veldrune {

/// The tile chooser: a picture of all 256 tiles, 16 by 16 cells of 32 pixels. The picture itself,
/// Picture1, is MapDisplay::tile_sheet.
struct Form8 {
    bool visible = false;
    bool raise_requested = false; // request to bring the window to the front; the window clears it
};

} // namespace veldrune
