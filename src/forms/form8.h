#pragma once

namespace veldrune {

/// The tile chooser: a picture of all 256 tiles, 16 by 16 cells of 32 pixels. The picture itself,
/// Picture1, is EditorState::tile_sheet.
struct Form8 {
    bool visible = false;
};

} // namespace veldrune
