#pragma once

#include "editor/commands.h"
#include "ui/bindings.h"

class QMainWindow;

namespace veldrune {

/// Builds the window's menus from its table of commands.
void build_menus(QMainWindow& window, std::span<const Command> commands, EditorState& state,
                 const Bindings& bindings);

} // namespace veldrune
