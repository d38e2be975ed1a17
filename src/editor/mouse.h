#pragma once

#include "editor/editor_state.h"

namespace veldrune {

enum class MouseButton { left, right };

/// The mouse on the map picture. x and y are pixels from the picture's top left, and may lie
/// outside it while a button is held down.
void on_press(EditorState& state, MouseButton button, int x, int y);
void on_move(EditorState& state, int x, int y);
void on_release(EditorState& state);
/// After the release, for either button, where the pointer is still inside the picture.
void on_click(EditorState& state, int x, int y);

} // namespace veldrune
