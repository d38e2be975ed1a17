#pragma once

#include "editor/object_status.h"
#include "ui/bindings.h"

class QWidget;

namespace veldrune {

/// The fields of an object with the preview of its sprite. What they show follows status, which
/// is to be renewed before they are shown, and must outlive them.
QWidget* make_object_panel(EditorState& state, Bindings& bindings, const ObjectStatus& status);

} // namespace veldrune
