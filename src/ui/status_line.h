#pragma once

#include "editor/editor_state.h"
#include "ui/elided_label.h"

namespace veldrune {

/// The line that says what is not saved, what the picture shows, where Save writes, and which file
/// could not be opened. Its tip says the same at length.
class StatusLine : public ElidedLabel {
  public:
    explicit StatusLine(const EditorState& state);
    /// Updates the line from the state.
    void show_state();
    /// Shows a hint in place of the status until it is set to an empty one.
    void set_hint(const QString& hint);

  private:
    const EditorState& state_;
    QString hint_;
};

} // namespace veldrune
