#pragma once

#include "editor/editor_state.h"

#include <string>

namespace veldrune {

/// Open: asks for a file name and opens that image. Cancel changes nothing.
void open_image(EditorState& state);

/// Opens the image at path instead of the open one and enables the map list. If that fails, the
/// former image stays open, no message is shown, and the result is false.
bool open_image_file(EditorState& state, const std::string& path);

/// Keeps and shows path as that of the open image.
void set_image_path(EditorState& state, const std::string& path);

} // namespace veldrune
