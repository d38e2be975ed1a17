#pragma once

#include "editor/editor_state.h"
#include "ui/bindings.h"

class QMainWindow;

namespace veldrune {

/// Builds the window's menus from the editor's table of commands.
void build_menus(QMainWindow& window, EditorState& state, const Bindings& bindings);

} // namespace veldrune
