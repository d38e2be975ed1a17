#pragma once

#include "editor/editor_state.h"
#include "ui/bindings.h"

class QWidget;

namespace veldrune {

/// The fields of an object with the preview of its sprite.
QWidget* make_object_panel(EditorState& state, Bindings& bindings);

} // namespace veldrune
